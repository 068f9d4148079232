#include "testing/recording_provider/commands.h"

#include "testing/memory_provider/command_table.h"

namespace recording_provider {
namespace {

constexpr memory_provider::CommandOfType<Connection> kCommands[] = {
    {FdoCommandType_Select, &MakeSelect},
    {FdoCommandType_Insert, &MakeInsert},
    {FdoCommandType_Delete, &MakeDelete},
    {FdoCommandType_Update, &MakeUpdate},
    {FdoCommandType_DescribeSchema, &MakeDescribeSchema},
    {FdoCommandType_ApplySchema, &MakeApplySchema},
    {FdoCommandType_CreateSpatialContext, &MakeCreateSpatialContext},
    {FdoCommandType_GetSpatialContexts, &MakeGetSpatialContexts},
    {FdoCommandType_SelectAggregates, &MakeSelectAggregates},
    {FdoCommandType_CreateDataStore, &MakeCreateDataStore},
    {FdoCommandType_ExtendedSelect, &MakeExtendedSelect},
};

}  // namespace

FdoICommand* MakeCommand(Connection* connection, FdoInt32 commandType) {
  return memory_provider::MakeFrom(kCommands, connection, commandType);
}

}  // namespace recording_provider
