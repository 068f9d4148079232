// The operations that join two filters.
#ifndef FDO_FILTER_BINARY_LOGICAL_OPERATIONS_H_
#define FDO_FILTER_BINARY_LOGICAL_OPERATIONS_H_

enum FdoBinaryLogicalOperations { FdoBinaryLogicalOperations_And = 0, FdoBinaryLogicalOperations_Or = 1 };

#endif  // FDO_FILTER_BINARY_LOGICAL_OPERATIONS_H_
