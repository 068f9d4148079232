#include <Fdo.h>
#include <fdo/connection_string.h>
#include <fdo/database_fdo.h>
#include <fdo/schema_conversion.h>
#include <fdo/table_fdo.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "access/boundary.h"
#include "access/diagnostics.h"
#include "fdo_backend/command.h"
#include "fdo_backend/provider_connection.h"
#include "fdo_backend/schema_loading.h"

namespace fdo {
namespace {

constexpr wchar_t const* kSqlite = L"OSGeo.SQLite";

std::wstring Text(wchar_t const* text) { return text == nullptr ? L"" : text; }

void ReportConnectionFailure(wchar_t const* why, std::wstring const& connectionString) {
  ReportLine((L"FDO connection failure: " + Text(why) + L", ConnStr: " + connectionString).c_str());
}

// Reports a failure as that text and the message behind it.
auto ReportingBehind(wchar_t const* text) {
  return [text](FdoString* message) { ReportLine((text + Text(message)).c_str()); };
}

// Those of the tables' main geometry columns, by name; of several of one name the last.
std::map<std::wstring, CoordSys const*> CoordSystemsOf(DatabaseDef const& def) {
  std::map<std::wstring, CoordSys const*> systems;
  for (int i = 0; i < def.Count(); ++i) {
    if (!def[i].HasGeom()) continue;
    CoordSys const* const system = def[i].Geom().SRS();
    if (system != nullptr) systems[system->Name()] = system;
  }
  return systems;
}

}  // namespace

DatabaseFdo::~DatabaseFdo() { DatabaseFdo::Disconnect(); }

bool DatabaseFdo::Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration,
                          bool /*mode*/, bool loadSchema) {
  Disconnect();
  std::wstring connectionString = source;
  if (provider == nullptr || *provider == L'\0') {
    provider = internal::ProviderFromFileExtension(source);
    if (provider == nullptr) return false;
    connectionString = MakeConnectionString(provider, source);
  }
  auto const report = [&](FdoString* message) { ReportConnectionFailure(message, connectionString); };
  return AtBoundaryReporting(false, report, [&] {
    connection_ = internal::OpenProviderConnection(connectionString.c_str(), provider, configuration,
                                                   /*open=*/true)
                      .Detach();
    if (connection_ == nullptr) return false;
    connectionString_ = Text(connection_->GetConnectionString());
    providerName_ = provider;
    bool const succeeded = !loadSchema || InitSchema();
    if (!succeeded) ReportConnectionFailure(L"schema initialization failed", connectionString);
    ownsConnection_ = true;
    return succeeded;
  });
}

bool DatabaseFdo::Connect(FdoIConnection* connection) {
  // The caller's reference may be the very one that Disconnect gives up.
  FdoPtr<FdoIConnection> adopted = FDO_SAFE_ADDREF(connection);
  Disconnect();
  if (adopted == nullptr) return false;
  connection_ = adopted.Detach();
  ownsConnection_ = false;
  std::wstring connectionString;
  auto const report = [&](FdoString* message) { ReportConnectionFailure(message, connectionString); };
  return AtBoundaryReporting(false, report, [&] {
    connectionString = Text(connection_->GetConnectionString());
    InitSchema();
    return true;
  });
}

void DatabaseFdo::Disconnect() {
  ClearSchema();
  FdoPtr<FdoIConnection> const connection = connection_;  // takes over the reference
  connection_ = nullptr;
  if (connection != nullptr && ownsConnection_) AtBoundary([&] { connection->Close(); });
}

bool DatabaseFdo::Create(wchar_t const* file, wchar_t const* provider) {
  if (provider == nullptr) provider = internal::ProviderFromFileExtension(file);
  if (provider == nullptr) return false;
  return AtBoundaryReporting(false, ReportingBehind(L"Failed to create database, because: "), [&] {
    FdoPtr<FdoIConnection> const connection = internal::OpenProviderConnection(
        MakeConnectionString(provider, file).c_str(), provider, /*configuration=*/nullptr, /*open=*/false);
    if (connection == nullptr) return false;
    FdoPtr<FdoICreateDataStore> const create =
        internal::MakeCommand<FdoICreateDataStore>(*connection, FdoCommandType_CreateDataStore);
    FdoPtr<FdoIDataStorePropertyDictionary> const properties = create->GetDataStoreProperties();
    properties->SetProperty(L"File", file);
    properties->SetProperty(L"UseFdoMetadata", L"TRUE");
    create->Execute();
    return true;
  });
}

bool DatabaseFdo::SetSchema(DatabaseDef const& def) {
  auto const report = ReportingBehind(L"Failed to apply schema, because: ");
  if (connection_ == nullptr) {
    report(L"the database is not connected");
    return false;
  }
  SetCoordSys(def);
  return AtBoundaryReporting(false, report, [&] {
    FdoPtr<FdoIApplySchema> const apply =
        internal::MakeCommand<FdoIApplySchema>(*connection_, FdoCommandType_ApplySchema);
    FdoPtr<FdoFeatureSchema> const schema = FdoFeatureSchema::Create(def.Name(), nullptr);
    FdoPtr<FdoClassCollection> const classes = schema->GetClasses();
    for (int i = 0; i < def.Count(); ++i) {
      FdoPtr<FdoClassDefinition> const definition = TableDefToFdoClass(def[i]);
      classes->Add(definition);
    }
    apply->SetFeatureSchema(schema);
    apply->SetIgnoreStates(true);
    apply->Execute();
    ClearSchema();
    InitSchema();
    return true;
  });
}

Table* DatabaseFdo::DuplicateTable(Table* table) {
  return new TableFdo(connection_, table->Def(), MustAccessByName());
}

void DatabaseFdo::DestroyTable(Table* table) { delete table; }

bool DatabaseFdo::MustAccessByName() const { return providerName_ != kSqlite; }

FdoIConnection* DatabaseFdo::FdoConnection() const { return FDO_SAFE_ADDREF(connection_); }

bool DatabaseFdo::InitSchema() {
  bool const byName = MustAccessByName();
  std::unique_ptr<DatabaseDef> def = internal::ReadSchema(*connection_, /*bySelecting=*/!byName);
  if (def == nullptr) return false;
  int const count = def->Count();
  tables_ = new Table*[static_cast<std::size_t>(count)]();
  def_ = def.release();
  for (int i = 0; i < count; ++i) tables_[i] = new TableFdo(connection_, &(*def_)[i], byName);
  return true;
}

bool DatabaseFdo::SetCoordSys(DatabaseDef const& def) {
  return AtBoundaryReporting(false, ReportingBehind(L"Failed to create spatial context, because: "), [&] {
    for (auto const& [name, system] : CoordSystemsOf(def)) {
      FdoPtr<FdoICreateSpatialContext> const create =
          internal::MakeCommand<FdoICreateSpatialContext>(*connection_, FdoCommandType_CreateSpatialContext);
      create->SetName(name.c_str());
      create->SetCoordinateSystem(system->Code());
      create->SetCoordinateSystemWkt(system->Wkt());
      create->Execute();
    }
    return true;
  });
}

}  // namespace fdo
