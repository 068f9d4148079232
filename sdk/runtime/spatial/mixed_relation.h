// The relations of collections whose parts are of different kinds, for which GEOS has no answers of its own.
//
// A collection is the set of all positions of its parts. A position belongs to it by the part of the most
// dimensions that holds it: in the interior or on the boundary of its surfaces, else of its lines, else it is
// one of its points and interior. The dimension of a collection is that of its greatest part. From there on
// the relations mean what the OGC says:
//   CoveredBy  a is a part of b                     Within    CoveredBy, and the interiors meet
//   Equals     CoveredBy in both directions         Inside    CoveredBy, without b's boundary
//   Touches    they meet, their interiors do not    Disjoint  they do not meet
//   Crosses    the interiors meet, and the one of fewer dimensions leaves the other; two of dimension 1 must
//              meet in positions alone
//   Overlaps   of one dimension, which the meeting of the interiors has too; neither is a part of the other
// A part that lies within a greater one thus changes nothing.
#ifndef SDK_RUNTIME_SPATIAL_MIXED_RELATION_H_
#define SDK_RUNTIME_SPATIAL_MIXED_RELATION_H_

#include "sdk/runtime/spatial/geos_build.h"
#include "sdk/runtime/spatial/relation.h"

namespace fdo_sdk {

// Exact, but where lines cross in the very position of a surface's boundary and that is no double.
// Requires: neither operand is empty. Errors: throws FdoException* where GEOS fails.
bool HoldsForMixed(GeosSession& session, GeosOperand const& a, Relation relation, GeosOperand const& b);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_MIXED_RELATION_H_
