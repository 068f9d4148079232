// FdoIRingAbstract is the base of the closed curves that bound polygons. A ring is no geometry.
#ifndef GEOMETRY_I_RING_ABSTRACT_H_
#define GEOMETRY_I_RING_ABSTRACT_H_

#include "Geometry/IDirectPosition.h"
#include "Geometry/IEnvelope.h"

class FdoIRingAbstract : public FdoIDisposable {
 public:
  // Gives: one reference.
  virtual FdoIEnvelope* GetEnvelope() const = 0;

  // Bits of FdoDimensionality.
  virtual FdoInt32 GetDimensionality() const = 0;
};

#endif  // GEOMETRY_I_RING_ABSTRACT_H_
