#include "sdk/providers/sqlite/function_definitions.h"

#include <optional>

#include "sdk/providers/sqlite/function_table.h"

namespace fdo_sqlite {
namespace {

// A value of the type of an argument.
SqlValue Argument(FdoPropertyType propertyType, FdoDataType type) {
  static StoreColumn const kGeometry = [] {
    StoreColumn column;
    column.kind = StoreColumn::Kind::kGeometry;
    return column;
  }();
  if (propertyType == FdoPropertyType_GeometricProperty) return ColumnValue(kGeometry, "x");
  SqlValue value;
  value.sql = SqlFragment("x");
  value.kind = KindOf(type);
  value.type = type;
  return value;
}

// What a call with those arguments gives; nothing where it is refused.
std::optional<SqlValue> Called(FdoString* name, FdoReadOnlyArgumentDefinitionCollection& arguments) {
  std::vector<SqlValue> values;
  for (FdoInt32 i = 0; i < arguments.GetCount(); ++i) {
    FdoPtr<FdoArgumentDefinition> const argument = arguments.GetItem(i);
    values.push_back(Argument(argument->GetPropertyType(), argument->GetDataType()));
  }
  try {
    return CallFunction(FindFunction(name, values.size()), values);
  } catch (FdoException* refusal) {
    refusal->Release();
    return std::nullopt;
  }
}

FdoPtr<FdoSignatureDefinition> Signature(SqlValue const& result, FdoArgumentDefinitionCollection* arguments) {
  FdoPropertyType const kind =
      result.kind == SqlKind::kGeometry ? FdoPropertyType_GeometricProperty : FdoPropertyType_DataProperty;
  return FdoSignatureDefinition::Create(kind, result.type, arguments);
}

FdoPtr<FdoArgumentDefinitionCollection> Copied(FdoReadOnlyArgumentDefinitionCollection& arguments) {
  FdoPtr<FdoArgumentDefinitionCollection> copy = FdoArgumentDefinitionCollection::Create();
  for (FdoInt32 i = 0; i < arguments.GetCount(); ++i) {
    FdoPtr<FdoArgumentDefinition> const argument = arguments.GetItem(i);
    copy->Add(argument);
  }
  return copy;
}

void AddWellKnown(FdoFunctionDefinition& known, FdoFunctionDefinitionCollection& all) {
  FdoPtr<FdoReadOnlySignatureDefinitionCollection> const signatures = known.GetSignatures();
  FdoPtr<FdoSignatureDefinitionCollection> const taken = FdoSignatureDefinitionCollection::Create();
  for (FdoInt32 i = 0; i < signatures->GetCount(); ++i) {
    FdoPtr<FdoSignatureDefinition> const signature = signatures->GetItem(i);
    FdoPtr<FdoReadOnlyArgumentDefinitionCollection> const arguments = signature->GetArguments();
    std::optional<SqlValue> const result = Called(known.GetName(), *arguments);
    if (result) taken->Add(Signature(*result, Copied(*arguments)));
  }
  if (taken->GetCount() == 0) return;
  FdoPtr<FdoFunctionDefinition> const made =
      FdoFunctionDefinition::Create(known.GetName(), known.GetDescription(), known.IsAggregate(), taken,
                                    known.GetFunctionCategoryType(), known.SupportsVariableArgumentsList());
  all.Add(made);
}

// The functions that are nobody else's, with the fewest arguments that they take.
struct OwnFunction {
  wchar_t const* name;
  wchar_t const* description;
  std::vector<FdoDataType> arguments;
  FdoFunctionCategoryType category;
  bool takesMore;
};

std::vector<OwnFunction> OwnFunctions() {
  constexpr FdoDataType kDouble = FdoDataType_Double;
  constexpr FdoDataType kString = FdoDataType_String;
  return {
      {L"If",
       L"The second value where the first is true, else the third",
       {FdoDataType_Boolean, kString, kString},
       FdoFunctionCategoryType_Custom,
       false},
      {L"Lookup",
       L"The value behind the key that equals the first value, else the second value",
       {kString, kString, kString, kString},
       FdoFunctionCategoryType_Custom,
       true},
      {L"Pow", L"A power", {kDouble, kDouble}, FdoFunctionCategoryType_Math, false},
      {L"Random", L"A number from 0 to 1", {}, FdoFunctionCategoryType_Math, false},
      {L"ToDateTime",
       L"The date and time that a text describes",
       {kString},
       FdoFunctionCategoryType_Conversion,
       false},
  };
}

void AddOwn(OwnFunction const& own, FdoFunctionDefinitionCollection& all) {
  FdoPtr<FdoArgumentDefinitionCollection> const arguments = FdoArgumentDefinitionCollection::Create();
  std::vector<SqlValue> values;
  for (FdoDataType const type : own.arguments) {
    std::wstring const name = L"argument" + std::to_wstring(arguments->GetCount() + 1);
    FdoPtr<FdoArgumentDefinition> const argument = FdoArgumentDefinition::Create(name.c_str(), L"", type);
    arguments->Add(argument);
    values.push_back(Argument(FdoPropertyType_DataProperty, type));
  }
  SqlValue const result = CallFunction(FindFunction(own.name, values.size()), values);
  FdoPtr<FdoSignatureDefinitionCollection> const signatures = FdoSignatureDefinitionCollection::Create();
  signatures->Add(Signature(result, arguments));
  FdoPtr<FdoFunctionDefinition> const made = FdoFunctionDefinition::Create(
      own.name, own.description, false, signatures, own.category, own.takesMore);
  all.Add(made);
}

}  // namespace

FdoFunctionDefinitionCollection* MakeFunctionDefinitions(FdoFunctionDefinitionCollection& wellKnown) {
  FdoPtr<FdoFunctionDefinitionCollection> all = FdoFunctionDefinitionCollection::Create();
  for (FdoInt32 i = 0; i < wellKnown.GetCount(); ++i) {
    FdoPtr<FdoFunctionDefinition> const function = wellKnown.GetItem(i);
    AddWellKnown(*function, *all);
  }
  for (OwnFunction const& own : OwnFunctions()) AddOwn(own, *all);
  return all.Detach();
}

}  // namespace fdo_sqlite
