// The commands of the recording provider, by number.
#ifndef TESTING_RECORDING_PROVIDER_COMMANDS_H_
#define TESTING_RECORDING_PROVIDER_COMMANDS_H_

#include "testing/recording_provider/connection.h"

namespace recording_provider {

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

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_COMMANDS_H_
