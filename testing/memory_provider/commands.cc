#include "testing/memory_provider/commands.h"

#include "testing/memory_provider/command_table.h"

namespace memory_provider {
namespace {

constexpr CommandOfType<Connection> kCommands[] = {
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

std::vector<FdoInt32> CommandTypes() {
  std::vector<FdoInt32> types;
  for (CommandOfType<Connection> const& row : kCommands) types.push_back(row.type);
  return types;
}

FdoICommand* MakeCommand(Connection* connection, FdoInt32 commandType) {
  return MakeFrom(kCommands, connection, commandType);
}

}  // namespace memory_provider
