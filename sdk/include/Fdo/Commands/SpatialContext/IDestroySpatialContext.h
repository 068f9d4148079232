// The command that removes a spatial context.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_I_DESTROY_SPATIAL_CONTEXT_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_I_DESTROY_SPATIAL_CONTEXT_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FDO_API FdoIDestroySpatialContext : public FdoICommand {
 public:
  virtual FdoString* GetName() = 0;
  virtual void SetName(FdoString* value) = 0;
  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_I_DESTROY_SPATIAL_CONTEXT_H_
