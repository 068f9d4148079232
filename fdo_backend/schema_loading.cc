#include "fdo_backend/schema_loading.h"

#include <cstddef>
#include <string>

#include "access/boundary.h"
#include "access/diagnostics.h"
#include "fdo_backend/class_conversion.h"
#include "fdo_backend/command.h"

namespace fdo::internal {
namespace {

FdoPtr<FdoFeatureSchemaCollection> DescribeSchema(FdoIConnection& connection) {
  FdoPtr<FdoIDescribeSchema> const describe =
      MakeCommand<FdoIDescribeSchema>(connection, FdoCommandType_DescribeSchema);
  FdoPtr<FdoFeatureSchemaCollection> schemas;
  AtSilentBoundary(false, [&] {
    schemas = describe->Execute();
    return true;
  });
  return schemas;
}

// Fills a definition for each class in turn.
class ClassReader {
 public:
  ClassReader(FdoIConnection& connection, bool bySelecting)
      : connection_(connection), bySelecting_(bySelecting), systems_(ReadCoordSystems(connection)) {}

  // False when the class was passed over; table is then as it was made.
  bool Read(wchar_t const* schemaName, FdoClassDefinition& described, TableDef& table) const {
    if (!bySelecting_) {
      Convert(schemaName, described, table);
      return true;
    }
    auto const report = [&](FdoString*) {
      wchar_t const* const connectionString = connection_.GetConnectionString();
      ReportLine((std::wstring(L"Can't query db object: ") + described.GetName() + L", ConnStr: " +
                  (connectionString == nullptr ? L"" : connectionString))
                     .c_str());
    };
    return AtBoundaryReporting(false, report, [&] {
      // Only what was converted and closed without a failure counts.
      TableDef selected;
      FdoPtr<FdoISelect> const select = MakeCommand<FdoISelect>(connection_, FdoCommandType_Select);
      select->SetFeatureClassName((std::wstring(schemaName) + L":" + described.GetName()).c_str());
      FdoPtr<FdoIFeatureReader> const reader = select->Execute();
      if (reader == nullptr) throw FdoException::Create(L"The provider gives no reader of the class.");
      FdoPtr<FdoClassDefinition> const definition = reader->GetClassDefinition();
      if (definition == nullptr) throw FdoException::Create(L"The reader has no class.");
      Convert(schemaName, *definition, selected);
      reader->Close();
      table = selected;
      return true;
    });
  }

 private:
  void Convert(wchar_t const* schemaName, FdoClassDefinition& definition, TableDef& table) const {
    ClassToTableDef(schemaName, table, definition, systems_.data(), static_cast<int>(systems_.size()));
  }

  FdoIConnection& connection_;
  bool bySelecting_;
  std::vector<CoordSys> systems_;
};

}  // namespace

std::vector<CoordSys> ReadCoordSystems(FdoIConnection& connection) {
  FdoPtr<FdoIGetSpatialContexts> const command =
      MakeCommand<FdoIGetSpatialContexts>(connection, FdoCommandType_GetSpatialContexts);
  FdoPtr<FdoISpatialContextReader> const reader = command->Execute();
  std::vector<CoordSys> systems;
  while (reader != nullptr && reader->ReadNext()) {
    systems.emplace_back(reader->GetName(), reader->GetCoordinateSystem(), reader->GetCoordinateSystemWkt());
  }
  return systems;
}

std::unique_ptr<DatabaseDef> ReadSchema(FdoIConnection& connection, bool bySelecting) {
  ClassReader const reader(connection, bySelecting);
  FdoPtr<FdoFeatureSchemaCollection> const schemas = DescribeSchema(connection);
  if (schemas == nullptr) return nullptr;

  int count = 0;
  for (int i = 0; i < schemas->GetCount(); ++i) {
    FdoPtr<FdoFeatureSchema> const schema = schemas->GetItem(i);
    count += FdoPtr<FdoClassCollection>(schema->GetClasses())->GetCount();
  }
  auto tables = std::make_unique<TableDef[]>(static_cast<std::size_t>(count));
  std::size_t filled = 0;
  std::wstring name;
  for (int i = 0; i < schemas->GetCount(); ++i) {
    FdoPtr<FdoFeatureSchema> const schema = schemas->GetItem(i);
    // Several schemas have no one name.
    name = i == 0 ? schema->GetName() : L"";
    FdoPtr<FdoClassCollection> const classes = schema->GetClasses();
    for (int j = 0; j < classes->GetCount(); ++j) {
      FdoPtr<FdoClassDefinition> const described = classes->GetItem(j);
      if (reader.Read(schema->GetName(), *described, tables[filled])) ++filled;
    }
  }
  auto def = std::make_unique<DatabaseDef>();
  def->Initialize(name.c_str(), tables.release(), count);
  return def;
}

}  // namespace fdo::internal
