// The operations of a comparison condition.
#ifndef FDO_FILTER_COMPARISON_OPERATIONS_H_
#define FDO_FILTER_COMPARISON_OPERATIONS_H_

enum FdoComparisonOperations {
  FdoComparisonOperations_EqualTo = 0,
  FdoComparisonOperations_NotEqualTo = 1,
  FdoComparisonOperations_GreaterThan = 2,
  FdoComparisonOperations_GreaterThanOrEqualTo = 3,
  FdoComparisonOperations_LessThan = 4,
  FdoComparisonOperations_LessThanOrEqualTo = 5,
  FdoComparisonOperations_Like = 6
};

#endif  // FDO_FILTER_COMPARISON_OPERATIONS_H_
