// The command that writes a schema to a data store.
#ifndef FDO_COMMANDS_SCHEMA_I_APPLY_SCHEMA_H_
#define FDO_COMMANDS_SCHEMA_I_APPLY_SCHEMA_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoFeatureSchema;
class FdoPhysicalSchemaMapping;

class FDO_API FdoIApplySchema : public FdoICommand {
 public:
  virtual FdoFeatureSchema* GetFeatureSchema() = 0;
  virtual void SetFeatureSchema(FdoFeatureSchema* value) = 0;
  virtual FdoPhysicalSchemaMapping* GetPhysicalMapping() = 0;
  virtual void SetPhysicalMapping(FdoPhysicalSchemaMapping* value) = 0;
  virtual FdoBoolean GetIgnoreStates() = 0;

  // True adds what the store does not have yet; false follows the state of each element.
  virtual void SetIgnoreStates(FdoBoolean ignoreStates) = 0;

  // On success the provider calls AcceptChanges() on the schema.
  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_SCHEMA_I_APPLY_SCHEMA_H_
