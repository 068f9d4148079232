// What boxes alone decide about two geometries.
#ifndef SDK_RUNTIME_SPATIAL_BOX_DECISION_H_
#define SDK_RUNTIME_SPATIAL_BOX_DECISION_H_

#include <optional>

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/spatial/relation.h"

namespace fdo_sdk {

// Nothing when the geometries themselves must be looked at. Emptiness is always decided.
std::optional<bool> DecideByBoxes(FgfBacked const& a, Relation relation, FgfBacked const& b);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_BOX_DECISION_H_
