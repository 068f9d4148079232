#include "sdk/runtime/spatial/collinear_cover.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sdk/runtime/spatial/point_location.h"

namespace fdo_sdk {

namespace {

double LeastX(LineSegment const& segment) { return std::min(segment.start.x, segment.end.x); }
double GreatestX(LineSegment const& segment) { return std::max(segment.start.x, segment.end.x); }

bool IsAlong(LineSegment const& line, LineSegment const& cover) {
  return Orientation(line.start, line.end, cover.start) == 0 &&
         Orientation(line.start, line.end, cover.end) == 0;
}

// The segment's own order: by the ordinate that changes more, forwards.
struct Along {
  explicit Along(LineSegment const& segment)
      : byX(std::abs(segment.end.x - segment.start.x) >= std::abs(segment.end.y - segment.start.y)),
        sign((byX ? segment.end.x - segment.start.x : segment.end.y - segment.start.y) < 0 ? -1 : 1) {}

  double operator()(Xy const& position) const { return sign * (byX ? position.x : position.y); }

  bool byX;
  double sign;
};

}  // namespace

std::vector<LineSegment> NotAlong(std::vector<LineSegment> const& lines, std::vector<LineSegment> covers) {
  std::sort(covers.begin(), covers.end(),
            [](LineSegment const& a, LineSegment const& b) { return LeastX(a) < LeastX(b); });
  std::vector<LineSegment> left;
  std::vector<LineSegment> along;
  for (LineSegment const& line : lines) {
    if (line.start == line.end) continue;
    Along const place(line);
    along.clear();
    for (LineSegment const& cover : covers) {
      if (LeastX(cover) > GreatestX(line)) break;
      if (GreatestX(cover) < LeastX(line) || !IsAlong(line, cover)) continue;
      along.push_back(cover);
      LineSegment& added = along.back();
      if (place(added.start) > place(added.end)) std::swap(added.start, added.end);
    }
    std::sort(along.begin(), along.end(), [&place](LineSegment const& a, LineSegment const& b) {
      return place(a.start) < place(b.start);
    });
    Xy reached = line.start;
    for (LineSegment const& cover : along) {
      if (place(cover.start) >= place(line.end)) break;
      if (place(cover.start) > place(reached)) left.push_back({reached, cover.start});
      if (place(cover.end) > place(reached)) reached = cover.end;
    }
    if (place(reached) < place(line.end)) left.push_back({reached, line.end});
  }
  return left;
}

}  // namespace fdo_sdk
