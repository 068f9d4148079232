#include "testing/memory_provider/commands.h"

#include <string>

namespace memory_provider {
namespace {

struct CommandOfType {
  FdoInt32 type;
  FdoICommand* (*make)(Connection*);
};

constexpr CommandOfType kCommands[] = {
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
  for (CommandOfType const& row : kCommands) types.push_back(row.type);
  return types;
}

FdoICommand* MakeCommand(Connection* connection, FdoInt32 commandType) {
  for (CommandOfType const& row : kCommands) {
    if (row.type == commandType) return row.make(connection);
  }
  std::wstring const message = L"The memory provider has no command " + std::to_wstring(commandType) + L".";
  throw FdoConnectionException::Create(message.c_str());
}

}  // namespace memory_provider
