// FdoIArcSegmentAbstract is the base of the curved segments.
#ifndef GEOMETRY_I_ARC_SEGMENT_ABSTRACT_H_
#define GEOMETRY_I_ARC_SEGMENT_ABSTRACT_H_

#include "Geometry/ICurveSegmentAbstract.h"

class FdoIArcSegmentAbstract : public FdoICurveSegmentAbstract {
 public:
  // A position on the arc between its ends. Gives: one reference.
  virtual FdoIDirectPosition* GetMidPoint() const = 0;
};

#endif  // GEOMETRY_I_ARC_SEGMENT_ABSTRACT_H_
