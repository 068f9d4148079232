// Where a point lies to a ring or a polygon, decided without error.
#ifndef SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_
#define SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_

#include <cmath>

#include "sdk/runtime/geometry/circular_arc.h"
#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

enum class Location { kExterior, kBoundary, kInterior };

// The side of the line from a to b on which c lies: 1 left, -1 right, 0 on it. Exact but where a product
// of differences leaves the range of a double.
int Orientation(Xy const& a, Xy const& b, Xy const& c);

// The same as a number whose sign it is, where rounding cannot have changed that: where !IsUnsure().
struct RoundedOrientation {
  double difference;
  double bound;

  RoundedOrientation(Xy const& a, Xy const& b, Xy const& c) {
    // Three roundings on either side and one of the difference cannot do more than this.
    constexpr double kErrorBound = 4e-16;
    double const left = (a.x - c.x) * (b.y - c.y);
    double const right = (a.y - c.y) * (b.x - c.x);
    difference = left - right;
    bound = kErrorBound * (std::fabs(left) + std::fabs(right));
  }

  bool IsUnsure() const { return !(std::fabs(difference) > bound); }
};

// What an edge does to the ray from the point to greater X. Every edge that goes from on the ray or below to
// above it, or back, crosses it where it is to the right of the point.
enum class EdgeAtRay { kMisses, kCrosses, kHoldsPoint };

inline EdgeAtRay FollowRay(Xy const& from, Xy const& to, Xy const& point) {
  bool const fromAbove = from.y > point.y;
  bool const toAbove = to.y > point.y;
  if (fromAbove != toAbove) {
    // The edge crosses the line through the point, from one side to on it or beyond.
    if (from.x > point.x && to.x > point.x) return EdgeAtRay::kCrosses;
    if (from.x < point.x && to.x < point.x) return EdgeAtRay::kMisses;
    int const side = Orientation(from, to, point);
    if (side == 0) return EdgeAtRay::kHoldsPoint;
    return (side > 0) == toAbove ? EdgeAtRay::kCrosses : EdgeAtRay::kMisses;
  }
  if (to.y != point.y && from.y != point.y) return EdgeAtRay::kMisses;
  // Ends that only just reach the line: the point may be one of them, or between them.
  bool const isEnd = to == point || from == point;
  bool const isBetween = to.y == from.y && (to.x > point.x) != (from.x > point.x);
  return isEnd || isBetween ? EdgeAtRay::kHoldsPoint : EdgeAtRay::kMisses;
}

// The ring is closed by the line from its last position to its first. A ring that crosses itself is inside
// where a ray crosses it an odd number of times.
Location LocateInRing(PositionSpan const& ring, Xy const& point);

// Requires: a checked stream of a polygon.
Location LocateInPolygon(FdoByte const* polygon, std::size_t size, Xy const& point);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_
