// What the commands of the SQLite provider have in common.
#ifndef SDK_PROVIDERS_SQLITE_COMMAND_BASE_H_
#define SDK_PROVIDERS_SQLITE_COMMAND_BASE_H_

#include "sdk/providers/base/command_base.h"
#include "sdk/providers/sqlite/connection.h"

namespace fdo_sqlite {

template <class Interface>
class CommandBase : public fdo_provider::CommandBase<Interface, Connection> {
 public:
  using fdo_provider::CommandBase<Interface, Connection>::CommandBase;

 protected:
  // Errors: FdoCommandException* while the connection is closed.
  Database& OpenedDatabase() { return this->connection_.p->OpenedDatabase(); }
  StoreSchema& Schema() { return this->connection_.p->Schema(); }
};

template <class Interface>
using ClassCommand = fdo_provider::ClassCommand<CommandBase<Interface>>;

template <class Interface>
using FeatureCommand = fdo_provider::FeatureCommand<CommandBase<Interface>>;

template <class Interface>
using SelectCommand = fdo_provider::SelectCommand<CommandBase<Interface>>;

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_COMMAND_BASE_H_
