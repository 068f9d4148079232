// The commands of the memory provider, by number.
#ifndef TESTING_MEMORY_PROVIDER_COMMANDS_H_
#define TESTING_MEMORY_PROVIDER_COMMANDS_H_

#include <vector>

#include "testing/memory_provider/connection.h"

namespace memory_provider {

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
FdoICommand* MakeCreateSpatialContext(Connection* connection);
FdoICommand* MakeGetSpatialContexts(Connection* connection);
FdoICommand* MakeCreateDataStore(Connection* connection);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_COMMANDS_H_
