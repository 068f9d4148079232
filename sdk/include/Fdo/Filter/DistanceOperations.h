// The operations of a distance condition.
#ifndef FDO_FILTER_DISTANCE_OPERATIONS_H_
#define FDO_FILTER_DISTANCE_OPERATIONS_H_

enum FdoDistanceOperations { FdoDistanceOperations_Beyond = 0, FdoDistanceOperations_Within = 1 };

#endif  // FDO_FILTER_DISTANCE_OPERATIONS_H_
