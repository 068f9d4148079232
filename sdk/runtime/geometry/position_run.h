// PositionRun is what line strings, linear rings and line segments are made of: positions in a stream,
// with the accessors that the three interfaces share.
#ifndef SDK_RUNTIME_GEOMETRY_POSITION_RUN_H_
#define SDK_RUNTIME_GEOMETRY_POSITION_RUN_H_

#include <memory>

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/fgf_box.h"
#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

// Gives: one reference, to a copy of a position in a stream; what it lacks is NaN.
FdoIDirectPosition* CopyPosition(FdoByte const* at, FdoInt32 dimensionality);

// Gives the ordinates through the pointers that are not null; what the position lacks is NaN.
void GetMembers(FdoByte const* at, FdoInt32 dimensionality, double* x, double* y, double* z, double* m,
                FdoInt32* positionDimensionality);

// Gives: one reference, to an envelope of its own.
FdoIEnvelope* MakeEnvelope(FgfBox const& box);

// Lends ordinates of a stream as doubles: in place where they are aligned, else as a copy made once.
// Threads: one at a time.
class LentOrdinates {
 public:
  double const* Of(PositionSpan const& positions);
  // A copy of two stretches, one after the other.
  double const* Of(PositionSpan const& first, PositionSpan const& rest);

  bool HasLent() const { return copy_ != nullptr; }
  // What was lent is gone.
  void Forget() { copy_.reset(); }

 private:
  std::unique_ptr<double[]> copy_;
};

// The first position may lie apart from the others, as the start of a segment does.
class PositionRun {
 public:
  explicit PositionRun(PositionSpan const& all) : rest_(all), apart_{nullptr, 0, all.dimensionality} {}
  PositionRun(PositionSpan const& first, PositionSpan const& rest) : rest_(rest), apart_(first) {}

  FdoInt32 Count() const { return apart_.count + rest_.count; }
  FdoInt32 Dimensionality() const { return rest_.dimensionality; }
  FdoByte const* At(FdoInt32 index) const {
    return index < apart_.count ? apart_.At(index) : rest_.At(index - apart_.count);
  }
  FgfBox Box() const;

  // Give: one reference. Errors: throw FdoException* for a position that is not there.
  FdoIDirectPosition* Item(FdoInt32 index) const;
  FdoIDirectPosition* Last() const { return Item(Count() - 1); }
  FdoDirectPositionCollection* Items() const;

  void Members(FdoInt32 index, double* x, double* y, double* z, double* m, FdoInt32* dimensionality) const;
  bool IsClosed() const;
  double const* Ordinates(LentOrdinates& lent) const {
    return apart_.count == 0 ? lent.Of(rest_) : lent.Of(apart_, rest_);
  }

  PositionSpan const& Apart() const { return apart_; }
  PositionSpan const& Rest() const { return rest_; }

 private:
  PositionSpan rest_;
  PositionSpan apart_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_POSITION_RUN_H_
