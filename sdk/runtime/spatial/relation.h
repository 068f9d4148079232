// The relations that an operation may ask about.
#ifndef SDK_RUNTIME_SPATIAL_RELATION_H_
#define SDK_RUNTIME_SPATIAL_RELATION_H_

#include "FdoSpatial.h"

namespace fdo_sdk {

// The operations of the interface, and the two that asking them from the other side needs.
enum class Relation {
  kContains,
  kCrosses,
  kDisjoint,
  kEquals,
  kIntersects,
  kOverlaps,
  kTouches,
  kWithin,
  kCoveredBy,
  kInside,
  kEnvelopeIntersects,
  kCovers,            // of CoveredBy
  kContainsProperly,  // of Inside
};

static_assert(static_cast<int>(Relation::kContains) == FdoSpatialOperations_Contains &&
              static_cast<int>(Relation::kEnvelopeIntersects) == FdoSpatialOperations_EnvelopeIntersects);

// The relation of b to a that says the same as this one of a to b.
constexpr Relation Transposed(Relation relation) {
  switch (relation) {
    case Relation::kContains:
      return Relation::kWithin;
    case Relation::kWithin:
      return Relation::kContains;
    case Relation::kCoveredBy:
      return Relation::kCovers;
    case Relation::kCovers:
      return Relation::kCoveredBy;
    case Relation::kInside:
      return Relation::kContainsProperly;
    case Relation::kContainsProperly:
      return Relation::kInside;
    case Relation::kCrosses:
    case Relation::kDisjoint:
    case Relation::kEquals:
    case Relation::kIntersects:
    case Relation::kOverlaps:
    case Relation::kTouches:
    case Relation::kEnvelopeIntersects:
      break;
  }
  return relation;
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_RELATION_H_
