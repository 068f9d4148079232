// The command that lists spatial contexts.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_I_GET_SPATIAL_CONTEXTS_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_I_GET_SPATIAL_CONTEXTS_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoISpatialContextReader;

class FDO_API FdoIGetSpatialContexts : public FdoICommand {
 public:
  virtual bool const GetActiveOnly() = 0;

  // False, unless set: all contexts are read.
  virtual void SetActiveOnly(bool const value) = 0;

  // Gives: one reference.
  virtual FdoISpatialContextReader* Execute() = 0;
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_I_GET_SPATIAL_CONTEXTS_H_
