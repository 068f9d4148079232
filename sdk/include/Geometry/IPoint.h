// FdoIPoint is the geometry of one position.
#ifndef GEOMETRY_I_POINT_H_
#define GEOMETRY_I_POINT_H_

#include "Geometry/IDirectPosition.h"
#include "Geometry/IGeometry.h"

class FdoIPoint : public FdoIGeometry {
 public:
  // Gives: one reference.
  virtual FdoIDirectPosition* GetPosition() const = 0;

  // Gives ordinates and dimensionality through the pointers, any of which may be null. An ordinate that
  // the position does not have becomes NaN.
  virtual void GetPositionByMembers(double* x, double* y, double* z, double* m,
                                    FdoInt32* dimensionality) const = 0;

  // X, Y, then Z and M where present. Borrowed: while the geometry lives.
  virtual double const* GetOrdinates() = 0;
};

class FdoPointCollection : public FdoCollection<FdoIPoint, FdoException> {
 public:
  // Gives: one reference.
  static FdoPointCollection* Create() { return new FdoPointCollection(); }

 protected:
  FdoPointCollection() {}
  ~FdoPointCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_POINT_H_
