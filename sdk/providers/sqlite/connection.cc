#include "sdk/providers/sqlite/connection.h"

#include "sdk/providers/base/property_dictionary.h"
#include "sdk/providers/sqlite/capabilities.h"
#include "sdk/providers/sqlite/commands.h"
#include "sdk/providers/sqlite/connection_settings.h"
#include "sdk/providers/sqlite/transaction.h"

namespace fdo_sqlite {
namespace {

constexpr FdoInt32 kStandardBusyMilliseconds = 5000;

class ConnectionInfo : public FdoIConnectionInfo {
 public:
  explicit ConnectionInfo(Connection* connection) : connection_(FDO_SAFE_ADDREF(connection)) {}

  FdoString* GetProviderName() override { return L"OSGeo.SQLite." QUILLON_SQLITE_PROVIDER_SERIES; }
  FdoString* GetProviderDisplayName() override { return L"SQLite"; }
  FdoString* GetProviderDescription() override { return L"Reads and writes spatial tables in SQLite files"; }
  FdoString* GetProviderVersion() override { return QUILLON_SQLITE_PROVIDER_VERSION; }
  FdoString* GetFeatureDataObjectsVersion() override { return L"4.1.0.0"; }
  FdoIConnectionPropertyDictionary* GetConnectionProperties() override {
    FdoPtr<Connection> connection = connection_;
    return new fdo_provider::PropertyDictionary<FdoIConnectionPropertyDictionary>(
        fdo_provider::ParseConnectionString(ConnectionSettings(), connection_->GetConnectionString()),
        [connection](fdo_provider::Settings const& settings) {
          connection.p->SetConnectionString(fdo_provider::WriteConnectionString(settings).c_str());
        });
  }
  FdoProviderDatastoreType GetProviderDatastoreType() override { return FdoProviderDatastoreType_File; }
  FdoStringCollection* GetDependentFileNames() override {
    FdoPtr<FdoStringCollection> names = FdoStringCollection::Create();
    std::wstring const file =
        fdo_provider::ParseConnectionString(ConnectionSettings(), connection_->GetConnectionString())
            .Value(kFile);
    if (!file.empty()) names->Add(FdoStringP(file.c_str()));
    return names.Detach();
  }

 protected:
  void Dispose() override { delete this; }

 private:
  FdoPtr<Connection> connection_;
};

}  // namespace

Connection::Connection() : settings_(ConnectionSettings()), busyMilliseconds_(kStandardBusyMilliseconds) {}

Connection::~Connection() { CloseStore(); }

void Connection::Dispose() { delete this; }

FdoIConnectionCapabilities* Connection::GetConnectionCapabilities() { return MakeConnectionCapabilities(); }
FdoISchemaCapabilities* Connection::GetSchemaCapabilities() { return MakeSchemaCapabilities(); }
FdoICommandCapabilities* Connection::GetCommandCapabilities() { return MakeCommandCapabilities(); }
FdoIFilterCapabilities* Connection::GetFilterCapabilities() { return MakeFilterCapabilities(); }
FdoIExpressionCapabilities* Connection::GetExpressionCapabilities() { return MakeExpressionCapabilities(); }
FdoIRasterCapabilities* Connection::GetRasterCapabilities() { return MakeRasterCapabilities(); }
FdoITopologyCapabilities* Connection::GetTopologyCapabilities() { return MakeTopologyCapabilities(); }
FdoIGeometryCapabilities* Connection::GetGeometryCapabilities() { return MakeGeometryCapabilities(); }

FdoString* Connection::GetConnectionString() { return connectionString_.c_str(); }

void Connection::SetConnectionString(FdoString* value) {
  RequireClosed();
  std::wstring const text = value == nullptr ? L"" : value;
  settings_ = fdo_provider::ParseConnectionString(ConnectionSettings(), text);
  connectionString_ = text;
}

FdoIConnectionInfo* Connection::GetConnectionInfo() { return new ConnectionInfo(this); }

FdoConnectionState Connection::GetConnectionState() {
  return database_.IsOpen() ? FdoConnectionState_Open : FdoConnectionState_Closed;
}

void Connection::SetConnectionTimeout(FdoInt32 value) {
  busyMilliseconds_ = value < 0 ? 0 : value;
  if (database_.IsOpen()) database_.SetBusyWait(busyMilliseconds_);
}

FdoConnectionState Connection::Open() {
  if (database_.IsOpen()) return GetConnectionState();
  settings_.RequireComplete();
  database_.Open(settings_.Value(kFile), busyMilliseconds_);
  schema_ = std::make_unique<StoreSchema>(database_, UsesFdoMetadata(settings_));
  batch_ = std::make_unique<WriteBatch>(database_);
  try {
    indexes_ = std::make_unique<SpatialIndexes>(database_);
  } catch (FdoException*) {
    CloseStore();
    throw;
  }
  return GetConnectionState();
}

void Connection::Close() {
  if (!database_.IsOpen()) return;
  try {
    batch_->Settle();
  } catch (FdoException*) {
    CloseStore();
    throw;
  }
  indexes_->Settle();
  CloseStore();
}

void Connection::CloseStore() noexcept {
  if (transaction_ != nullptr) transaction_->Forget();
  transaction_ = nullptr;
  batch_ = nullptr;
  schema_ = nullptr;
  database_.Close();
  indexes_ = nullptr;
}

FdoITransaction* Connection::BeginTransaction() {
  Database& database = OpenedDatabase();
  if (transaction_ != nullptr) throw FdoCommandException::Create(L"There is an open transaction already.");
  SettleWrites();
  if (database.IsReadOnly()) {
    database.BeginReading();
  } else {
    database.BeginWriting();
  }
  return new Transaction(this);
}

FdoICommand* Connection::CreateCommand(FdoInt32 commandType) { return MakeCommand(this, commandType); }

FdoPhysicalSchemaMapping* Connection::CreateSchemaMapping() {
  throw FdoConnectionException::Create(L"The SQLite provider has no schema mappings.");
}

void Connection::SetConfiguration(FdoIoStream*) { RequireClosed(); }

void Connection::Flush() { SettleWrites(); }

Database& Connection::OpenedDatabase() {
  if (!database_.IsOpen()) throw FdoCommandException::Create(L"The connection is not open.");
  return database_;
}

StoreSchema& Connection::Schema() {
  OpenedDatabase();
  return *schema_;
}

SpatialIndexes& Connection::Indexes() {
  OpenedDatabase();
  return *indexes_;
}

void Connection::JoinWrites(void const* owner) {
  OpenedDatabase();
  RequireSoundTransaction();
  batch_->Join(owner);
}

void Connection::LeaveWrites(void const* owner) noexcept {
  if (batch_ != nullptr) batch_->Leave(owner);
}

void Connection::SettleWrites() {
  OpenedDatabase();
  RequireSoundTransaction();
  batch_->Settle();
}

void Connection::CheckTransaction(FdoITransaction* transaction) {
  if (transaction_ != nullptr && transaction == transaction_) return;
  throw FdoCommandException::Create(L"The transaction is not the open one of this connection.");
}

GeometryFormat Connection::NewGeometryFormat() const {
  return settings_.Effective(kGeometryFormat) == L"WKB" ? GeometryFormat::kWkb : GeometryFormat::kFgf;
}

void Connection::RequireClosed() const {
  if (database_.IsOpen()) throw FdoConnectionException::Create(L"The connection is open.");
}

void Connection::RequireSoundTransaction() const {
  if (transaction_ == nullptr || database_.InTransaction()) return;
  throw FdoCommandException::Create(L"The transaction was undone by an earlier failure.");
}

}  // namespace fdo_sqlite
