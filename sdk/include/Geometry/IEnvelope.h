// FdoIEnvelope is the box around something: the least and the greatest X, Y and Z.
#ifndef GEOMETRY_I_ENVELOPE_H_
#define GEOMETRY_I_ENVELOPE_H_

#include "Common/IDisposable.h"

class FdoIEnvelope : public FdoIDisposable {
 public:
  // NaN when not set: all of them for what is empty, Z for what has none.
  virtual double GetMinX() const = 0;
  virtual double GetMinY() const = 0;
  virtual double GetMinZ() const = 0;
  virtual double GetMaxX() const = 0;
  virtual double GetMaxY() const = 0;
  virtual double GetMaxZ() const = 0;

  // Units: minX, minY, minZ, maxX, maxY, maxZ. Borrowed: while the envelope lives unchanged.
  virtual double const* GetOrdinates() = 0;

  virtual bool GetIsEmpty() const = 0;
};

#endif  // GEOMETRY_I_ENVELOPE_H_
