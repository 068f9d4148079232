// The command that removes a schema with all its data.
#ifndef FDO_COMMANDS_SCHEMA_I_DESTROY_SCHEMA_H_
#define FDO_COMMANDS_SCHEMA_I_DESTROY_SCHEMA_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FDO_API FdoIDestroySchema : public FdoICommand {
 public:
  virtual FdoString* GetSchemaName() = 0;
  virtual void SetSchemaName(FdoString* value) = 0;
  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_SCHEMA_I_DESTROY_SCHEMA_H_
