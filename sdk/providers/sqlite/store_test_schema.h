// Schemas for the tests of the provider, and the commands that apply and read them.
#ifndef SDK_PROVIDERS_SQLITE_STORE_TEST_SCHEMA_H_
#define SDK_PROVIDERS_SQLITE_STORE_TEST_SCHEMA_H_

#include <string>
#include <vector>

#include "Fdo.h"

namespace fdo_sqlite {

template <class Command>
FdoPtr<Command> Make(FdoIConnection* connection, FdoInt32 type) {
  return FdoPtr<Command>(static_cast<Command*>(connection->CreateCommand(type)));
}

inline FdoPtr<FdoDataPropertyDefinition> Data(FdoString* name, FdoDataType type) {
  FdoPtr<FdoDataPropertyDefinition> property = FdoDataPropertyDefinition::Create(name, nullptr);
  property->SetDataType(type);
  property->SetNullable(true);
  return property;
}

inline FdoPtr<FdoGeometricPropertyDefinition> Geometry(FdoString* name, FdoInt32 types = FdoGeometricType_All,
                                                       FdoString* spatialContext = nullptr) {
  FdoPtr<FdoGeometricPropertyDefinition> property = FdoGeometricPropertyDefinition::Create(name, nullptr);
  property->SetGeometryTypes(types);
  property->SetSpatialContextAssociation(spatialContext);
  return property;
}

// A class whose first property is its identity; its first geometry, if any, is the designated one.
inline FdoPtr<FdoClassDefinition> ClassOf(FdoString* name,
                                          std::vector<FdoPtr<FdoPropertyDefinition>> properties) {
  FdoPtr<FdoFeatureClass> definition = FdoFeatureClass::Create(name, nullptr);
  FdoPtr<FdoPropertyDefinitionCollection> all = definition->GetProperties();
  FdoPtr<FdoDataPropertyDefinitionCollection> identity = definition->GetIdentityProperties();
  for (FdoPtr<FdoPropertyDefinition> const& property : properties) {
    all->Add(property);
    auto* data = dynamic_cast<FdoDataPropertyDefinition*>(property.p);
    auto* geometric = dynamic_cast<FdoGeometricPropertyDefinition*>(property.p);
    FdoPtr<FdoGeometricPropertyDefinition> designated = definition->GetGeometryProperty();
    if (data != nullptr && all->GetCount() == 1) identity->Add(data);
    if (geometric != nullptr && designated == nullptr) definition->SetGeometryProperty(geometric);
  }
  return definition;
}

inline FdoPtr<FdoFeatureSchema> SchemaOf(std::vector<FdoPtr<FdoClassDefinition>> const& classes) {
  FdoPtr<FdoFeatureSchema> schema = FdoFeatureSchema::Create(L"Test", nullptr);
  FdoPtr<FdoClassCollection> all = schema->GetClasses();
  for (FdoPtr<FdoClassDefinition> const& definition : classes) all->Add(definition);
  return schema;
}

inline void Apply(FdoIConnection* connection, FdoFeatureSchema* schema, bool ignoreStates = true) {
  FdoPtr<FdoIApplySchema> apply = Make<FdoIApplySchema>(connection, FdoCommandType_ApplySchema);
  apply->SetFeatureSchema(schema);
  apply->SetIgnoreStates(ignoreStates);
  apply->Execute();
}

inline FdoPtr<FdoFeatureSchema> Describe(FdoIConnection* connection) {
  FdoPtr<FdoIDescribeSchema> describe = Make<FdoIDescribeSchema>(connection, FdoCommandType_DescribeSchema);
  FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();
  return FdoPtr<FdoFeatureSchema>(schemas->GetItem(0));
}

inline FdoPtr<FdoClassDefinition> DescribedClass(FdoIConnection* connection, FdoString* name) {
  FdoPtr<FdoFeatureSchema> schema = Describe(connection);
  return FdoPtr<FdoClassDefinition>(FdoPtr<FdoClassCollection>(schema->GetClasses())->GetItem(name));
}

inline void CreateContext(FdoIConnection* connection, FdoString* name, FdoString* coordinateSystem,
                          FdoString* wkt, bool update = false) {
  FdoPtr<FdoICreateSpatialContext> create =
      Make<FdoICreateSpatialContext>(connection, FdoCommandType_CreateSpatialContext);
  create->SetName(name);
  create->SetCoordinateSystem(coordinateSystem);
  create->SetCoordinateSystemWkt(wkt);
  create->SetUpdateExisting(update);
  create->Execute();
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STORE_TEST_SCHEMA_H_
