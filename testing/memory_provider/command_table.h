// The commands of a provider for tests: a number and a maker for each.
#ifndef TESTING_MEMORY_PROVIDER_COMMAND_TABLE_H_
#define TESTING_MEMORY_PROVIDER_COMMAND_TABLE_H_

#include <cstddef>
#include <string>

#include "Fdo.h"

namespace memory_provider {

template <class ConnectionType>
struct CommandOfType {
  FdoInt32 type;
  FdoICommand* (*make)(ConnectionType*);
};

// Gives: one reference. Errors: FdoConnectionException* for a number that is not in the table.
template <class ConnectionType, std::size_t kRows>
FdoICommand* MakeFrom(CommandOfType<ConnectionType> const (&table)[kRows], ConnectionType* connection,
                      FdoInt32 commandType) {
  for (CommandOfType<ConnectionType> const& row : table) {
    if (row.type == commandType) return row.make(connection);
  }
  std::wstring const message = L"The provider has no command " + std::to_wstring(commandType) + L".";
  throw FdoConnectionException::Create(message.c_str());
}

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_COMMAND_TABLE_H_
