#include "sdk/providers/sqlite/commands.h"

#include <string>

namespace fdo_sqlite {
namespace {

struct CommandOfType {
  FdoInt32 type;
  FdoICommand* (*make)(Connection*);
};

std::vector<CommandOfType> const& Commands() {
  static std::vector<CommandOfType> const commands = {
      {FdoCommandType_Select, &MakeSelect},
      {FdoCommandType_Insert, &MakeInsert},
      {FdoCommandType_Delete, &MakeDelete},
      {FdoCommandType_Update, &MakeUpdate},
      {FdoCommandType_SelectAggregates, &MakeSelectAggregates},
      {FdoCommandType_ExtendedSelect, &MakeExtendedSelect},
      {FdoCommandType_DescribeSchema, &MakeDescribeSchema},
      {FdoCommandType_ApplySchema, &MakeApplySchema},
      {FdoCommandType_CreateSpatialContext, &MakeCreateSpatialContext},
      {FdoCommandType_DestroySpatialContext, &MakeDestroySpatialContext},
      {FdoCommandType_GetSpatialContexts, &MakeGetSpatialContexts},
      {FdoCommandType_SQLCommand, &MakeSqlCommand},
      {FdoCommandType_CreateDataStore, &MakeCreateDataStore},
      {FdoCommandType_DestroyDataStore, &MakeDestroyDataStore},
      {FdoCommandType_ListDataStores, &MakeListDataStores},
      {FdoCommandType_GetSchemaNames, &MakeGetSchemaNames},
      {FdoCommandType_GetClassNames, &MakeGetClassNames},
  };
  return commands;
}

}  // namespace

std::vector<FdoInt32> CommandTypes() {
  std::vector<FdoInt32> types;
  for (CommandOfType const& row : Commands()) types.push_back(row.type);
  return types;
}

FdoICommand* MakeCommand(Connection* connection, FdoInt32 commandType) {
  for (CommandOfType const& row : Commands()) {
    if (row.type == commandType) return row.make(connection);
  }
  std::wstring const message =
      std::wstring(Connection::ProviderTitle()) + L" has no command " + std::to_wstring(commandType) + L".";
  throw FdoConnectionException::Create(message.c_str());
}

}  // namespace fdo_sqlite
