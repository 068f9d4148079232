// The circle behind a circular arc: its centre, its true box, and positions along it.
#ifndef SDK_RUNTIME_GEOMETRY_CIRCULAR_ARC_H_
#define SDK_RUNTIME_GEOMETRY_CIRCULAR_ARC_H_

#include <vector>

#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sdk {

struct Xy {
  double x;
  double y;
};

inline bool operator==(Xy const& left, Xy const& right) { return left.x == right.x && left.y == right.y; }

// The same start and end mean a whole circle with mid opposite to them. Three positions on one line, to
// one part in 10^10, are no arc but two straight lines.
class CircularArc {
 public:
  CircularArc(Xy const& start, Xy const& mid, Xy const& end);

  bool IsStraight() const { return straight_; }
  // Requires: !IsStraight().
  Xy Center() const { return center_; }
  double Radius() const { return radius_; }

  // Grows the box by the whole arc.
  void Expand(FgfBox& box) const;

  // Replaces the arc by straight lines that leave it by at most offset, and whose ends are at most
  // spacing apart; 0 or less sets no limit. Appends the positions after start, mid and end among them, as
  // given; at most kMostLines lines. The same arc read from its other end gives the same positions.
  void Approximate(double offset, double spacing, std::vector<Xy>& out) const;

  static constexpr int kMostLines = 4096;

 private:
  void HalfCircle(Xy const& from, Xy const& to, double maxAngle, int direction, std::vector<Xy>& out) const;

  Xy start_;
  Xy mid_;
  Xy end_;
  bool straight_;
  Xy center_{0, 0};
  double radius_ = 0;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_CIRCULAR_ARC_H_
