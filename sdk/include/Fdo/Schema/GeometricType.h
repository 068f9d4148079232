// The shapes a geometric property takes; the values combine as bits.
#ifndef FDO_SCHEMA_GEOMETRIC_TYPE_H_
#define FDO_SCHEMA_GEOMETRIC_TYPE_H_

enum FdoGeometricType {
  FdoGeometricType_Point = 1,
  FdoGeometricType_Curve = 2,
  FdoGeometricType_Surface = 4,
  FdoGeometricType_Solid = 8
};

#define FdoGeometricType_All \
  (FdoGeometricType_Point | FdoGeometricType_Curve | FdoGeometricType_Surface | FdoGeometricType_Solid)

#endif  // FDO_SCHEMA_GEOMETRIC_TYPE_H_
