// FdoIMultiCurvePolygon is the geometry of curve polygons.
#ifndef GEOMETRY_I_MULTI_CURVE_POLYGON_H_
#define GEOMETRY_I_MULTI_CURVE_POLYGON_H_

#include "Geometry/ICurvePolygon.h"
#include "Geometry/IGeometricAggregateAbstract.h"

class FdoIMultiCurvePolygon : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoICurvePolygon* GetItem(FdoInt32 index) const = 0;
};

#endif  // GEOMETRY_I_MULTI_CURVE_POLYGON_H_
