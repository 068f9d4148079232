// The command that removes features.
#ifndef FDO_COMMANDS_FEATURE_I_DELETE_H_
#define FDO_COMMANDS_FEATURE_I_DELETE_H_

#include "Fdo/Commands/IFeatureCommand.h"
#include "FdoStd.h"

class FdoILockConflictReader;

class FDO_API FdoIDelete : public FdoIFeatureCommand {
 public:
  // Gives the number of features removed.
  virtual FdoInt32 Execute() = 0;

  virtual FdoILockConflictReader* GetLockConflicts() = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_DELETE_H_
