// The operations of a spatial condition.
#ifndef FDO_FILTER_SPATIAL_OPERATIONS_H_
#define FDO_FILTER_SPATIAL_OPERATIONS_H_

enum FdoSpatialOperations {
  FdoSpatialOperations_Contains = 0,
  FdoSpatialOperations_Crosses = 1,
  FdoSpatialOperations_Disjoint = 2,
  FdoSpatialOperations_Equals = 3,
  FdoSpatialOperations_Intersects = 4,
  FdoSpatialOperations_Overlaps = 5,
  FdoSpatialOperations_Touches = 6,
  FdoSpatialOperations_Within = 7,
  FdoSpatialOperations_CoveredBy = 8,
  FdoSpatialOperations_Inside = 9,
  FdoSpatialOperations_EnvelopeIntersects = 10
};

#endif  // FDO_FILTER_SPATIAL_OPERATIONS_H_
