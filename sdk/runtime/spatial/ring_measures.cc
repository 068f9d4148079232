#include "sdk/runtime/spatial/ring_measures.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "FdoSpatial.h"
#include "sdk/runtime/geometry/fgf_scan.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"
#include "sdk/runtime/spatial/point_location.h"

namespace fdo_sdk {

namespace {

// Relative to the first position, so that a small ring far from the origin keeps its digits.
template <class PositionAt>
double Shoelace(std::size_t count, PositionAt at) {
  if (count < 3) return 0;
  Xy const origin = at(0);
  double twice = 0;
  Xy from{0, 0};
  for (std::size_t i = 1; i < count; ++i) {
    Xy const position = at(i);
    Xy const to{position.x - origin.x, position.y - origin.y};
    twice += from.x * to.y - from.y * to.x;
    from = to;
  }
  return twice / 2;
}

double DistanceToSegment(Xy const& point, Xy const& from, Xy const& to) {
  double const dx = to.x - from.x;
  double const dy = to.y - from.y;
  double const length = dx * dx + dy * dy;
  double const along =
      length > 0 ? std::clamp(((point.x - from.x) * dx + (point.y - from.y) * dy) / length, 0.0, 1.0) : 0.0;
  return std::hypot(point.x - from.x - along * dx, point.y - from.y - along * dy);
}

bool IsNearRing(PositionSpan const& ring, Xy const& point, double tolerance) {
  if (!(tolerance > 0) || ring.count == 0) return false;
  Xy from{ring.X(ring.count - 1), ring.Y(ring.count - 1)};
  for (FdoInt32 i = 0; i < ring.count; ++i) {
    Xy const to{ring.X(i), ring.Y(i)};
    if (DistanceToSegment(point, from, to) <= tolerance) return true;
    from = to;
  }
  return false;
}

Location Locate(FdoILinearRing* ring, double x, double y, double tolerance) {
  PositionSpan const positions = PositionsOf(ring);
  if (IsNearRing(positions, {x, y}, tolerance)) return Location::kBoundary;
  return LocateInRing(positions, {x, y});
}

void Tell(bool* where, bool what) {
  if (where != nullptr) *where = what;
}

}  // namespace

PositionSpan PositionsOf(FdoILinearRing* ring) {
  if (ring == nullptr) ThrowFailure(L"There is no ring.");
  if (auto const* const own = dynamic_cast<FgfLinearRing const*>(ring)) return own->Positions();
  return {reinterpret_cast<FdoByte const*>(ring->GetOrdinates()), ring->GetCount(),
          ring->GetDimensionality()};
}

double SignedArea(PositionSpan const& ring) {
  return Shoelace(static_cast<std::size_t>(ring.count), [&ring](std::size_t i) {
    return Xy{ring.X(static_cast<FdoInt32>(i)), ring.Y(static_cast<FdoInt32>(i))};
  });
}

double SignedArea(std::vector<Xy> const& ring) {
  return Shoelace(ring.size(), [&ring](std::size_t i) { return ring[i]; });
}

}  // namespace fdo_sdk

using namespace fdo_sdk;

bool FdoSpatialUtility::PointInRing(FdoILinearRing* ring, double x, double y, bool* isOnBoundary) {
  return PointInRing(ring, x, y, 0, isOnBoundary);
}

bool FdoSpatialUtility::PointInRing(FdoILinearRing* ring, double x, double y, double toleranceXY,
                                    bool* isOnBoundary) {
  Location const location = Locate(ring, x, y, toleranceXY);
  Tell(isOnBoundary, location == Location::kBoundary);
  return location == Location::kInterior;
}

bool FdoSpatialUtility::PointInPolygon(FdoIPolygon* poly, double x, double y, bool* isOnExtBoundary,
                                       bool* isOnIntBoundary) {
  return PointInPolygon(poly, x, y, 0, isOnExtBoundary, isOnIntBoundary);
}

bool FdoSpatialUtility::PointInPolygon(FdoIPolygon* poly, double x, double y, double toleranceXY,
                                       bool* isOnExtBoundary, bool* isOnIntBoundary) {
  if (poly == nullptr) ThrowFailure(L"There is no polygon.");
  Tell(isOnExtBoundary, false);
  Tell(isOnIntBoundary, false);
  FdoPtr<FdoIEnvelope> envelope = poly->GetEnvelope();
  if (envelope->GetIsEmpty()) return false;
  FdoPtr<FdoILinearRing> exterior = poly->GetExteriorRing();
  Location const outer = Locate(exterior, x, y, toleranceXY);
  Tell(isOnExtBoundary, outer == Location::kBoundary);
  if (outer != Location::kInterior) return false;
  for (FdoInt32 i = 0; i < poly->GetInteriorRingCount(); ++i) {
    FdoPtr<FdoILinearRing> interior = poly->GetInteriorRing(i);
    Location const inner = Locate(interior, x, y, toleranceXY);
    Tell(isOnIntBoundary, inner == Location::kBoundary);
    if (inner != Location::kExterior) return false;
  }
  return true;
}

bool FdoSpatialUtility::LinearRingIsClockwise(FdoILinearRing* ring) {
  return SignedArea(PositionsOf(ring)) < 0;
}

double FdoSpatialUtility::ComputeLinearRingArea(FdoILinearRing* ring) {
  return std::fabs(SignedArea(PositionsOf(ring)));
}

double FdoSpatialUtility::ComputeLinearRingLength(FdoILinearRing* ring) {
  PositionSpan const positions = PositionsOf(ring);
  double length = 0;
  for (FdoInt32 i = 1; i < positions.count; ++i) {
    length += std::hypot(positions.X(i) - positions.X(i - 1), positions.Y(i) - positions.Y(i - 1));
  }
  return length;
}

bool FdoSpatialUtility::IsCircularArcValid(FdoICircularArcSegment* arc, double tolerance) {
  if (arc == nullptr) ThrowFailure(L"There is no arc.");
  FdoPtr<FdoIDirectPosition> startPosition = arc->GetStartPosition();
  FdoPtr<FdoIDirectPosition> midPosition = arc->GetMidPoint();
  FdoPtr<FdoIDirectPosition> endPosition = arc->GetEndPosition();
  Xy const start{startPosition->GetX(), startPosition->GetY()};
  Xy const mid{midPosition->GetX(), midPosition->GetY()};
  Xy const end{endPosition->GetX(), endPosition->GetY()};
  auto const apart = [tolerance](Xy const& left, Xy const& right) {
    return std::hypot(left.x - right.x, left.y - right.y) > tolerance;
  };
  if (start == end) return apart(start, mid);
  if (!apart(start, mid) || !apart(mid, end) || !apart(start, end)) return false;
  double const chord = std::hypot(end.x - start.x, end.y - start.y);
  double const cross = (end.x - start.x) * (mid.y - start.y) - (end.y - start.y) * (mid.x - start.x);
  return std::fabs(cross) / chord > tolerance;
}

void FdoSpatialUtility::GetExtents(FdoByteArray* fgf, double& minx, double& miny, double& maxx,
                                   double& maxy) {
  double minz = 0;
  double maxz = 0;
  GetExtents(fgf, minx, miny, minz, maxx, maxy, maxz);
}

void FdoSpatialUtility::GetExtents(FdoByteArray* fgf, double& minx, double& miny, double& minz, double& maxx,
                                   double& maxy, double& maxz) {
  if (fgf == nullptr) ThrowFailure(L"There is no array to read.");
  FgfBox const box = ScanFgf(fgf->GetData(), static_cast<std::size_t>(fgf->GetCount())).box;
  constexpr double kNotSet = std::numeric_limits<double>::quiet_NaN();
  minx = box.IsEmpty() ? kNotSet : box.minX;
  miny = box.IsEmpty() ? kNotSet : box.minY;
  maxx = box.IsEmpty() ? kNotSet : box.maxX;
  maxy = box.IsEmpty() ? kNotSet : box.maxY;
  minz = box.HasZ() ? box.minZ : kNotSet;
  maxz = box.HasZ() ? box.maxZ : kNotSet;
}
