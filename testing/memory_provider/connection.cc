#include "testing/memory_provider/connection.h"

#include "sdk/providers/base/property_dictionary.h"
#include "testing/memory_provider/capabilities.h"
#include "testing/memory_provider/commands.h"
#include "testing/memory_provider/settings.h"

namespace memory_provider {
namespace {

class ConnectionInfo : public FdoIConnectionInfo {
 public:
  explicit ConnectionInfo(Connection* connection) : connection_(FDO_SAFE_ADDREF(connection)) {}

  FdoString* GetProviderName() override { return L"Quillon.Memory.1.0"; }
  FdoString* GetProviderDisplayName() override { return L"Memory"; }
  FdoString* GetProviderDescription() override { return L"Keeps features in memory, for tests"; }
  FdoString* GetProviderVersion() override { return L"1.0.0.0"; }
  FdoString* GetFeatureDataObjectsVersion() override { return L"4.0.0.0"; }
  FdoIConnectionPropertyDictionary* GetConnectionProperties() override {
    FdoPtr<Connection> connection = connection_;
    return new fdo_provider::PropertyDictionary<FdoIConnectionPropertyDictionary>(
        fdo_provider::ParseConnectionString(KnownSettings(), connection_->GetConnectionString()),
        [connection](fdo_provider::Settings const& settings) {
          connection.p->SetConnectionString(fdo_provider::WriteConnectionString(settings).c_str());
        });
  }
  FdoProviderDatastoreType GetProviderDatastoreType() override { return FdoProviderDatastoreType_File; }
  FdoStringCollection* GetDependentFileNames() override { return nullptr; }

 protected:
  void Dispose() override { delete this; }

 private:
  FdoPtr<Connection> connection_;
};

}  // namespace

FdoIConnectionCapabilities* Connection::GetConnectionCapabilities() { return MakeConnectionCapabilities(); }
FdoISchemaCapabilities* Connection::GetSchemaCapabilities() { return MakeSchemaCapabilities(); }
FdoICommandCapabilities* Connection::GetCommandCapabilities() {
  return MakeCommandCapabilities(CommandTypes());
}
FdoIFilterCapabilities* Connection::GetFilterCapabilities() { return MakeFilterCapabilities(); }
FdoIExpressionCapabilities* Connection::GetExpressionCapabilities() { return MakeExpressionCapabilities(); }
FdoIRasterCapabilities* Connection::GetRasterCapabilities() { return MakeRasterCapabilities(); }
FdoITopologyCapabilities* Connection::GetTopologyCapabilities() { return MakeTopologyCapabilities(); }
FdoIGeometryCapabilities* Connection::GetGeometryCapabilities() { return MakeGeometryCapabilities(); }

FdoString* Connection::GetConnectionString() { return connectionString_.c_str(); }

void Connection::SetConnectionString(FdoString* value) {
  RequireClosed();
  std::wstring const text = value == nullptr ? L"" : value;
  fdo_provider::ParseConnectionString(KnownSettings(), text);
  connectionString_ = text;
}

FdoIConnectionInfo* Connection::GetConnectionInfo() { return new ConnectionInfo(this); }

FdoConnectionState Connection::GetConnectionState() {
  return store_ == nullptr ? FdoConnectionState_Closed : FdoConnectionState_Open;
}

FdoInt32 Connection::GetConnectionTimeout() { return 0; }

void Connection::SetConnectionTimeout(FdoInt32) {
  throw FdoConnectionException::Create(L"The memory provider has no time limits.");
}

FdoConnectionState Connection::Open() {
  if (store_ == nullptr) {
    store_ = OpenStore(fdo_provider::ParseConnectionString(KnownSettings(), connectionString_).Value(kFile));
  }
  return GetConnectionState();
}

void Connection::Close() { store_ = nullptr; }

FdoITransaction* Connection::BeginTransaction() {
  throw FdoConnectionException::Create(L"The memory provider has no transactions.");
}

FdoICommand* Connection::CreateCommand(FdoInt32 commandType) { return MakeCommand(this, commandType); }

FdoPhysicalSchemaMapping* Connection::CreateSchemaMapping() {
  throw FdoConnectionException::Create(L"The memory provider has no schema mappings.");
}

void Connection::SetConfiguration(FdoIoStream* configStream) {
  RequireClosed();
  configuration_.clear();
  if (configStream == nullptr) return;
  configStream->Reset();
  char piece[1024];
  while (FdoSize const read = configStream->Read(reinterpret_cast<FdoByte*>(piece), sizeof piece)) {
    configuration_.append(piece, read);
  }
}

void Connection::Flush() {}

Store& Connection::OpenedStore() {
  if (store_ == nullptr) throw FdoCommandException::Create(L"The connection is not open.");
  return *store_;
}

void Connection::Dispose() { delete this; }

void Connection::RequireClosed() const {
  if (store_ != nullptr) throw FdoConnectionException::Create(L"The connection is open.");
}

}  // namespace memory_provider

extern "C" QUILLON_MEMORY_PROVIDER_EXPORT FdoIConnection* CreateConnection();

FdoIConnection* CreateConnection() { return new memory_provider::Connection(); }
