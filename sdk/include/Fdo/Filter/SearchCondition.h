// FdoSearchCondition is the base of the conditions on rows.
#ifndef FDO_FILTER_SEARCH_CONDITION_H_
#define FDO_FILTER_SEARCH_CONDITION_H_

#include "Fdo/Filter/Filter.h"

class FDO_API FdoSearchCondition : public FdoFilter {
 protected:
  FdoSearchCondition();
  ~FdoSearchCondition() override;
};

#endif  // FDO_FILTER_SEARCH_CONDITION_H_
