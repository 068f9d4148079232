// The commands of the SQLite provider, by number.
#ifndef SDK_PROVIDERS_SQLITE_COMMANDS_H_
#define SDK_PROVIDERS_SQLITE_COMMANDS_H_

#include <vector>

#include "sdk/providers/sqlite/connection.h"

namespace fdo_sqlite {

// The numbers of the commands that there are.
std::vector<FdoInt32> CommandTypes();

// Gives: one reference. Errors: FdoConnectionException* for a number that there is not.
FdoICommand* MakeCommand(Connection* connection, FdoInt32 commandType);

// Give: one reference.
FdoICommand* MakeSelect(Connection* connection);
FdoICommand* MakeExtendedSelect(Connection* connection);
FdoICommand* MakeSelectAggregates(Connection* connection);
FdoICommand* MakeInsert(Connection* connection);
FdoICommand* MakeUpdate(Connection* connection);
FdoICommand* MakeDelete(Connection* connection);
FdoICommand* MakeDescribeSchema(Connection* connection);
FdoICommand* MakeApplySchema(Connection* connection);
FdoICommand* MakeGetSchemaNames(Connection* connection);
FdoICommand* MakeGetClassNames(Connection* connection);
FdoICommand* MakeCreateSpatialContext(Connection* connection);
FdoICommand* MakeDestroySpatialContext(Connection* connection);
FdoICommand* MakeGetSpatialContexts(Connection* connection);
FdoICommand* MakeCreateDataStore(Connection* connection);
FdoICommand* MakeDestroyDataStore(Connection* connection);
FdoICommand* MakeListDataStores(Connection* connection);
FdoICommand* MakeSqlCommand(Connection* connection);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_COMMANDS_H_
