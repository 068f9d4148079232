#include "fdo_backend/class_conversion.h"

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <limits>
#include <memory>
#include <string>

#include "values/number_text.h"

namespace fdo::internal {
namespace {

// What the text of a property's default value stands for, by data type.
enum class DefaultKind { kNone, kFlag, kInteger, kReal, kText };

struct DataTypeDefault {
  ColumnDef::DataType type;
  DefaultKind kind;
};

constexpr DataTypeDefault kDefaults[] = {
    {ColumnDef::kBoolean, DefaultKind::kFlag},  {ColumnDef::kByte, DefaultKind::kInteger},
    {ColumnDef::kDateTime, DefaultKind::kText}, {ColumnDef::kDecimal, DefaultKind::kReal},
    {ColumnDef::kDouble, DefaultKind::kReal},   {ColumnDef::kInt16, DefaultKind::kInteger},
    {ColumnDef::kInt32, DefaultKind::kInteger}, {ColumnDef::kInt64, DefaultKind::kInteger},
    {ColumnDef::kSingle, DefaultKind::kReal},   {ColumnDef::kString, DefaultKind::kText},
    {ColumnDef::kBlob, DefaultKind::kNone},     {ColumnDef::kClob, DefaultKind::kNone},
};

DefaultKind DefaultKindOf(ColumnDef::DataType type) {
  for (DataTypeDefault const& row : kDefaults) {
    if (row.type == type) return row.kind;
  }
  return DefaultKind::kNone;
}

Value DefaultValueOf(ColumnDef::DataType type, wchar_t const* text) {
  if (text == nullptr || *text == L'\0') return {};
  switch (DefaultKindOf(type)) {
    case DefaultKind::kNone:
      break;
    case DefaultKind::kFlag:
      return EqualIgnoringCase(text, L"true");
    case DefaultKind::kInteger: {
      long long number = 0;
      ReadInteger(text, number);
      return number;
    }
    case DefaultKind::kReal: {
      double number = 0;
      ReadReal(text, number);
      return number;
    }
    case DefaultKind::kText:
      return text;
  }
  return {};
}

// 0 where there is no number.
int TagOf(FdoDataPropertyDefinition& identity) {
  wchar_t const* const description = identity.GetDescription();
  if (description == nullptr) return 0;
  long long tag = 0;
  ReadInteger(description, tag);
  return static_cast<int>(
      std::clamp<long long>(tag, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::wstring NameOf(FdoSchemaElement* element) { return element == nullptr ? L"" : element->GetName(); }

std::wstring GeometryName(FdoClassDefinition& definition) {
  if (definition.GetClassType() != FdoClassType_FeatureClass) return {};
  FdoPtr<FdoGeometricPropertyDefinition> const geometry =
      static_cast<FdoFeatureClass&>(definition).GetGeometryProperty();
  return NameOf(geometry);
}

CoordSys const* Find(wchar_t const* name, CoordSys const* coordSys, int count) {
  if (name == nullptr) return nullptr;
  CoordSys const* const end = coordSys + count;
  CoordSys const* const found = std::find_if(
      coordSys, end, [name](CoordSys const& each) { return std::wcscmp(each.Name(), name) == 0; });
  return found == end ? nullptr : found;
}

}  // namespace

void DataPropertyToColumnDef(ColumnDef& column, FdoDataPropertyDefinition& property) {
  auto const type = static_cast<ColumnDef::DataType>(property.GetDataType());
  column.Initialize(property.GetName(), type, /*geomTypes=*/0,
                    DefaultValueOf(type, property.GetDefaultValue()), /*srs=*/nullptr);
}

void ClassToTableDef(wchar_t const* schemaName, TableDef& table, FdoClassDefinition& definition,
                     CoordSys const* coordSys, int coordSysCount) {
  FdoPtr<FdoPropertyDefinitionCollection> const properties = definition.GetProperties();
  FdoPtr<FdoDataPropertyDefinitionCollection> const identities = definition.GetIdentityProperties();
  FdoPtr<FdoDataPropertyDefinition> identity;
  if (identities->GetCount() > 0) identity = identities->GetItem(0);
  int const tag = identity == nullptr ? 0 : TagOf(*identity);
  std::wstring const identityName = NameOf(identity);
  std::wstring const geometryName = GeometryName(definition);

  int const count = properties->GetCount();
  auto const columns = std::make_unique<ColumnDef[]>(static_cast<std::size_t>(count));
  int idIndex = -1;
  int geomIndex = -1;
  for (int i = 0; i < count; ++i) {
    ColumnDef& column = columns[static_cast<std::size_t>(i)];
    FdoPtr<FdoPropertyDefinition> const property = properties->GetItem(i);
    FdoPropertyType const kind = property->GetPropertyType();
    if (kind == FdoPropertyType_DataProperty) {
      DataPropertyToColumnDef(column, static_cast<FdoDataPropertyDefinition&>(*property));
      if (idIndex < 0 && identity != nullptr && identityName == property->GetName()) idIndex = i;
    } else if (kind == FdoPropertyType_GeometricProperty) {
      auto& geometry = static_cast<FdoGeometricPropertyDefinition&>(*property);
      column.Initialize(geometry.GetName(), ColumnDef::kGeometry, geometry.GetGeometryTypes(), Value(),
                        Find(geometry.GetSpatialContextAssociation(), coordSys, coordSysCount));
      if (geomIndex < 0 && geometryName == geometry.GetName()) geomIndex = i;
    }
  }
  table.Initialize(schemaName, definition.GetName(), columns.get(), count, idIndex, geomIndex, tag);
}

}  // namespace fdo::internal
