#ifndef OGR_BACKEND_GEOMETRY_NEEDS_H_
#define OGR_BACKEND_GEOMETRY_NEEDS_H_

#include <fdo/geometry_stream.h>

#include <cmath>
#include <cstdint>

namespace fdo::internal {

// Finds out what a geometry asks of the format that it is written to.
class GeometryNeeds : public FgfVisitor {
 public:
  bool BeginGeometry(FgfGeometry const& geometry) override {
    constexpr std::int32_t kFirstCurve = 10;
    constexpr int kHasZ = 1;
    constexpr int kHasM = 2;
    curves_ = curves_ || geometry.type >= kFirstCurve;
    if (geometry.dimensionality >= 0) {
      z_ = z_ || (geometry.dimensionality & kHasZ) != 0;
      m_ = m_ || (geometry.dimensionality & kHasM) != 0;
    }
    emptyParts_ = emptyParts_ || (geometry.parentType != 0 && geometry.count == 0);
    return true;
  }
  bool BeginRing(std::int32_t index, std::int32_t count) override {
    emptyParts_ = emptyParts_ || (index > 0 && count == 0);
    return true;
  }
  bool Positions(FgfPositions const& positions) override {
    // An empty point has ordinates that are not numbers.
    bool const empty = positions.count == 0 || std::isnan(positions.Ordinate(0, 0));
    emptyParts_ = emptyParts_ || empty;
    hasPositions_ = hasPositions_ || !empty;
    return true;
  }
  bool Start(FgfPositions const& /*position*/) override {
    hasPositions_ = true;
    return true;
  }

  bool Curves() const { return curves_; }
  bool Z() const { return z_; }
  bool M() const { return m_; }
  bool IsEmpty() const { return !hasPositions_; }
  // Whether it has empty parts beside others.
  bool HasEmptyParts() const { return emptyParts_ && hasPositions_; }

 private:
  bool curves_ = false;
  bool z_ = false;
  bool m_ = false;
  bool emptyParts_ = false;
  bool hasPositions_ = false;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_GEOMETRY_NEEDS_H_
