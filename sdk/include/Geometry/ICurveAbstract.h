// FdoICurveAbstract is the base of the geometries of one curve.
#ifndef GEOMETRY_I_CURVE_ABSTRACT_H_
#define GEOMETRY_I_CURVE_ABSTRACT_H_

#include "Geometry/IDirectPosition.h"
#include "Geometry/IGeometry.h"

// Errors: the positions of a curve that has none throw FdoException*.
class FdoICurveAbstract : public FdoIGeometry {
 public:
  // Give: one reference.
  virtual FdoIDirectPosition* GetStartPosition() const = 0;
  virtual FdoIDirectPosition* GetEndPosition() const = 0;

  // Whether both ends are the same, in all ordinates.
  virtual bool GetIsClosed() const = 0;
};

#endif  // GEOMETRY_I_CURVE_ABSTRACT_H_
