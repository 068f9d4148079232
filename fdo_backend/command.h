// How commands are made.
#ifndef FDO_BACKEND_COMMAND_H_
#define FDO_BACKEND_COMMAND_H_

#include <Fdo.h>

namespace fdo::internal {

// A new command of the connection.
// Requires: Command is the interface of that type.
// Errors: throws FdoException*.
template <class Command>
FdoPtr<Command> MakeCommand(FdoIConnection& connection, FdoInt32 type) {
  return FdoPtr<Command>(static_cast<Command*>(connection.CreateCommand(type)));
}

}  // namespace fdo::internal

#endif  // FDO_BACKEND_COMMAND_H_
