// Where connections come from.
#include "testing/recording_provider/connection.h"

namespace recording_provider {
namespace {

std::shared_ptr<Recorder>& LibraryRecorder() {
  static std::shared_ptr<Recorder> recorder;
  return recorder;
}

}  // namespace

FdoIConnection* NewConnection(std::shared_ptr<Recorder> const& recorder) { return new Connection(recorder); }

void SetLibraryRecorder(std::shared_ptr<Recorder> const& recorder) { LibraryRecorder() = recorder; }

FdoIConnection* NewLibraryConnection() {
  return LibraryRecorder() == nullptr ? nullptr : NewConnection(LibraryRecorder());
}

}  // namespace recording_provider

extern "C" FdoIConnection* CreateConnection();

FdoIConnection* CreateConnection() { return recording_provider::NewLibraryConnection(); }
