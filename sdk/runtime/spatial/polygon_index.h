// PolygonIndex says where points lie to one polygon, looking only at the edges level with each.
#ifndef SDK_RUNTIME_SPATIAL_POLYGON_INDEX_H_
#define SDK_RUNTIME_SPATIAL_POLYGON_INDEX_H_

#include <cstdint>
#include <vector>

#include "sdk/runtime/spatial/point_location.h"

namespace fdo_sdk {

// The polygon's height is cut into strips of one height, and each knows the edges that reach into it, ring
// by ring. An edge is in every strip that a point between its ends in Y may fall into, because the strip of
// a Y is found in the same way for both and never falls as Y grows. What is tested of an edge is what
// LocateInRing tests, so the answers are the same, for polygons that are not valid as well.
// Takes 40 bytes for each edge and strip it is in, of which there are at most kMostPerEdge times the edges.
// Threads: never changes once made.
class PolygonIndex {
 public:
  // Requires: a checked stream of a polygon. Keeps nothing of it.
  PolygonIndex(FdoByte const* polygon, std::size_t size);

  // As LocateInPolygon.
  Location Locate(Xy const& point) const;

  static constexpr std::size_t kMostPerEdge = 8;

 private:
  class Collector;

  struct Edge {
    Xy from;
    Xy to;
    std::uint32_t ring;  // the outer one is 0
  };

  std::size_t StripOf(double y) const;
  std::size_t FirstStripOf(Edge const& edge) const;
  std::size_t LastStripOf(Edge const& edge) const;
  // How often edges stand in strips when there are that many.
  std::size_t CountWith(std::size_t strips, std::vector<Edge> const& edges);
  void Fill(std::vector<Edge> const& edges);

  double minY_ = 0;
  double maxY_ = -1;  // of no edges
  double stripsPerUnit_ = 0;
  std::size_t strips_ = 1;
  std::vector<std::uint32_t> firstEdge_;  // of each strip, and one past the last
  std::vector<Edge> edges_;               // of one strip after the other, by ring
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_POLYGON_INDEX_H_
