#include "tools/quillon/arc_segments.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace fdo::tool {

namespace {

struct Circle {
  double x, y, radius;
};

// False when the positions lie on one line, or are so far apart that it makes no difference.
bool CircleThrough(Position const& a, Position const& b, Position const& c, Circle& circle) {
  if (a.x == c.x && a.y == c.y) {
    circle = {(a.x + b.x) / 2, (a.y + b.y) / 2, std::hypot(b.x - a.x, b.y - a.y) / 2};
    return circle.radius > 0;
  }
  // Relative to a, so that large coordinates do not eat the digits of a small arc.
  double const bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
  double const twiceCross = 2 * (bx * cy - by * cx);
  double const b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
  double const x = (cy * b2 - by * c2) / twiceCross, y = (bx * c2 - cx * b2) / twiceCross;
  double const radius = std::hypot(x, y);
  circle = {a.x + x, a.y + y, radius};
  constexpr double kStraight = 1e12;  // radius over chord, beyond which doubles cannot tell the bulge
  return std::isfinite(radius) && radius < kStraight * std::sqrt(c2);
}

// The angle from one direction to the other, turning left: 0 < angle <= 2 pi.
double LeftTurn(double from, double to) {
  constexpr double kFullTurn = 2 * std::numbers::pi;
  double const turn = to - from;
  return turn > 0 ? turn : turn + kFullTurn;
}

}  // namespace

void AppendArc(std::vector<Position>& line, Position start, Position mid, Position end) {
  Circle circle{};
  if (!CircleThrough(start, mid, end, circle)) {
    line.push_back(mid);
    line.push_back(end);
    return;
  }
  auto direction = [&](Position const& p) { return std::atan2(p.y - circle.y, p.x - circle.x); };
  double const startAngle = direction(start);
  double const toMid = LeftTurn(startAngle, direction(mid));
  bool const isCircle = start.x == end.x && start.y == end.y;
  double const toEnd = isCircle ? 2 * std::numbers::pi : LeftTurn(startAngle, direction(end));
  bool const turnsLeft = toMid <= toEnd;
  double const sweep = turnsLeft ? toEnd : toEnd - 2 * std::numbers::pi;
  double const midSweep = turnsLeft ? toMid : toMid - 2 * std::numbers::pi;

  // A chord over the angle a leaves the circle by radius * (1 - cos(a / 2)).
  double const largestStep = 2 * std::acos(1 - kArcTolerance);
  int const steps = std::max(2, static_cast<int>(std::ceil(std::abs(sweep) / largestStep)));
  for (int i = 1; i < steps; ++i) {
    double const turned = sweep * i / steps;
    double const angle = startAngle + turned;
    bool const beforeMid = std::abs(turned) < std::abs(midSweep);
    double const z = beforeMid ? start.z + (mid.z - start.z) * (turned / midSweep)
                               : mid.z + (end.z - mid.z) * ((turned - midSweep) / (sweep - midSweep));
    line.push_back(
        {circle.x + circle.radius * std::cos(angle), circle.y + circle.radius * std::sin(angle), z});
  }
  line.push_back(end);
}

}  // namespace fdo::tool
