// FdoIMultiGeometry is the geometry of geometries of any type.
#ifndef GEOMETRY_I_MULTI_GEOMETRY_H_
#define GEOMETRY_I_MULTI_GEOMETRY_H_

#include "Geometry/IGeometricAggregateAbstract.h"

class FdoIMultiGeometry : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoIGeometry* GetItem(FdoInt32 index) const = 0;
};

#endif  // GEOMETRY_I_MULTI_GEOMETRY_H_
