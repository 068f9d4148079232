// A connection to a store in memory.
#ifndef TESTING_MEMORY_PROVIDER_CONNECTION_H_
#define TESTING_MEMORY_PROVIDER_CONNECTION_H_

#include <memory>
#include <string>

#include "Fdo.h"
#include "testing/memory_provider/store.h"

namespace memory_provider {

class Connection : public FdoIConnection {
 public:
  FdoIConnectionCapabilities* GetConnectionCapabilities() override;
  FdoISchemaCapabilities* GetSchemaCapabilities() override;
  FdoICommandCapabilities* GetCommandCapabilities() override;
  FdoIFilterCapabilities* GetFilterCapabilities() override;
  FdoIExpressionCapabilities* GetExpressionCapabilities() override;
  FdoIRasterCapabilities* GetRasterCapabilities() override;
  FdoITopologyCapabilities* GetTopologyCapabilities() override;
  FdoIGeometryCapabilities* GetGeometryCapabilities() override;
  FdoString* GetConnectionString() override;
  void SetConnectionString(FdoString* value) override;
  FdoIConnectionInfo* GetConnectionInfo() override;
  FdoConnectionState GetConnectionState() override;
  FdoInt32 GetConnectionTimeout() override;
  void SetConnectionTimeout(FdoInt32 value) override;
  FdoConnectionState Open() override;
  void Close() override;
  FdoITransaction* BeginTransaction() override;
  FdoICommand* CreateCommand(FdoInt32 commandType) override;
  FdoPhysicalSchemaMapping* CreateSchemaMapping() override;
  // The document is read to its end and kept; nothing here is configured by it.
  void SetConfiguration(FdoIoStream* configStream) override;
  void Flush() override;

  // Errors: FdoCommandException* while the connection is closed.
  Store& OpenedStore();

  // Commands announce every call; a connection that counts them has something to do here.
  void Entered() {}

 protected:
  void Dispose() override;

 private:
  void RequireClosed() const;

  std::wstring connectionString_;
  std::string configuration_;
  std::shared_ptr<Store> store_;  // null while closed
};

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_CONNECTION_H_
