// Circular arcs as line segments, for forms that know no curves.
#ifndef TOOLS_QUILLON_ARC_SEGMENTS_H_
#define TOOLS_QUILLON_ARC_SEGMENTS_H_

#include <vector>

namespace fdo::tool {

struct Position {
  double x, y;
  double z = 0;
};

// No point of the line is farther from the arc than this part of the arc's radius.
inline constexpr double kArcTolerance = 1e-4;

// Appends the positions that follow start on the arc through mid to end; end itself is the last and is
// exact. Z runs evenly from start to mid and from mid to end. An arc that ends where it starts is the
// whole circle whose diameter joins start and mid. Three positions on one line give mid and end.
// The positions may be elements of the line.
void AppendArc(std::vector<Position>& line, Position start, Position mid, Position end);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_ARC_SEGMENTS_H_
