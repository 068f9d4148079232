// A connection that answers from its recorder and writes down there what it is asked.
#ifndef TESTING_RECORDING_PROVIDER_CONNECTION_H_
#define TESTING_RECORDING_PROVIDER_CONNECTION_H_

#include <memory>
#include <string>

#include "testing/recording_provider/live_object.h"
#include "testing/recording_provider/property_dictionary.h"

namespace recording_provider {

class Connection : public FdoIConnection {
 public:
  explicit Connection(std::shared_ptr<Recorder> recorder) : live_(std::move(recorder)) {}

  // Only the capabilities of commands count calls; the others say what the memory provider says.
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
  // Read from where the stream stands, after a rewind: writers leave it at its end.
  void SetConfiguration(FdoIoStream* configStream) override;
  void Flush() override;

  // For the commands.
  void Entered() { live_.Called(); }
  std::shared_ptr<Recorder> const& SharedRecorder() const { return live_.Shared(); }

  // Counts the call of Execute and makes sure that the connection is open.
  // Errors: FdoCommandException* while it is closed.
  Recorder& Executing();

 protected:
  void Dispose() override;

 private:
  LiveObject live_;
  std::wstring connectionString_;
  bool isOpen_ = false;
};

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_CONNECTION_H_
