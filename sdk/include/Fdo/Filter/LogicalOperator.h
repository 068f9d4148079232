// FdoLogicalOperator is the base of the operations on filters.
#ifndef FDO_FILTER_LOGICAL_OPERATOR_H_
#define FDO_FILTER_LOGICAL_OPERATOR_H_

#include "Fdo/Filter/Filter.h"

class FDO_API FdoLogicalOperator : public FdoFilter {
 protected:
  FdoLogicalOperator();
  ~FdoLogicalOperator() override;
};

#endif  // FDO_FILTER_LOGICAL_OPERATOR_H_
