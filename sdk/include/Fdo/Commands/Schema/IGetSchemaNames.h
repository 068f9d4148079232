// The command that lists schemas by name.
#ifndef FDO_COMMANDS_SCHEMA_I_GET_SCHEMA_NAMES_H_
#define FDO_COMMANDS_SCHEMA_I_GET_SCHEMA_NAMES_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoStringCollection;

class FDO_API FdoIGetSchemaNames : public FdoICommand {
 public:
  virtual FdoStringCollection* Execute() = 0;
};

#endif  // FDO_COMMANDS_SCHEMA_I_GET_SCHEMA_NAMES_H_
