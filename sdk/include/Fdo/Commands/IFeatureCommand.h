// A command on the features of one class that match a filter.
#ifndef FDO_COMMANDS_I_FEATURE_COMMAND_H_
#define FDO_COMMANDS_I_FEATURE_COMMAND_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoFilter;
class FdoIdentifier;

class FDO_API FdoIFeatureCommand : public FdoICommand {
 public:
  // Gives: one reference.
  virtual FdoIdentifier* GetFeatureClassName() = 0;

  // The text form takes schema:class.
  virtual void SetFeatureClassName(FdoIdentifier* value) = 0;
  virtual void SetFeatureClassName(FdoString* value) = 0;

  // Gives: one reference, or null.
  virtual FdoFilter* GetFilter() = 0;

  // Null removes the filter; as a literal it needs a cast. Text is parsed.
  virtual void SetFilter(FdoFilter* value) = 0;
  virtual void SetFilter(FdoString* value) = 0;
};

#endif  // FDO_COMMANDS_I_FEATURE_COMMAND_H_
