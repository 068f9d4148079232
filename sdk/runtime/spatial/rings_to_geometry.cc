// FdoSpatialUtility::CreateGeometryFromRings.
#include <cmath>
#include <vector>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/point_location.h"
#include "sdk/runtime/spatial/ring_measures.h"

using namespace fdo_sdk;

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct Ring {
  FdoPtr<FdoILinearRing> ring;
  PositionSpan positions;
  double area;
  std::size_t parent = kNone;  // the smallest ring around it
  int depth = 0;               // how many rings are around it
};

// By the first position that is not on the other's boundary; a ring all of whose positions are there lies
// inside.
bool IsInside(Ring const& inner, Ring const& outer) {
  if (!(inner.area < outer.area)) return false;
  for (FdoInt32 i = 0; i < inner.positions.count; ++i) {
    Location const location = LocateInRing(outer.positions, {inner.positions.X(i), inner.positions.Y(i)});
    if (location != Location::kBoundary) return location == Location::kInterior;
  }
  return true;
}

void Relate(std::vector<Ring>& rings) {
  for (std::size_t i = 0; i < rings.size(); ++i) {
    for (std::size_t k = 0; k < rings.size(); ++k) {
      if (i == k || !IsInside(rings[i], rings[k])) continue;
      ++rings[i].depth;
      std::size_t& parent = rings[i].parent;
      if (parent == kNone || rings[k].area < rings[parent].area) parent = k;
    }
  }
}

FdoPtr<FdoIPolygon> MakePolygon(std::vector<Ring> const& rings, std::size_t outer) {
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoLinearRingCollection> holes = FdoLinearRingCollection::Create();
  for (Ring const& ring : rings) {
    if (ring.depth % 2 == 1 && ring.parent == outer) holes->Add(ring.ring);
  }
  return factory->CreatePolygon(rings[outer].ring, holes);
}

}  // namespace

FdoIGeometry* FdoSpatialUtility::CreateGeometryFromRings(FdoLinearRingCollection* rings, bool relateRings) {
  if (rings == nullptr || rings->GetCount() == 0) ThrowFailure(L"There are no rings.");
  std::vector<Ring> all;
  for (FdoInt32 i = 0; i < rings->GetCount(); ++i) {
    FdoPtr<FdoILinearRing> ring = rings->GetItem(i);
    PositionSpan const positions = PositionsOf(ring);
    bool const isHole = !relateRings && i > 0;
    all.push_back({ring, positions, std::fabs(SignedArea(positions)), isHole ? 0 : kNone, isHole ? 1 : 0});
  }
  if (relateRings) Relate(all);
  FdoPtr<FdoPolygonCollection> polygons = FdoPolygonCollection::Create();
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].depth % 2 == 0) polygons->Add(MakePolygon(all, i));
  }
  if (polygons->GetCount() == 1) return polygons->GetItem(0);
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  return factory->CreateMultiPolygon(polygons);
}
