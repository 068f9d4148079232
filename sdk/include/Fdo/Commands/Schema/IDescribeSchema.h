// The command that reads the schemas of a data store.
#ifndef FDO_COMMANDS_SCHEMA_I_DESCRIBE_SCHEMA_H_
#define FDO_COMMANDS_SCHEMA_I_DESCRIBE_SCHEMA_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoFeatureSchemaCollection;
class FdoStringCollection;

class FDO_API FdoIDescribeSchema : public FdoICommand {
 public:
  virtual FdoString* GetSchemaName() = 0;

  // All schemas, unless set. An unknown name makes Execute throw.
  virtual void SetSchemaName(FdoString* value) = 0;

  virtual FdoStringCollection* GetClassNames() = 0;

  // A hint only: more classes may be described.
  virtual void SetClassNames(FdoStringCollection* value) = 0;

  // Gives: one reference; all elements are in the state Unchanged.
  virtual FdoFeatureSchemaCollection* Execute() = 0;
};

#endif  // FDO_COMMANDS_SCHEMA_I_DESCRIBE_SCHEMA_H_
