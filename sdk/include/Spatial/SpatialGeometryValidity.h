// Whether a geometry may be stored where only certain types are taken.
#ifndef SPATIAL_SPATIAL_GEOMETRY_VALIDITY_H_
#define SPATIAL_SPATIAL_GEOMETRY_VALIDITY_H_

enum FdoSpatialGeometryValidity {
  FdoSpatialGeometryValidity_None = 0,
  FdoSpatialGeometryValidity_Valid = 1,
  FdoSpatialGeometryValidity_Invalid = 2,
  // Its arcs are not taken, the straight lines that could replace them are.
  FdoSpatialGeometryValidity_InvalidButCanBeApproximated = 3,
  FdoSpatialGeometryValidity_InvalidDueToDimensionality = 4
};

#endif  // SPATIAL_SPATIAL_GEOMETRY_VALIDITY_H_
