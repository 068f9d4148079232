// FdoICircularArcSegment is a piece of a circle through three positions.
#ifndef GEOMETRY_I_CIRCULAR_ARC_SEGMENT_H_
#define GEOMETRY_I_CIRCULAR_ARC_SEGMENT_H_

#include "Geometry/IArcSegmentAbstract.h"

// When start and end are the same the segment is the whole circle, with the mid point opposite to them.
// When the three lie on one line it is the straight way from start over mid to end.
class FdoICircularArcSegment : public FdoIArcSegmentAbstract {};

#endif  // GEOMETRY_I_CIRCULAR_ARC_SEGMENT_H_
