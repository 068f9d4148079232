// The operation on one filter.
#ifndef FDO_FILTER_UNARY_LOGICAL_OPERATIONS_H_
#define FDO_FILTER_UNARY_LOGICAL_OPERATIONS_H_

enum FdoUnaryLogicalOperations { FdoUnaryLogicalOperations_Not = 0 };

#endif  // FDO_FILTER_UNARY_LOGICAL_OPERATIONS_H_
