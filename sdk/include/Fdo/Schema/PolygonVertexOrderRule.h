// The direction in which the outer rings of polygons run.
#ifndef FDO_SCHEMA_POLYGON_VERTEX_ORDER_RULE_H_
#define FDO_SCHEMA_POLYGON_VERTEX_ORDER_RULE_H_

enum FdoPolygonVertexOrderRule {
  FdoPolygonVertexOrderRule_CCW = 0,
  FdoPolygonVertexOrderRule_CW = 1,
  FdoPolygonVertexOrderRule_None = 2
};

#endif  // FDO_SCHEMA_POLYGON_VERTEX_ORDER_RULE_H_
