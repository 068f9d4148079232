// How a table makes its commands.
#ifndef FDO_BACKEND_TABLE_COMMAND_H_
#define FDO_BACKEND_TABLE_COMMAND_H_

#include <Fdo.h>

#include "fdo_backend/command.h"

#include "fdo_backend/command.h"

namespace fdo::internal {

// A new command of that type, which is Command's, for the features of that class.
// Errors: throws FdoException*.
template <class Command>
FdoPtr<Command> MakeTableCommand(FdoIConnection* connection, int type, wchar_t const* className) {
  if (connection == nullptr) throw FdoException::Create(L"The table has no connection.");
  FdoPtr<Command> command = MakeCommand<Command>(*connection, type);
  command->SetFeatureClassName(className);
  return command;
}

}  // namespace fdo::internal

#endif  // FDO_BACKEND_TABLE_COMMAND_H_
