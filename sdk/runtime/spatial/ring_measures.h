// Areas and turns of rings.
#ifndef SDK_RUNTIME_SPATIAL_RING_MEASURES_H_
#define SDK_RUNTIME_SPATIAL_RING_MEASURES_H_

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/circular_arc.h"
#include "sdk/runtime/geometry/fgf_walk.h"

namespace fdo_sdk {

// The positions of a ring of any maker.
// Borrowed: while the ring lives. Errors: throws FdoException* for null.
PositionSpan PositionsOf(FdoILinearRing* ring);

// Positive against the clock. The ring is closed by the line from its last position to its first.
double SignedArea(PositionSpan const& ring);
double SignedArea(std::vector<Xy> const& ring);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_RING_MEASURES_H_
