// Makes GEOS geometries of a geometry stream.
#ifndef SDK_RUNTIME_SPATIAL_GEOS_BUILD_H_
#define SDK_RUNTIME_SPATIAL_GEOS_BUILD_H_

#include <vector>

#include "sdk/runtime/geometry/fgf_walk.h"
#include "sdk/runtime/spatial/geos_session.h"

namespace fdo_sdk {

// What a stream becomes: one geometry, or for a collection of parts of different kinds one for each kind,
// points, lines and surfaces in this order. Empty parts are left out, so there may be none.
using GeosOperand = std::vector<GeosGeometry>;

// The arcs' greatest distance from the lines that replace them, as a part of the radius.
inline constexpr double kArcOffset = 1e-5;

// Rings that are not closed are closed, and rings of too few positions repeat the last. A line of one
// position is a point. Surfaces of a collection that may overlap are joined.
// Requires: the stream was checked.
// Errors: throws FdoException* for a position that is not finite, and where GEOS fails.
GeosOperand BuildOperand(GeosSession& session, FdoByte const* fgf, std::size_t size);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_GEOS_BUILD_H_
