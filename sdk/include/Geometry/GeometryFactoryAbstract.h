// FdoGeometryFactoryAbstract makes positions, envelopes and, through its heirs, geometries.
#ifndef GEOMETRY_GEOMETRY_FACTORY_ABSTRACT_H_
#define GEOMETRY_GEOMETRY_FACTORY_ABSTRACT_H_

#include "Geometry/ICircularArcSegment.h"
#include "Geometry/ICurvePolygon.h"
#include "Geometry/ICurveString.h"
#include "Geometry/ILineString.h"
#include "Geometry/ILineStringSegment.h"
#include "Geometry/ILinearRing.h"
#include "Geometry/IMultiCurvePolygon.h"
#include "Geometry/IMultiCurveString.h"
#include "Geometry/IMultiGeometry.h"
#include "Geometry/IMultiLineString.h"
#include "Geometry/IMultiPoint.h"
#include "Geometry/IMultiPolygon.h"
#include "Geometry/IPoint.h"
#include "Geometry/IPolygon.h"
#include "Geometry/IRing.h"

// Every operation gives one reference. Arrays of ordinates hold whole positions of the dimensionality, in
// the order X, Y, Z, M; numOrdinates is the number of doubles.
// Errors: throws FdoException* for null where an object is needed, for a number of ordinates that is
// negative or no whole number of positions, and for parts whose dimensionality differs where one
// geometry has only one.
class FDO_GEOM_API FdoGeometryFactoryAbstract : public FdoIDisposable {
 public:
  virtual FdoIDirectPosition* CreatePositionXY(double x, double y);
  virtual FdoIDirectPosition* CreatePositionXYZ(double x, double y, double z);
  virtual FdoIDirectPosition* CreatePositionXYM(double x, double y, double m);
  virtual FdoIDirectPosition* CreatePositionXYZM(double x, double y, double z, double m);
  virtual FdoIDirectPosition* CreatePosition(FdoInt32 dimensionality, double const* ordinates);
  virtual FdoIDirectPosition* CreatePosition(FdoIDirectPosition* position);
  virtual FdoIEnvelope* CreateEnvelope(FdoIDirectPosition* lowerLeft, FdoIDirectPosition* upperRight);
  virtual FdoIEnvelope* CreateEnvelope(FdoInt32 dimensionType, double* ordinates);
  virtual FdoIEnvelope* CreateEnvelopeXY(double lowerLeftX, double lowerLeftY, double upperRightX,
                                         double upperRightY);
  virtual FdoIEnvelope* CreateEnvelopeXYZ(double lowerLeftX, double lowerLeftY, double lowerLeftZ,
                                          double upperRightX, double upperRightY, double upperRightZ);
  virtual FdoIEnvelope* CreateEnvelope(FdoIEnvelope* envelope);

  virtual FdoILineString* CreateLineString(FdoDirectPositionCollection* positions) = 0;
  virtual FdoILineString* CreateLineString(FdoInt32 dimensionType, FdoInt32 numOrdinates,
                                           double* ordinates) = 0;
  virtual FdoIGeometry* CreateGeometry(FdoIGeometry* geometry) = 0;
  // FGF text.
  FdoIGeometry* CreateGeometry(FdoString* text);
  virtual FdoIGeometry* CreateGeometry(FdoIEnvelope* envelope) = 0;
  virtual FdoIPoint* CreatePoint(FdoIDirectPosition* position) = 0;
  virtual FdoIPoint* CreatePoint(FdoInt32 dimensionality, double* ordinates) = 0;
  virtual FdoILinearRing* CreateLinearRing(FdoDirectPositionCollection* positions) = 0;
  virtual FdoILinearRing* CreateLinearRing(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                           double* ordinates) = 0;
  virtual FdoILineStringSegment* CreateLineStringSegment(FdoDirectPositionCollection* positions) = 0;
  virtual FdoILineStringSegment* CreateLineStringSegment(FdoInt32 dimtype, FdoInt32 numOrdinates,
                                                         double* ordinates) = 0;
  virtual FdoIPolygon* CreatePolygon(FdoILinearRing* exteriorRing,
                                     FdoLinearRingCollection* interiorRings) = 0;
  virtual FdoIMultiPoint* CreateMultiPoint(FdoPointCollection* points) = 0;
  virtual FdoIMultiPoint* CreateMultiPoint(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                           double* ordinates) = 0;
  virtual FdoIMultiLineString* CreateMultiLineString(FdoLineStringCollection* lineStrings) = 0;
  virtual FdoIMultiPolygon* CreateMultiPolygon(FdoPolygonCollection* polygons) = 0;
  virtual FdoICircularArcSegment* CreateCircularArcSegment(FdoIDirectPosition* startPosition,
                                                           FdoIDirectPosition* midPosition,
                                                           FdoIDirectPosition* endPosition) = 0;
  virtual FdoICurveString* CreateCurveString(FdoCurveSegmentCollection* curveSegments) = 0;
  virtual FdoIMultiCurveString* CreateMultiCurveString(FdoCurveStringCollection* curveStrings) = 0;
  virtual FdoIRing* CreateRing(FdoCurveSegmentCollection* curveSegments) = 0;
  virtual FdoICurvePolygon* CreateCurvePolygon(FdoIRing* exteriorRing, FdoRingCollection* interiorRings) = 0;
  virtual FdoIMultiCurvePolygon* CreateMultiCurvePolygon(FdoCurvePolygonCollection* curvePolygons) = 0;
  virtual FdoIMultiGeometry* CreateMultiGeometry(FdoGeometryCollection* geometries) = 0;

 protected:
  FdoGeometryFactoryAbstract();
  ~FdoGeometryFactoryAbstract() override;
};

#endif  // GEOMETRY_GEOMETRY_FACTORY_ABSTRACT_H_
