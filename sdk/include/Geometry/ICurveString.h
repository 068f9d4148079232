// FdoICurveString is the geometry of segments, straight or curved, each starting where the one before ends.
#ifndef GEOMETRY_I_CURVE_STRING_H_
#define GEOMETRY_I_CURVE_STRING_H_

#include "Geometry/ICurveAbstract.h"
#include "Geometry/ICurveSegmentAbstract.h"

class FdoICurveString : public FdoICurveAbstract {
 public:
  virtual FdoInt32 GetCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoICurveSegmentAbstract* GetItem(FdoInt32 index) const = 0;

  // Gives: one reference, to a collection of its own.
  virtual FdoCurveSegmentCollection* GetCurveSegments() const = 0;
};

class FdoCurveStringCollection : public FdoCollection<FdoICurveString, FdoException> {
 public:
  // Gives: one reference.
  static FdoCurveStringCollection* Create() { return new FdoCurveStringCollection(); }

 protected:
  FdoCurveStringCollection() {}
  ~FdoCurveStringCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_CURVE_STRING_H_
