// FdoICurvePolygon is the geometry of a surface bounded by rings of segments: one around, the others holes.
#ifndef GEOMETRY_I_CURVE_POLYGON_H_
#define GEOMETRY_I_CURVE_POLYGON_H_

#include "Geometry/IRing.h"
#include "Geometry/ISurfaceAbstract.h"

class FdoICurvePolygon : public FdoISurfaceAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* for a polygon without rings.
  virtual FdoIRing* GetExteriorRing() const = 0;

  virtual FdoInt32 GetInteriorRingCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetInteriorRingCount() does
  // not hold.
  virtual FdoIRing* GetInteriorRing(FdoInt32 index) const = 0;
};

class FdoCurvePolygonCollection : public FdoCollection<FdoICurvePolygon, FdoException> {
 public:
  // Gives: one reference.
  static FdoCurvePolygonCollection* Create() { return new FdoCurvePolygonCollection(); }

 protected:
  FdoCurvePolygonCollection() {}
  ~FdoCurvePolygonCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_CURVE_POLYGON_H_
