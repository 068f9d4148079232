// What the commands that read features have in common: which properties, in which order.
#ifndef FDO_COMMANDS_FEATURE_I_BASE_SELECT_H_
#define FDO_COMMANDS_FEATURE_I_BASE_SELECT_H_

#include "Fdo/Commands/IFeatureCommand.h"
#include "Fdo/Commands/OrderingOption.h"
#include "FdoStd.h"

class FdoIdentifierCollection;

class FDO_API FdoIBaseSelect : public FdoIFeatureCommand {
 public:
  // Gives: one reference; changes act on the command. An empty collection means all properties.
  virtual FdoIdentifierCollection* GetPropertyNames() = 0;

  // Gives: one reference; changes act on the command. An empty collection means no order.
  virtual FdoIdentifierCollection* GetOrdering() = 0;

  // One option for all ordering properties; Ascending when not set.
  virtual void SetOrderingOption(FdoOrderingOption option) = 0;

  virtual FdoOrderingOption GetOrderingOption() = 0;
  virtual FdoInt32 GetFetchSize() { return 0; }
  virtual void SetFetchSize(FdoInt32 /*fetchSize*/) {}
};

#endif  // FDO_COMMANDS_FEATURE_I_BASE_SELECT_H_
