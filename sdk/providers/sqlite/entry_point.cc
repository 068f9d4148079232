// What the provider's library exports.
#include "sdk/providers/sqlite/connection.h"

extern "C" QUILLON_SQLITE_PROVIDER_EXPORT FdoIConnection* CreateConnection();

FdoIConnection* CreateConnection() { return new fdo_sqlite::Connection(); }
