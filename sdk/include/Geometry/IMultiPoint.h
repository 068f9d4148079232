// FdoIMultiPoint is the geometry of points.
#ifndef GEOMETRY_I_MULTI_POINT_H_
#define GEOMETRY_I_MULTI_POINT_H_

#include "Geometry/IGeometricAggregateAbstract.h"
#include "Geometry/IPoint.h"

class FdoIMultiPoint : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoIPoint* GetItem(FdoInt32 index) const = 0;

  // All ordinates, point after point, as GetDimensionality() says; what a point lacks is NaN.
  // Borrowed: while the geometry lives. Null without points.
  virtual double const* GetOrdinates() = 0;
};

#endif  // GEOMETRY_I_MULTI_POINT_H_
