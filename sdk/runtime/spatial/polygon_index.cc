#include "sdk/runtime/spatial/polygon_index.h"

#include <algorithm>
#include <limits>

namespace fdo_sdk {

// A sink that takes the edges of one ring after the other.
class PolygonIndex::Collector : public FgfSink {
 public:
  void Positions(PositionSpan const& ring) {
    for (FdoInt32 i = 0; i < ring.count; ++i) {
      FdoInt32 const before = (i == 0 ? ring.count : i) - 1;
      edges_.push_back({{ring.X(before), ring.Y(before)}, {ring.X(i), ring.Y(i)}, ring_});
    }
    ++ring_;
  }

  std::vector<Edge> const& Edges() const { return edges_; }

 private:
  std::vector<Edge> edges_;
  std::uint32_t ring_ = 0;
};

PolygonIndex::PolygonIndex(FdoByte const* polygon, std::size_t size) {
  FgfCursor in(polygon, size);
  Collector collector;
  FgfWalk<Collector>(in, collector).Geometry();
  std::vector<Edge> const& edges = collector.Edges();
  if (edges.empty()) {
    firstEdge_.assign(strips_ + 1, 0);
    return;
  }
  FgfBox box;
  bool isFinite = true;
  for (Edge const& edge : edges) {
    box.Expand(edge.to.x, edge.to.y);
    isFinite = isFinite && std::isfinite(edge.to.x) && std::isfinite(edge.to.y);
  }
  if (!isFinite) {
    // There is no strip for what is no number, and such an edge may be level with any point.
    minY_ = -std::numeric_limits<double>::infinity();
    maxY_ = std::numeric_limits<double>::infinity();
    firstEdge_ = {0, static_cast<std::uint32_t>(edges.size())};
    edges_ = edges;
    return;
  }
  minY_ = box.minY;
  maxY_ = box.maxY;
  // Two strips for an edge, unless most edges are long.
  std::size_t strips = 2 * edges.size();
  while (strips > 1 && CountWith(strips, edges) > kMostPerEdge * edges.size()) strips /= 2;
  CountWith(strips, edges);
  Fill(edges);
}

Location PolygonIndex::Locate(Xy const& point) const {
  if (!(point.y >= minY_ && point.y <= maxY_)) return Location::kExterior;
  std::size_t const strip = StripOf(point.y);
  Edge const* const end = edges_.data() + firstEdge_[strip + 1];
  std::uint32_t ring = 0;
  bool inside = false;
  for (Edge const* edge = edges_.data() + firstEdge_[strip]; edge != end; ++edge) {
    if (edge->ring != ring) {
      // What is outside of the outer ring, or inside of another, is decided.
      if (inside == (ring != 0)) return Location::kExterior;
      ring = edge->ring;
      inside = false;
    }
    // Which edges cross is not foreseen by a processor, so the common case does without a jump.
    RoundedOrientation const side(edge->from, edge->to, point);
    bool const toAbove = edge->to.y > point.y;
    bool const isLevel = (edge->from.y == point.y) | (edge->to.y == point.y);
    bool const straddles = (edge->from.y > point.y) != toAbove;
    if (isLevel | (straddles & side.IsUnsure())) {
      EdgeAtRay const found = FollowRay(edge->from, edge->to, point);
      if (found == EdgeAtRay::kHoldsPoint) return Location::kBoundary;
      inside ^= found == EdgeAtRay::kCrosses;
    } else {
      inside ^= straddles & ((side.difference > 0) == toAbove);
    }
  }
  return inside == (ring != 0) ? Location::kExterior : Location::kInterior;
}

// Requires: minY_ <= y && y <= maxY_
std::size_t PolygonIndex::StripOf(double y) const {
  if (strips_ == 1) return 0;  // where the height may be no number to calculate with
  auto const strip = static_cast<std::size_t>((y - minY_) * stripsPerUnit_);
  return std::min(strip, strips_ - 1);
}

std::size_t PolygonIndex::FirstStripOf(Edge const& edge) const {
  return StripOf(std::min(edge.from.y, edge.to.y));
}

std::size_t PolygonIndex::LastStripOf(Edge const& edge) const {
  return StripOf(std::max(edge.from.y, edge.to.y));
}

std::size_t PolygonIndex::CountWith(std::size_t strips, std::vector<Edge> const& edges) {
  double const perUnit = static_cast<double>(strips) / (maxY_ - minY_);
  // A polygon that is flat, or too flat or too high for a quotient, is one strip.
  bool const isUsable = std::isfinite(perUnit) && std::isfinite((maxY_ - minY_) * perUnit);
  strips_ = isUsable ? strips : 1;
  stripsPerUnit_ = isUsable ? perUnit : 0;
  std::size_t count = 0;
  for (Edge const& edge : edges) count += LastStripOf(edge) - FirstStripOf(edge) + 1;
  return count;
}

void PolygonIndex::Fill(std::vector<Edge> const& edges) {
  firstEdge_.assign(strips_ + 1, 0);
  for (Edge const& edge : edges) {
    for (std::size_t strip = FirstStripOf(edge); strip <= LastStripOf(edge); ++strip) ++firstEdge_[strip + 1];
  }
  for (std::size_t strip = 0; strip < strips_; ++strip) firstEdge_[strip + 1] += firstEdge_[strip];
  edges_.resize(firstEdge_[strips_]);
  std::vector<std::uint32_t> next(firstEdge_.begin(), firstEdge_.end() - 1);
  for (Edge const& edge : edges) {
    for (std::size_t strip = FirstStripOf(edge); strip <= LastStripOf(edge); ++strip) {
      edges_[next[strip]++] = edge;
    }
  }
}

}  // namespace fdo_sdk
