#include "tools/quillon/geometry_shape.h"

#include <fdo/geometry_stream.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "tools/quillon/geometry_kind.h"
#include "tools/quillon/hash.h"

namespace fdo::tool {

namespace {

std::size_t Size(int count) { return static_cast<std::size_t>(count); }
int OrdinatesOf(ShapePath const& path) { return 2 + (path.hasZ ? 1 : 0) + (path.hasM ? 1 : 0); }
bool Same(double left, double right) { return left == right || (std::isnan(left) && std::isnan(right)); }

class ShapeVisitor : public FgfVisitor {
 public:
  bool BeginGeometry(FgfGeometry const& geometry) override {
    GeometryKind const* const kind = FindGeometryKind(geometry.type);
    if (kind == nullptr || kind->isMulti) return true;
    hasZ_ = (geometry.dimensionality & 1) != 0;
    hasM_ = (geometry.dimensionality & 2) != 0;
    if (kind->plain == kPoint) Begin(ShapePath::kPoint);
    if (kind->plain == kLineString) Begin(ShapePath::kLine);
    return true;
  }

  bool BeginRing(std::int32_t index, std::int32_t) override {
    Begin(index == 0 ? ShapePath::kOuterRing : ShapePath::kInnerRing);
    return true;
  }

  bool Positions(FgfPositions const& positions) override {
    ShapePath& path = shape_.back();
    for (std::int32_t i = 0; i < positions.count; ++i) {
      for (int k = 0; k < positions.ordinates; ++k) path.ordinates.push_back(positions.Ordinate(i, k));
    }
    return true;
  }

  bool Start(FgfPositions const& position) override { return Positions(position); }

  bool Segment(std::int32_t type, FgfPositions const& positions) override {
    shape_.back().segments.push_back(type);
    shape_.back().segments.push_back(positions.count);
    return Positions(positions);
  }

  Shape Take() { return std::move(shape_); }

 private:
  void Begin(ShapePath::Kind kind) { shape_.push_back({kind, hasZ_, hasM_, {}, {}}); }

  Shape shape_;
  bool hasZ_ = false;
  bool hasM_ = false;
};

using Positions = std::vector<std::vector<double>>;

// A closed ring of straight lines may begin anywhere and run either way.
void Rotate(ShapePath& ring) {
  auto const stride = Size(OrdinatesOf(ring));
  std::size_t const count = ring.ordinates.size() / stride;
  if (!ring.segments.empty() || count < 4) return;
  Positions positions;
  for (std::size_t i = 0; i < count; ++i) {
    auto const begin = ring.ordinates.begin() + static_cast<std::ptrdiff_t>(i * stride);
    positions.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(stride));
  }
  if (positions.front() != positions.back()) return;
  positions.pop_back();

  Positions best;
  for (int direction = 0; direction < 2; ++direction) {
    Positions turned = positions;
    std::rotate(turned.begin(), std::min_element(turned.begin(), turned.end()), turned.end());
    if (best.empty() || turned < best) best = std::move(turned);
    std::reverse(positions.begin(), positions.end());
  }
  best.push_back(best.front());
  ring.ordinates.clear();
  for (auto const& position : best)
    ring.ordinates.insert(ring.ordinates.end(), position.begin(), position.end());
}

bool Before(ShapePath const& left, ShapePath const& right) {
  if (left.kind != right.kind) return left.kind < right.kind;
  return left.ordinates < right.ordinates;
}

Shape Sorted(Shape shape) {
  for (ShapePath& path : shape) {
    if (path.kind == ShapePath::kOuterRing || path.kind == ShapePath::kInnerRing) Rotate(path);
  }
  std::stable_sort(shape.begin(), shape.end(), Before);
  return shape;
}

Shape Without(Shape shape, bool ShapePath::*ordinate, bool isZ) {
  for (ShapePath& path : shape) {
    if (!(path.*ordinate)) continue;
    auto const stride = Size(OrdinatesOf(path));
    std::size_t const dropped = isZ ? 2 : stride - 1;
    std::vector<double> kept;
    for (std::size_t i = 0; i < path.ordinates.size(); ++i) {
      if (i % stride != dropped) kept.push_back(path.ordinates[i]);
    }
    path.ordinates = std::move(kept);
    path.*ordinate = false;
  }
  return Sorted(std::move(shape));
}

bool SameBuild(Shape const& left, Shape const& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](ShapePath const& a, ShapePath const& b) {
                      return a.kind == b.kind && a.hasZ == b.hasZ && a.hasM == b.hasM &&
                             a.segments == b.segments && a.ordinates.size() == b.ordinates.size();
                    });
}

}  // namespace

Shape CanonicalShape(Value const& geometry) {
  ShapeVisitor visitor;
  unsigned char const* const fgf = geometry.AsBlob();
  VisitFgf(fgf, fgf + geometry.BlobLen(), visitor);
  return Sorted(visitor.Take());
}

Shape WithoutZ(Shape shape) { return Without(std::move(shape), &ShapePath::hasZ, true); }
Shape WithoutM(Shape shape) { return Without(std::move(shape), &ShapePath::hasM, false); }

bool HasZ(Shape const& shape) {
  return std::any_of(shape.begin(), shape.end(), [](ShapePath const& path) { return path.hasZ; });
}
bool HasM(Shape const& shape) {
  return std::any_of(shape.begin(), shape.end(), [](ShapePath const& path) { return path.hasM; });
}

bool HasOnlyZeroZ(Shape const& shape) {
  for (ShapePath const& path : shape) {
    if (!path.hasZ) continue;
    for (std::size_t i = 2; i < path.ordinates.size(); i += Size(OrdinatesOf(path))) {
      if (path.ordinates[i] != 0) return false;
    }
  }
  return true;
}

bool SameShape(Shape const& left, Shape const& right) { return LargestDeviation(left, right) == 0; }

double LargestDeviation(Shape const& left, Shape const& right) {
  constexpr double kOtherwise = -1;
  if (!SameBuild(left, right)) return kOtherwise;
  double largest = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    for (std::size_t k = 0; k < left[i].ordinates.size(); ++k) {
      double const a = left[i].ordinates[k], b = right[i].ordinates[k];
      if (Same(a, b)) continue;
      double const deviation = std::abs(a - b);
      if (!std::isfinite(deviation)) return kOtherwise;
      largest = std::max(largest, deviation);
    }
  }
  return largest;
}

double LargestOrdinate(Shape const& shape) {
  double largest = 0;
  for (ShapePath const& path : shape) {
    for (double ordinate : path.ordinates) {
      if (std::isfinite(ordinate)) largest = std::max(largest, std::abs(ordinate));
    }
  }
  return largest;
}

std::uint64_t HashShape(Shape const& shape) {
  std::uint64_t hash = shape.size();
  for (ShapePath const& path : shape) {
    hash =
        Mix(hash, static_cast<std::uint64_t>(path.kind) << 2 | (path.hasZ ? 2u : 0u) | (path.hasM ? 1u : 0u));
    for (int segment : path.segments) hash = Mix(hash, static_cast<std::uint64_t>(segment));
    for (double ordinate : path.ordinates) hash = MixNumber(hash, ordinate);
  }
  return hash;
}

}  // namespace fdo::tool
