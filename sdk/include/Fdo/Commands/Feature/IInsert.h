// The command that adds a feature.
#ifndef FDO_COMMANDS_FEATURE_I_INSERT_H_
#define FDO_COMMANDS_FEATURE_I_INSERT_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoBatchParameterValueCollection;
class FdoIFeatureReader;
class FdoIdentifier;
class FdoPropertyValueCollection;

// Not a feature command: there is nothing to filter.
class FDO_API FdoIInsert : public FdoICommand {
 public:
  virtual FdoIdentifier* GetFeatureClassName() = 0;
  virtual void SetFeatureClassName(FdoIdentifier* value) = 0;
  virtual void SetFeatureClassName(FdoString* value) = 0;

  // Gives: one reference; changes act on the command.
  virtual FdoPropertyValueCollection* GetPropertyValues() = 0;

  virtual FdoBatchParameterValueCollection* GetBatchParameterValues() = 0;

  // Gives: one reference, a reader of the new objects with at least their identity properties.
  virtual FdoIFeatureReader* Execute() = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_INSERT_H_
