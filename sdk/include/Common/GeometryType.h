// The types of geometries and of their components, numbered as in geometry streams.
#ifndef COMMON_GEOMETRY_TYPE_H_
#define COMMON_GEOMETRY_TYPE_H_

enum FdoGeometryType {
  FdoGeometryType_None = 0,
  FdoGeometryType_Point = 1,
  FdoGeometryType_LineString = 2,
  FdoGeometryType_Polygon = 3,
  FdoGeometryType_MultiPoint = 4,
  FdoGeometryType_MultiLineString = 5,
  FdoGeometryType_MultiPolygon = 6,
  FdoGeometryType_MultiGeometry = 7,
  FdoGeometryType_CurveString = 10,
  FdoGeometryType_CurvePolygon = 11,
  FdoGeometryType_MultiCurveString = 12,
  FdoGeometryType_MultiCurvePolygon = 13
};

enum FdoGeometryComponentType {
  FdoGeometryComponentType_LinearRing = 129,
  FdoGeometryComponentType_CircularArcSegment = 130,
  FdoGeometryComponentType_LineStringSegment = 131,
  FdoGeometryComponentType_Ring = 132
};

#endif  // COMMON_GEOMETRY_TYPE_H_
