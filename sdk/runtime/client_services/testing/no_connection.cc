// A library whose entry point makes no connection.
#include "Fdo.h"

#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED FDO_API
#endif

extern "C" EXPORTED FdoIConnection* CreateConnection();

FdoIConnection* CreateConnection() { return nullptr; }
