// FdoFgfGeometryFactory makes geometries that live in the bytes of their FGF stream.
#ifndef GEOMETRY_FGF_FACTORY_H_
#define GEOMETRY_FGF_FACTORY_H_

#include "Common/Array.h"
#include "Geometry/GeometryFactoryAbstract.h"

// What it makes is one object around the bytes, checked once: parts, rings and segments taken from a
// geometry share its bytes. Z and M are kept. Streams and texts are not trusted: counts are held against
// what is left, and geometries nest at most 128 levels deep.
// Errors: throws FdoException*: "Invalid FGF stream!" and "Invalid WKB stream!" for bytes, the place of the
// error for text.
// Threads: the shared instance serves all threads.
class FDO_GEOM_API FdoFgfGeometryFactory : public FdoGeometryFactoryAbstract {
 public:
  // Gives: one reference, to an object shared by the whole process.
  static FdoFgfGeometryFactory* GetInstance();

  // Gives: one reference, to a factory for one thread. The numbers are how much it may hold for reuse; of
  // them numGeometries counts, for the arrays given to TakeReleasedByteArray.
  static FdoFgfGeometryFactory* GetPrivateInstance(FdoInt32 numGeometries, FdoInt32 numPositions,
                                                   FdoInt32 numEnvelopes, FdoInt32 numCurveSegments,
                                                   FdoInt32 numRings);

  // Both read one geometry from the front of the bytes; what follows it is not looked at.
  // The array is kept by the geometry. Requires: nobody changes its bytes meanwhile.
  virtual FdoIGeometry* CreateGeometryFromFgf(FdoByteArray* byteArray);
  // Borrowed: the bytes, until the geometry and all that was taken from it are released.
  virtual FdoIGeometry* CreateGeometryFromFgf(FdoByte const* byteArray, FdoInt32 count);

  // Gives: one reference, to the geometry's own array where it has one that ends with it.
  // Errors: throws FdoException* for a geometry of another maker.
  virtual FdoByteArray* GetFgf(FdoIGeometry* geometry);

  // Reads ISO WKB of either byte order, and the older form that marks Z with the highest bit of the type.
  virtual FdoIGeometry* CreateGeometryFromWkb(FdoByteArray* byteArray);

  // Gives: one reference, to little-endian ISO WKB.
  // Errors: throws FdoException* for a geometry of another maker.
  virtual FdoByteArray* GetWkb(FdoIGeometry* geometry);

  FdoILineString* CreateLineString(FdoDirectPositionCollection* positions) override;
  FdoILineString* CreateLineString(FdoInt32 dimensionType, FdoInt32 numOrdinates, double* ordinates) override;
  FdoIGeometry* CreateGeometry(FdoIGeometry* geometry) override;
  virtual FdoIGeometry* CreateGeometry(FdoString* text);
  FdoIGeometry* CreateGeometry(FdoIEnvelope* envelope) override;
  FdoIPoint* CreatePoint(FdoIDirectPosition* position) override;
  FdoIPoint* CreatePoint(FdoInt32 dimensionality, double* ordinates) override;
  FdoILinearRing* CreateLinearRing(FdoDirectPositionCollection* positions) override;
  FdoILinearRing* CreateLinearRing(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                   double* ordinates) override;
  FdoILineStringSegment* CreateLineStringSegment(FdoDirectPositionCollection* positions) override;
  FdoILineStringSegment* CreateLineStringSegment(FdoInt32 dimtype, FdoInt32 numOrdinates,
                                                 double* ordinates) override;
  FdoIPolygon* CreatePolygon(FdoILinearRing* exteriorRing, FdoLinearRingCollection* interiorRings) override;
  FdoIMultiPoint* CreateMultiPoint(FdoPointCollection* points) override;
  FdoIMultiPoint* CreateMultiPoint(FdoInt32 dimensionality, FdoInt32 numOrdinates,
                                   double* ordinates) override;
  FdoIMultiLineString* CreateMultiLineString(FdoLineStringCollection* lineStrings) override;
  FdoIMultiPolygon* CreateMultiPolygon(FdoPolygonCollection* polygons) override;
  FdoICircularArcSegment* CreateCircularArcSegment(FdoIDirectPosition* startPosition,
                                                   FdoIDirectPosition* midPosition,
                                                   FdoIDirectPosition* endPosition) override;
  FdoICurveString* CreateCurveString(FdoCurveSegmentCollection* curveSegments) override;
  FdoIMultiCurveString* CreateMultiCurveString(FdoCurveStringCollection* curveStrings) override;
  FdoIRing* CreateRing(FdoCurveSegmentCollection* curveSegments) override;
  FdoICurvePolygon* CreateCurvePolygon(FdoIRing* exteriorRing, FdoRingCollection* interiorRings) override;
  FdoIMultiCurvePolygon* CreateMultiCurvePolygon(FdoCurvePolygonCollection* curvePolygons) override;
  FdoIMultiGeometry* CreateMultiGeometry(FdoGeometryCollection* geometries) override;

  // Gives: one reference, to an empty array, a used one if there is any.
  virtual FdoByteArray* GetByteArray();

  // Takes the caller's reference over, to hand the array out again.
  virtual void TakeReleasedByteArray(FdoByteArray* byteArray);

 protected:
  FdoFgfGeometryFactory();
  ~FdoFgfGeometryFactory() override;
  void Dispose() override;

 private:
  struct Pool;
  Pool* m_pool;  // null in the shared instance
};

#endif  // GEOMETRY_FGF_FACTORY_H_
