// FdoIMultiLineString is the geometry of line strings.
#ifndef GEOMETRY_I_MULTI_LINE_STRING_H_
#define GEOMETRY_I_MULTI_LINE_STRING_H_

#include "Geometry/IGeometricAggregateAbstract.h"
#include "Geometry/ILineString.h"

class FdoIMultiLineString : public FdoIGeometricAggregateAbstract {
 public:
  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoILineString* GetItem(FdoInt32 index) const = 0;
};

#endif  // GEOMETRY_I_MULTI_LINE_STRING_H_
