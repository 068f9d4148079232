// FdoILineStringSegment is a segment of straight lines.
#ifndef GEOMETRY_I_LINE_STRING_SEGMENT_H_
#define GEOMETRY_I_LINE_STRING_SEGMENT_H_

#include "Geometry/ICurveSegmentAbstract.h"

// Its first position is its start: inside a curve that is the end of the segment before.
class FdoILineStringSegment : public FdoICurveSegmentAbstract {
 public:
  virtual FdoInt32 GetCount() const = 0;

  // Gives: one reference. Errors: throws FdoException* when 0 <= index && index < GetCount() does not hold.
  virtual FdoIDirectPosition* GetItem(FdoInt32 index) const = 0;

  // Gives: one reference, to positions of their own.
  virtual FdoDirectPositionCollection* GetPositions() = 0;

  // All ordinates, position after position. Borrowed: while this object lives. Null without positions.
  virtual double const* GetOrdinates() = 0;
};

#endif  // GEOMETRY_I_LINE_STRING_SEGMENT_H_
