#include "testing/recording_provider/answers.h"

#include <stdexcept>

namespace recording_provider {
namespace {

using memory_provider::Column;

typedef FdoPtr<FdoLiteralValue> Made;

Property PropertyOf(wchar_t const* name, FdoDataType type) {
  Property property;
  property.name = name;
  property.type = type;
  return property;
}

// Makes the value of a cell for its column.
struct ValueMaker {
  Column const& column;

  Made operator()(std::nullptr_t) const { return Made(); }
  Made operator()(bool flag) const { return Converted(FdoDataValue::Create(flag)); }
  Made operator()(std::int64_t number) const { return Converted(FdoInt64Value::Create(FdoInt64{number})); }
  Made operator()(double number) const { return Converted(FdoDoubleValue::Create(number)); }
  Made operator()(std::wstring const& text) const { return Converted(FdoStringValue::Create(text.c_str())); }
  Made operator()(FdoDateTime time) const { return Converted(FdoDataValue::Create(time)); }
  Made operator()(std::vector<unsigned char> const& bytes) const {
    FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
    if (column.isGeometry) return Made(FdoGeometryValue::Create(array));
    return Made(FdoDataValue::Create(array, column.type));
  }

  Made Converted(FdoDataValue* value) const {
    FdoPtr<FdoDataValue> source(value);
    return Made(FdoDataValue::Create(column.type, source));
  }
};

FdoPtr<FdoPropertyDefinition> DefinitionOf(Property const& property) {
  FdoString* const description = property.description.empty() ? nullptr : property.description.c_str();
  if (property.isGeometry) {
    FdoPtr<FdoGeometricPropertyDefinition> definition =
        FdoGeometricPropertyDefinition::Create(property.name.c_str(), description);
    if (!property.spatialContext.empty()) {
      definition->SetSpatialContextAssociation(property.spatialContext.c_str());
    }
    return definition;
  }
  FdoPtr<FdoDataPropertyDefinition> definition =
      FdoDataPropertyDefinition::Create(property.name.c_str(), description);
  definition->SetDataType(property.type);
  if (property.isIdentity) definition->SetNullable(false);
  return definition;
}

}  // namespace

Made Cell::ValueFor(Column const& column) const { return std::visit(ValueMaker{column}, content_); }

Property Id(wchar_t const* name, FdoDataType type, wchar_t const* description) {
  Property property = PropertyOf(name, type);
  property.isIdentity = true;
  property.description = description;
  return property;
}

Property Data(wchar_t const* name, FdoDataType type) { return PropertyOf(name, type); }

Property Geometry(wchar_t const* name, wchar_t const* spatialContext) {
  Property property = PropertyOf(name, FdoDataType_BLOB);
  property.isGeometry = true;
  property.spatialContext = spatialContext;
  return property;
}

Rows& Rows::Add(std::vector<Cell> cells) {
  if (cells.size() != columns_.size()) throw std::invalid_argument("A row needs a cell for each column.");
  rows_.push_back(std::move(cells));
  return *this;
}

memory_provider::Result Rows::Selected(std::vector<std::wstring> const& names) const {
  memory_provider::Result result;
  for (std::size_t i = 0; i < columns_.size() && names.empty(); ++i) {
    result.columns.push_back(columns_[i]);
    result.positions.push_back(i);
  }
  for (std::wstring const& name : names) {
    std::size_t position = 0;
    while (position < columns_.size() && columns_[position].name != name) ++position;
    if (position == columns_.size()) {
      throw FdoCommandException::Create((L"There is no answer for the property \"" + name + L"\".").c_str());
    }
    result.columns.push_back(columns_[position]);
    result.positions.push_back(position);
  }
  for (std::vector<Cell> const& cells : rows_) {
    memory_provider::Row row;
    for (std::size_t i = 0; i < cells.size(); ++i) row.push_back(cells[i].ValueFor(columns_[i]));
    result.rows.push_back(std::make_shared<memory_provider::Row const>(std::move(row)));
  }
  return result;
}

FdoPtr<FdoClassDefinition> ClassOf(wchar_t const* name, std::vector<Property> const& properties) {
  Property const* shape = nullptr;
  for (Property const& property : properties) {
    if (property.isGeometry && shape == nullptr) shape = &property;
  }
  FdoPtr<FdoClassDefinition> made;
  if (shape == nullptr) {
    made = FdoClass::Create(name, nullptr);
  } else {
    made = FdoFeatureClass::Create(name, nullptr);
  }
  FdoPtr<FdoPropertyDefinitionCollection> definitions = made->GetProperties();
  FdoPtr<FdoDataPropertyDefinitionCollection> identity = made->GetIdentityProperties();
  for (Property const& property : properties) {
    FdoPtr<FdoPropertyDefinition> definition = DefinitionOf(property);
    definitions->Add(definition);
    if (property.isIdentity) identity->Add(static_cast<FdoDataPropertyDefinition*>(definition.p));
    if (&property == shape) {
      static_cast<FdoFeatureClass*>(made.p)->SetGeometryProperty(
          static_cast<FdoGeometricPropertyDefinition*>(definition.p));
    }
  }
  return made;
}

FdoPtr<FdoFeatureSchema> SchemaOf(wchar_t const* name,
                                  std::vector<FdoPtr<FdoClassDefinition>> const& classes) {
  FdoPtr<FdoFeatureSchema> schema = FdoFeatureSchema::Create(name, nullptr);
  FdoPtr<FdoClassCollection> collection = schema->GetClasses();
  for (FdoPtr<FdoClassDefinition> const& definition : classes) collection->Add(definition);
  schema->AcceptChanges();
  return schema;
}

}  // namespace recording_provider
