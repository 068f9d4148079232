// The command that lists classes by qualified name.
#ifndef FDO_COMMANDS_SCHEMA_I_GET_CLASS_NAMES_H_
#define FDO_COMMANDS_SCHEMA_I_GET_CLASS_NAMES_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoStringCollection;

class FDO_API FdoIGetClassNames : public FdoICommand {
 public:
  virtual FdoString* GetSchemaName() = 0;
  virtual void SetSchemaName(FdoString* value) = 0;
  virtual FdoStringCollection* Execute() = 0;
};

#endif  // FDO_COMMANDS_SCHEMA_I_GET_CLASS_NAMES_H_
