// FdoIMultiPolygon is the geometry of polygons.
#ifndef GEOMETRY_I_MULTI_POLYGON_H_
#define GEOMETRY_I_MULTI_POLYGON_H_

#include "Geometry/IGeometricAggregateAbstract.h"
#include "Geometry/IPolygon.h"

class FdoIMultiPolygon : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoIPolygon* GetItem(FdoInt32 index) const = 0;
};

#endif  // GEOMETRY_I_MULTI_POLYGON_H_
