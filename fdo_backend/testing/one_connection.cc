// A provider library that nothing registers.
#include "testing/recording_provider/recorder.h"

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED FDO_API
#endif

extern "C" EXPORTED FdoIConnection* CreateConnection();

FdoIConnection* CreateConnection() {
  return recording_provider::NewConnection(std::make_shared<recording_provider::Recorder>());
}
