#include "testing/recording_provider/connection.h"

#include "testing/memory_provider/capabilities.h"
#include "testing/recording_provider/commands.h"

namespace recording_provider {
namespace {

class ConnectionInfo : public FdoIConnectionInfo {
 public:
  explicit ConnectionInfo(std::shared_ptr<Recorder> recorder) : live_(std::move(recorder)) {}

  FdoString* GetProviderName() override { return Answer(kProviderName); }
  FdoString* GetProviderDisplayName() override { return Answer(L"Recording"); }
  FdoString* GetProviderDescription() override { return Answer(L"Writes down what it is asked"); }
  FdoString* GetProviderVersion() override { return Answer(L"1.0.0.0"); }
  FdoString* GetFeatureDataObjectsVersion() override { return Answer(L"4.0.0.0"); }
  FdoIConnectionPropertyDictionary* GetConnectionProperties() override {
    live_.Called();
    return new PropertyDictionary<FdoIConnectionPropertyDictionary>(live_.Shared(),
                                                                    std::make_shared<Settings>());
  }
  FdoProviderDatastoreType GetProviderDatastoreType() override {
    live_.Called();
    return FdoProviderDatastoreType_File;
  }
  FdoStringCollection* GetDependentFileNames() override {
    live_.Called();
    return nullptr;
  }

 protected:
  void Dispose() override { delete this; }

 private:
  FdoString* Answer(FdoString* text) {
    live_.Called();
    return text;
  }

  LiveObject live_;
};

class CommandCapabilities : public FdoICommandCapabilities {
 public:
  explicit CommandCapabilities(std::shared_ptr<Recorder> const& recorder)
      : live_(recorder), commands_(recorder->answers.commands) {}

  FdoInt32* GetCommands(FdoInt32& size) override {
    live_.Called();
    size = static_cast<FdoInt32>(commands_.size());
    return commands_.data();
  }
  bool SupportsParameters() override { return Answer(true); }
  bool SupportsTimeout() override { return Answer(false); }
  bool SupportsSelectExpressions() override { return Answer(true); }
  bool SupportsSelectFunctions() override { return Answer(true); }
  bool SupportsSelectDistinct() override { return Answer(true); }
  bool SupportsSelectOrdering() override { return Answer(true); }
  bool SupportsSelectGrouping() override { return Answer(true); }

 protected:
  void Dispose() override { delete this; }

 private:
  bool Answer(bool answer) {
    live_.Called();
    return answer;
  }

  LiveObject live_;
  std::vector<FdoInt32> commands_;
};

// Counts the call, then what make gives as live until it is released.
template <class Capabilities>
Capabilities* Watched(LiveObject const& live, Capabilities* (*make)()) {
  Recorder& recorder = live.Called();
  Capabilities* made = make();
  recorder.Watch(made);
  return made;
}

}  // namespace

FdoIConnectionCapabilities* Connection::GetConnectionCapabilities() {
  return Watched(live_, &memory_provider::MakeConnectionCapabilities);
}

FdoISchemaCapabilities* Connection::GetSchemaCapabilities() {
  return Watched(live_, &memory_provider::MakeSchemaCapabilities);
}

FdoICommandCapabilities* Connection::GetCommandCapabilities() {
  live_.Called();
  return new CommandCapabilities(live_.Shared());
}

FdoIFilterCapabilities* Connection::GetFilterCapabilities() {
  return Watched(live_, &memory_provider::MakeFilterCapabilities);
}

FdoIExpressionCapabilities* Connection::GetExpressionCapabilities() {
  return Watched(live_, &memory_provider::MakeExpressionCapabilities);
}

FdoIRasterCapabilities* Connection::GetRasterCapabilities() {
  return Watched(live_, &memory_provider::MakeRasterCapabilities);
}

FdoITopologyCapabilities* Connection::GetTopologyCapabilities() {
  return Watched(live_, &memory_provider::MakeTopologyCapabilities);
}

FdoIGeometryCapabilities* Connection::GetGeometryCapabilities() {
  return Watched(live_, &memory_provider::MakeGeometryCapabilities);
}

FdoString* Connection::GetConnectionString() {
  Recorder& recorder = live_.Called();
  return recorder.answers.connectionString ? recorder.answers.connectionString->c_str()
                                           : connectionString_.c_str();
}

void Connection::SetConnectionString(FdoString* value) {
  Recorder& recorder = live_.Called();
  connectionString_ = value == nullptr ? L"" : value;
  recorder.Note(L"connection string " + connectionString_);
}

FdoIConnectionInfo* Connection::GetConnectionInfo() {
  live_.Called();
  return new ConnectionInfo(live_.Shared());
}

FdoConnectionState Connection::GetConnectionState() {
  live_.Called();
  return isOpen_ ? FdoConnectionState_Open : FdoConnectionState_Closed;
}

FdoInt32 Connection::GetConnectionTimeout() {
  live_.Called();
  return 0;
}

void Connection::SetConnectionTimeout(FdoInt32) {
  live_.Called();
  throw FdoConnectionException::Create(L"The recording provider has no time limits.");
}

FdoConnectionState Connection::Open() {
  live_.Called().Note(L"open");
  isOpen_ = true;
  return FdoConnectionState_Open;
}

void Connection::Close() {
  live_.Called().Note(L"close");
  isOpen_ = false;
}

FdoITransaction* Connection::BeginTransaction() {
  live_.Called();
  throw FdoConnectionException::Create(L"The recording provider has no transactions.");
}

FdoICommand* Connection::CreateCommand(FdoInt32 commandType) {
  Recorder& recorder = live_.Called();
  recorder.Note(L"make " + std::to_wstring(commandType));
  return MakeCommand(this, commandType);
}

FdoPhysicalSchemaMapping* Connection::CreateSchemaMapping() {
  live_.Called();
  throw FdoConnectionException::Create(L"The recording provider has no schema mappings.");
}

void Connection::SetConfiguration(FdoIoStream* configStream) {
  Recorder& recorder = live_.Called();
  std::string document;
  if (configStream != nullptr) {
    configStream->Reset();
    FdoByte piece[256];
    while (FdoSize const read = configStream->Read(piece, sizeof piece)) {
      document.append(piece, piece + read);
    }
  }
  recorder.Note(L"configuration " + std::wstring(FdoStringP(document.c_str())));
}

void Connection::Flush() { live_.Called().Note(L"flush"); }

Recorder& Connection::Executing() {
  Recorder& recorder = live_.Called();
  if (!isOpen_) throw FdoCommandException::Create(L"The connection is not open.");
  return recorder;
}

void Connection::Dispose() { delete this; }

}  // namespace recording_provider
