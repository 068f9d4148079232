// FdoIMultiCurveString is the geometry of curve strings.
#ifndef GEOMETRY_I_MULTI_CURVE_STRING_H_
#define GEOMETRY_I_MULTI_CURVE_STRING_H_

#include "Geometry/ICurveString.h"
#include "Geometry/IGeometricAggregateAbstract.h"

class FdoIMultiCurveString : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoICurveString* GetItem(FdoInt32 index) const = 0;
};

#endif  // GEOMETRY_I_MULTI_CURVE_STRING_H_
