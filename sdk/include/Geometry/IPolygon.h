// FdoIPolygon is the geometry of a surface bounded by rings of straight lines: one around, the others holes.
#ifndef GEOMETRY_I_POLYGON_H_
#define GEOMETRY_I_POLYGON_H_

#include "Geometry/ILinearRing.h"
#include "Geometry/ISurfaceAbstract.h"

class FdoIPolygon : public FdoISurfaceAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* for a polygon without rings.
  virtual FdoILinearRing* GetExteriorRing() const = 0;

  virtual FdoInt32 GetInteriorRingCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetInteriorRingCount() does
  // not hold.
  virtual FdoILinearRing* GetInteriorRing(FdoInt32 index) const = 0;
};

class FdoPolygonCollection : public FdoCollection<FdoIPolygon, FdoException> {
 public:
  // Gives: one reference.
  static FdoPolygonCollection* Create() { return new FdoPolygonCollection(); }

 protected:
  FdoPolygonCollection() {}
  ~FdoPolygonCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_POLYGON_H_
