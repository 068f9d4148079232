#include <gtest/gtest.h>

#include <string>

#include "Fdo.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sdk {
namespace {

FdoPtr<FdoArgumentDefinitionCollection> OneArgument() {
  FdoPtr<FdoArgumentDefinition> argument = FdoArgumentDefinition::Create(
      L"shape", L"What to measure", FdoPropertyType_GeometricProperty, FdoDataType_BLOB);
  FdoArgumentDefinition* items[] = {argument};
  return FdoPtr<FdoArgumentDefinitionCollection>(FdoArgumentDefinitionCollection::Create(items, 1));
}

TEST(FunctionDefinition, OneSignatureIsEnough) {
  FdoPtr<FdoArgumentDefinitionCollection> arguments = OneArgument();
  FdoPtr<FdoFunctionDefinition> area = FdoFunctionDefinition::Create(
      L"Area", L"The area", FdoDataType_Double, arguments, FdoFunctionCategoryType_Geometry);
  EXPECT_STREQ(area->GetName(), L"Area");
  EXPECT_STREQ(area->GetDescription(), L"The area");
  EXPECT_EQ(area->GetReturnType(), FdoDataType_Double);
  EXPECT_EQ(area->GetReturnPropertyType(), FdoPropertyType_DataProperty);
  EXPECT_EQ(area->GetFunctionCategoryType(), FdoFunctionCategoryType_Geometry);
  EXPECT_FALSE(area->IsAggregate());
  EXPECT_FALSE(area->SupportsVariableArgumentsList());
  EXPECT_FALSE(area->CanSetName());
  FdoPtr<FdoReadOnlyArgumentDefinitionCollection> shown = area->GetArguments();
  ASSERT_EQ(shown->GetCount(), 1);
  FdoPtr<FdoArgumentDefinition> shape = shown->GetItem(L"shape");
  EXPECT_EQ(shape->GetPropertyType(), FdoPropertyType_GeometricProperty);
  EXPECT_STREQ(shape->GetDescription(), L"What to measure");
  EXPECT_EQ(shown->IndexOf(shape), 0);
  MessageThrownBy<FdoConnectionException>([&] { shown->GetItem(1); });
  MessageThrownBy<FdoConnectionException>([&] { shown->GetItem(L"none"); });
  FdoPtr<FdoReadOnlySignatureDefinitionCollection> signatures = area->GetSignatures();
  EXPECT_EQ(signatures->GetCount(), 1);
}

TEST(FunctionDefinition, WithoutASignatureItTakesNothing) {
  FdoPtr<FdoFunctionDefinition> bare = FdoFunctionDefinition::Create(
      L"Bare", nullptr, true, static_cast<FdoSignatureDefinitionCollection*>(nullptr));
  EXPECT_TRUE(bare->IsAggregate());
  FdoPtr<FdoReadOnlyArgumentDefinitionCollection> arguments = bare->GetArguments();
  EXPECT_EQ(arguments->GetCount(), 0);
  MessageThrownBy<FdoConnectionException>([&] { arguments->GetItem(0); });
}

TEST(FunctionDefinition, IsInACollectionOnce) {
  FdoPtr<FdoFunctionDefinition> count = FdoFunctionDefinition::Create(
      L"Count", L"", FdoDataType_Int64, nullptr, FdoFunctionCategoryType_Aggregate);
  EXPECT_TRUE(count->IsAggregate());
  FdoFunctionDefinition* items[] = {count};
  FdoPtr<FdoFunctionDefinitionCollection> functions = FdoFunctionDefinitionCollection::Create(items, 1);
  MessageThrownBy<FdoConnectionException>([&] { functions->Add(count); });
  EXPECT_EQ(count->GetRefCount(), 2);
}

TEST(ArgumentDefinition, MayHaveAListOfValues) {
  FdoPtr<FdoArgumentDefinition> unit = FdoArgumentDefinition::Create(L"unit", L"", FdoDataType_String);
  EXPECT_EQ(unit->GetArgumentValueList(), nullptr);
  FdoPtr<FdoPropertyValueConstraintList> values = FdoPropertyValueConstraintList::Create();
  unit->SetArgumentValueList(values);
  EXPECT_EQ(FdoPtr<FdoPropertyValueConstraintList>(unit->GetArgumentValueList()).p, values.p);
}

// Only an heir reaches the well-known functions.
class Capabilities : public FdoIExpressionCapabilities {
 public:
  FdoExpressionType* GetExpressionTypes(FdoInt32& length) override {
    length = 0;
    return nullptr;
  }
  FdoFunctionDefinitionCollection* GetFunctions() override { return GetWellKnownFunctions(); }

 protected:
  void Dispose() override { delete this; }
};

TEST(WellKnownFunctions, HaveTheirSignatures) {
  FdoPtr<Capabilities> capabilities = new Capabilities();
  FdoPtr<FdoFunctionDefinitionCollection> functions = capabilities->GetFunctions();
  EXPECT_EQ(functions->GetCount(), 60);
  struct Case {
    FdoString* name;
    FdoInt32 signatures;
    FdoDataType result;
    FdoFunctionCategoryType category;
  };
  Case const cases[] = {
      {L"Count", 14, FdoDataType_Int64, FdoFunctionCategoryType_Aggregate},
      {L"Abs", 7, FdoDataType_Byte, FdoFunctionCategoryType_Math},
      {L"Max", 9, FdoDataType_Byte, FdoFunctionCategoryType_Aggregate},
      {L"Trunc", 15, FdoDataType_Byte, FdoFunctionCategoryType_Numeric},
      {L"Concat", 1, FdoDataType_String, FdoFunctionCategoryType_String},
      {L"CurrentDate", 1, FdoDataType_DateTime, FdoFunctionCategoryType_Date},
      {L"Area2D", 1, FdoDataType_Double, FdoFunctionCategoryType_Geometry},
      {L"ToInt64", 8, FdoDataType_Int64, FdoFunctionCategoryType_Conversion},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(FdoStringP(c.name).operator char const*());
    FdoPtr<FdoFunctionDefinition> function = functions->GetItem(c.name);
    FdoPtr<FdoReadOnlySignatureDefinitionCollection> signatures = function->GetSignatures();
    EXPECT_EQ(signatures->GetCount(), c.signatures);
    EXPECT_EQ(function->GetReturnType(), c.result);
    EXPECT_EQ(function->GetFunctionCategoryType(), c.category);
    EXPECT_EQ(function->IsAggregate(), c.category == FdoFunctionCategoryType_Aggregate);
  }
  FdoPtr<FdoFunctionDefinition> extents = functions->GetItem(L"SpatialExtents");
  EXPECT_EQ(extents->GetReturnPropertyType(), FdoPropertyType_GeometricProperty);
  EXPECT_TRUE(FdoPtr<FdoFunctionDefinition>(functions->GetItem(L"Concat"))->SupportsVariableArgumentsList());
}

}  // namespace
}  // namespace fdo_sdk
