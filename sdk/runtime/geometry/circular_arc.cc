#include "sdk/runtime/geometry/circular_arc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace fdo_sdk {

namespace {

constexpr double kStraight = 1e-10;

Xy operator-(Xy const& left, Xy const& right) { return {left.x - right.x, left.y - right.y}; }

double Cross(Xy const& left, Xy const& right) { return left.x * right.y - left.y * right.x; }

double Dot(Xy const& left, Xy const& right) { return left.x * right.x + left.y * right.y; }

}  // namespace

// Every formula here gives the same result with start and end exchanged, to the last bit.
CircularArc::CircularArc(Xy const& start, Xy const& mid, Xy const& end)
    : start_(start), mid_(mid), end_(end), straight_(true) {
  Xy const a = start - mid;
  Xy const b = end - mid;
  if (start == end) {
    if (start == mid) return;
    center_ = {(start.x + mid.x) / 2, (start.y + mid.y) / 2};
    radius_ = std::hypot(a.x, a.y) / 2;
  } else {
    double const cross = Cross(a, b);
    double const lengthA = Dot(a, a);
    double const lengthB = Dot(b, b);
    if (!(std::fabs(cross) > kStraight * std::sqrt(lengthA) * std::sqrt(lengthB))) return;
    double const x = (b.y * lengthA - a.y * lengthB) / (2 * cross);
    double const y = (a.x * lengthB - b.x * lengthA) / (2 * cross);
    center_ = {mid.x + x, mid.y + y};
    radius_ = std::hypot(x, y);
  }
  straight_ = !std::isfinite(center_.x) || !std::isfinite(center_.y) || !std::isfinite(radius_);
}

void CircularArc::Expand(FgfBox& box) const {
  box.Expand(start_.x, start_.y);
  box.Expand(mid_.x, mid_.y);
  box.Expand(end_.x, end_.y);
  if (straight_) return;
  Xy const chord = end_ - start_;
  double const side = Cross(chord, mid_ - start_);
  bool const whole = start_ == end_;
  Xy const extremes[] = {{center_.x - radius_, center_.y},
                         {center_.x + radius_, center_.y},
                         {center_.x, center_.y - radius_},
                         {center_.x, center_.y + radius_}};
  for (Xy const& extreme : extremes) {
    // The arc is the part of the circle on mid's side of the chord.
    if (whole || Cross(chord, extreme - start_) * side > 0) box.Expand(extreme.x, extreme.y);
  }
}

void CircularArc::HalfCircle(Xy const& from, Xy const& to, double maxAngle, int direction,
                             std::vector<Xy>& out) const {
  // Computed from the lesser end, so that neighbours that share the arc share its positions.
  bool const swapped = to.x < from.x || (to.x == from.x && to.y < from.y);
  Xy const& first = swapped ? to : from;
  Xy const& last = swapped ? from : to;
  int const turn = swapped ? -direction : direction;
  Xy const u = first - center_;
  Xy const v = last - center_;
  double angle = std::atan2(Cross(u, v), Dot(u, v));
  if (turn > 0 && angle < 0) angle += 2 * std::numbers::pi;
  if (turn < 0 && angle > 0) angle -= 2 * std::numbers::pi;
  double const lines = std::clamp(std::ceil(std::fabs(angle) / maxAngle), 1.0, double{kMostLines / 2});
  int const count = static_cast<int>(lines);
  double const begin = std::atan2(u.y, u.x);
  std::size_t const at = out.size();
  for (int i = 1; i < count; ++i) {
    double const direct = begin + angle * i / count;
    out.push_back({center_.x + radius_ * std::cos(direct), center_.y + radius_ * std::sin(direct)});
  }
  if (swapped) std::reverse(out.begin() + static_cast<std::ptrdiff_t>(at), out.end());
  out.push_back(to);
}

void CircularArc::Approximate(double offset, double spacing, std::vector<Xy>& out) const {
  if (straight_) {
    out.push_back(mid_);
    out.push_back(end_);
    return;
  }
  double maxAngle = std::numbers::pi / 2;
  if (offset > 0) {
    maxAngle = std::min(maxAngle, 4 * std::asin(std::sqrt(std::min(offset / (2 * radius_), 1.0))));
  }
  if (spacing > 0) maxAngle = std::min(maxAngle, 2 * std::asin(std::min(spacing / (2 * radius_), 1.0)));
  int const direction = Cross(mid_ - start_, end_ - mid_) < 0 ? -1 : 1;
  HalfCircle(start_, mid_, maxAngle, direction, out);
  HalfCircle(mid_, end_, maxAngle, direction, out);
}

}  // namespace fdo_sdk
