// FdoIDirectPosition is one position: X and Y, and Z and M where its dimensionality says so.
#ifndef GEOMETRY_I_DIRECT_POSITION_H_
#define GEOMETRY_I_DIRECT_POSITION_H_

#include "Common/Collection.h"
#include "Common/Dimensionality.h"

// An ordinate that the position does not have is NaN where the position comes from a geometry, and what
// the maker left there (0.0 unless it said otherwise) where it was made as a position of its own.
class FdoIDirectPosition : public FdoIDisposable {
 public:
  virtual double GetX() const = 0;
  virtual double GetY() const = 0;
  virtual double GetZ() const = 0;
  virtual double GetM() const = 0;

  // X, Y, then Z and M where present. Borrowed: while the position lives unchanged.
  virtual double const* GetOrdinates() = 0;

  // Bits of FdoDimensionality.
  virtual FdoInt32 GetDimensionality() const = 0;
};

class FdoDirectPositionCollection : public FdoCollection<FdoIDirectPosition, FdoException> {
 public:
  // Gives: one reference.
  static FdoDirectPositionCollection* Create() { return new FdoDirectPositionCollection(); }

 protected:
  FdoDirectPositionCollection() {}
  ~FdoDirectPositionCollection() override {}
  void Dispose() override { delete this; }
};

#endif  // GEOMETRY_I_DIRECT_POSITION_H_
