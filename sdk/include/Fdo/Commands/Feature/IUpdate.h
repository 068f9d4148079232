// The command that changes features.
#ifndef FDO_COMMANDS_FEATURE_I_UPDATE_H_
#define FDO_COMMANDS_FEATURE_I_UPDATE_H_

#include "Fdo/Commands/IFeatureCommand.h"
#include "FdoStd.h"

class FdoILockConflictReader;
class FdoPropertyValueCollection;

class FDO_API FdoIUpdate : public FdoIFeatureCommand {
 public:
  // Gives: one reference; changes act on the command.
  virtual FdoPropertyValueCollection* GetPropertyValues() = 0;

  // Gives the number of features changed.
  virtual FdoInt32 Execute() = 0;

  virtual FdoILockConflictReader* GetLockConflicts() = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_UPDATE_H_
