// A select with an ordering option for each property and a reader that moves both ways.
#ifndef FDO_COMMANDS_FEATURE_I_EXTENDED_SELECT_H_
#define FDO_COMMANDS_FEATURE_I_EXTENDED_SELECT_H_

#include "Fdo/Commands/Feature/ISelect.h"
#include "Fdo/Commands/OrderingOption.h"
#include "FdoStd.h"

class FdoIScrollableFeatureReader;

class FDO_API FdoIExtendedSelect : public FdoISelect {
 public:
  // Requires: the property is in GetOrdering() too.
  // Deliberate: hides the form with one option for all.
  virtual void SetOrderingOption(FdoString* propertyName, FdoOrderingOption option) = 0;

  virtual FdoOrderingOption GetOrderingOption(FdoString* propertyName) = 0;

  // Forgets the options, not the ordering properties.
  virtual void ClearOrderingOptions() = 0;

  // Gives: one reference.
  virtual FdoIScrollableFeatureReader* ExecuteScrollable() = 0;

 private:
  using FdoISelect::GetOrderingOption;
  using FdoISelect::SetOrderingOption;
};

#endif  // FDO_COMMANDS_FEATURE_I_EXTENDED_SELECT_H_
