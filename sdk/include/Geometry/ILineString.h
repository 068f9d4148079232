// FdoILineString is the geometry of straight lines from position to position.
#ifndef GEOMETRY_I_LINE_STRING_H_
#define GEOMETRY_I_LINE_STRING_H_

#include "Geometry/ICurveAbstract.h"

class FdoILineString : public FdoICurveAbstract {
 public:
  virtual FdoInt32 GetCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoIDirectPosition* GetItem(FdoInt32 index) const = 0;

  // Gives ordinates and dimensionality through the pointers, any of which may be null. An ordinate that
  // the position does not have becomes NaN. Errors: as GetItem.
  virtual void GetItemByMembers(FdoInt32 index, double* x, double* y, double* z, double* m,
                                FdoInt32* dimensionality) const = 0;

  // Gives: one reference, to positions of their own.
  virtual FdoDirectPositionCollection* GetPositions() = 0;

  // All ordinates, position after position. Borrowed: while this object lives. Null without positions.
  virtual double const* GetOrdinates() = 0;
};

class FdoLineStringCollection : public FdoCollection<FdoILineString, FdoException> {
 public:
  // Gives: one reference.
  static FdoLineStringCollection* Create() { return new FdoLineStringCollection(); }

 protected:
  FdoLineStringCollection() {}
  ~FdoLineStringCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_LINE_STRING_H_
