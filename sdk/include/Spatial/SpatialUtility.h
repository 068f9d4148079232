// FdoSpatialUtility answers spatial questions about geometries.
#ifndef SPATIAL_SPATIAL_UTILITY_H_
#define SPATIAL_SPATIAL_UTILITY_H_

#include "Fdo/Filter/SpatialOperations.h"
#include "Fdo/Schema/PolygonVertexOrderRule.h"
#include "Spatial/SpatialGeometryValidity.h"
#include "Spatial/SpatialStd.h"

// What to do to polygons that keep one rule where another is asked for.
enum FdoPolygonVertexOrderAction {
  FdoPolygonVertexOrderAction_None = 0,
  FdoPolygonVertexOrderAction_Reverse = 1,
  FdoPolygonVertexOrderAction_CheckAndReverse = 2
};

// Everything here looks at X and Y alone unless stated otherwise. Geometries of any maker are taken; those
// of FdoFgfGeometryFactory are read where they lie.
// Errors: throws FdoException* for null where an object is needed and nothing else is said.
// Threads: any; Evaluate may be asked about a geometry of FdoFgfGeometryFactory from several at once.
class FDO_SPATIAL_API FdoSpatialUtility {
 public:
  // Whether the operation holds between the two, g1 to its left: FdoSpatialOperations_Within asks whether
  // g1 is within g2. Contains, Crosses, Disjoint, Equals, Intersects, Overlaps, Touches, Within and
  // CoveredBy are those of the OGC. Inside is Within without touching the boundary of g2.
  // EnvelopeIntersects compares the boxes, edges included.
  //
  // A null geometry is in no relation: every operation is false. An empty geometry is disjoint from
  // everything, equal to another empty one, and in no other relation. Arcs are replaced by straight lines
  // that leave them by at most one part in 100,000 of the radius. A collection of parts of different kinds
  // is taken as its parts together, for the operations for which that decides.
  // Errors: throws FdoException* for an unknown operation, for a position that is not finite, for a
  // collection of parts of different kinds where the operation needs them as one, and where GEOS fails.
  static bool Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2);

  // Positions nearer to each other than the tolerance count as one. Tolerances up to 1e-10, which is the
  // default, are exact. The tolerance of Z changes nothing.
  // Errors: throws FdoException* too for a tolerance that is not above 0.
  static bool Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2, double toleranceXY);
  static bool Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2, double toleranceXY,
                       double toleranceZ);

  // Gives: one reference, to the geometry with straight lines for its arcs, of the straight type; to the
  // same geometry when it has no curve type in it. The lines are at most maxSpacing long and leave the arc
  // by at most maxOffset; a limit of 0 or less is none, and without any a circle has at least four lines.
  // Z and M run evenly along an arc. A null factory means FdoFgfGeometryFactory.
  static FdoIGeometry* ApproximateGeometryWithLineStrings(FdoIGeometry* geometry, double maxSpacing,
                                                          double maxOffset,
                                                          FdoGeometryFactoryAbstract* geometryFactory);

  // The same with an offset of one part in 10,000 of the longer side of the geometry's box.
  static FdoIGeometry* TesselateCurve(FdoIGeometry* curve);

  // Whether the types of the geometry, of its parts and of its rings and segments are among those given
  // and its dimensionality is within the one given. A count of 0 refuses every such type.
  static FdoSpatialGeometryValidity ValidateGeometryByType(FdoIGeometry* geometry,
                                                           FdoInt32 geometryTypesCount,
                                                           FdoGeometryType* geometryTypes,
                                                           FdoInt32 geometryComponentTypesCount,
                                                           FdoGeometryComponentType* geometryComponentTypes,
                                                           FdoInt32 dimensionality);

  // The box of the geometry in a stream, true to its arcs; NaN for what is empty, in Z for what has none.
  static void GetExtents(FdoByteArray* fgf, double& minx, double& miny, double& maxx, double& maxy);
  static void GetExtents(FdoByteArray* fgf, double& minx, double& miny, double& minz, double& maxx,
                         double& maxy, double& maxz);

  // Whether the point is inside. On the boundary it is not, and *isOnBoundary, which may be null, is true;
  // the boundary is as thick as the tolerance on either side.
  static bool PointInRing(FdoILinearRing* ring, double x, double y, bool* isOnBoundary = nullptr);
  static bool PointInRing(FdoILinearRing* ring, double x, double y, double toleranceXY,
                          bool* isOnBoundary = nullptr);
  static bool PointInPolygon(FdoIPolygon* poly, double x, double y, bool* isOnExtBoundary = nullptr,
                             bool* isOnIntBoundary = nullptr);
  static bool PointInPolygon(FdoIPolygon* poly, double x, double y, double toleranceXY,
                             bool* isOnExtBoundary = nullptr, bool* isOnIntBoundary = nullptr);

  // A ring without an area is not clockwise. Neither needs the last position to repeat the first.
  static bool LinearRingIsClockwise(FdoILinearRing* ring);
  static double ComputeLinearRingArea(FdoILinearRing* ring);

  // Along the positions, as they are.
  static double ComputeLinearRingLength(FdoILinearRing* ring);

  // Gives: one reference, to a polygon, or a multi polygon when there is more than one. With relateRings
  // a ring inside an odd number of others is a hole of the smallest of them; else the first ring is the
  // outer one and all others are its holes.
  static FdoIGeometry* CreateGeometryFromRings(FdoLinearRingCollection* rings, bool relateRings);

  // Whether the three positions of the arc are further than the tolerance from each other, and the mid
  // point from the chord; a full circle has only two of them.
  static bool IsCircularArcValid(FdoICircularArcSegment* arc, double tolerance);

  // By the rule CCW outer rings run against the clock and inner rings with it, by CW the other way round;
  // None leaves everything as it is. Curve polygons go by their arcs. What has no polygon passes through.
  // Give: one reference.
  static FdoIGeometry* FixPolygonVertexOrder(FdoIGeometry* geometry,
                                             FdoPolygonVertexOrderRule vertexOrderRule);
  static FdoIGeometry* ReversePolygonVertexOrder(FdoIGeometry* geometry);

  // The rule that all rings keep; None when they keep neither or there are none.
  static FdoPolygonVertexOrderRule CheckPolygonVertexOrder(FdoIGeometry* geometry);

  // What must be done to polygons of the source to keep the rule of the target. Polygons of a source that
  // is not strict may break its rule. A target that is not strict takes all.
  static FdoPolygonVertexOrderAction GetPolygonVertexOrderAction(
      FdoPolygonVertexOrderRule sourceVertexOrderRule, FdoBoolean sourceStrictnessRule,
      FdoPolygonVertexOrderRule targetVertexOrderRule, FdoBoolean targetStrictnessRule);

 private:
  FdoSpatialUtility() = delete;
};

#endif  // SPATIAL_SPATIAL_UTILITY_H_
