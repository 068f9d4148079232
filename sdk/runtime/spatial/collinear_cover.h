// Which stretches of lines run along other lines, decided without error: every end of a stretch is a position
// of the lines that were given.
#ifndef SDK_RUNTIME_SPATIAL_COLLINEAR_COVER_H_
#define SDK_RUNTIME_SPATIAL_COLLINEAR_COVER_H_

#include <vector>

#include "sdk/runtime/geometry/circular_arc.h"

namespace fdo_sdk {

struct LineSegment {
  Xy start;
  Xy end;
};

// What is left of the lines when the stretches that run along the covers are taken out; single positions that
// they share stay. Segments without length are left out.
std::vector<LineSegment> NotAlong(std::vector<LineSegment> const& lines, std::vector<LineSegment> covers);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_COLLINEAR_COVER_H_
