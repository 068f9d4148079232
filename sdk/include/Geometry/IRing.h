// FdoIRing is a ring of segments, straight or curved, each starting where the one before ends.
#ifndef GEOMETRY_I_RING_H_
#define GEOMETRY_I_RING_H_

#include "Geometry/ICurveSegmentAbstract.h"
#include "Geometry/IRingAbstract.h"

class FdoIRing : public FdoIRingAbstract {
 public:
  virtual FdoInt32 GetCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoICurveSegmentAbstract* GetItem(FdoInt32 index) const = 0;

  // Gives: one reference, to a collection of its own.
  virtual FdoCurveSegmentCollection* GetCurveSegments() const = 0;
};

class FdoRingCollection : public FdoCollection<FdoIRing, FdoException> {
 public:
  // Gives: one reference.
  static FdoRingCollection* Create() { return new FdoRingCollection(); }

 protected:
  FdoRingCollection() {}
  ~FdoRingCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_RING_H_
