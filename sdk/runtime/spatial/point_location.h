// Where a point lies to a ring or a polygon, decided without error.
#ifndef SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_
#define SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_

#include "sdk/runtime/geometry/circular_arc.h"
#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

enum class Location { kExterior, kBoundary, kInterior };

// The side of the line from a to b on which c lies: 1 left, -1 right, 0 on it. Exact but where a product
// of differences leaves the range of a double.
int Orientation(Xy const& a, Xy const& b, Xy const& c);

// The ring is closed by the line from its last position to its first. A ring that crosses itself is inside
// where a ray crosses it an odd number of times.
Location LocateInRing(PositionSpan const& ring, Xy const& point);

// Requires: a checked stream of a polygon.
Location LocateInPolygon(FdoByte const* polygon, std::size_t size, Xy const& point);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_POINT_LOCATION_H_
