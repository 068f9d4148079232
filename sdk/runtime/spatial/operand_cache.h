// Remembers what was made of the geometries that come back from question to question, as the constant of a
// filter does from row to row.
#ifndef SDK_RUNTIME_SPATIAL_OPERAND_CACHE_H_
#define SDK_RUNTIME_SPATIAL_OPERAND_CACHE_H_

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/spatial/geos_build.h"
#include "sdk/runtime/spatial/polygon_index.h"

namespace fdo_sdk {

// One geometry's place. It holds its own copy of the bytes, and is that geometry's as long as they are the
// same, whatever object or buffer they come in.
class CachedOperand {
 public:
  // How often the geometry was asked for, this time included.
  int Sightings() const { return sightings_; }

  // Made on the first call. Errors: as BuildOperand.
  GeosOperand const& Geos(GeosSession& session);

  // The index over the one geometry of the operand. Requires: Geos(session).size() == 1.
  GEOSPreparedGeometry const* Prepared(GeosSession& session);

  // Made on the first call. Requires: the geometry is a polygon without arcs.
  PolygonIndex const& Index();

 private:
  friend class OperandCache;

  std::uint64_t serial_ = 0;  // of the object seen last, which spares comparing bytes
  std::uint64_t lastUse_ = 0;
  int sightings_ = 0;
  std::vector<FdoByte> bytes_;
  std::optional<GeosOperand> geos_;
  GeosPrepared prepared_;  // ends before the geometry that it points into
  std::optional<PolygonIndex> index_;
};

// Threads: belongs to one.
class OperandCache {
 public:
  // The session outlives the cache.
  static OperandCache& OfThisThread();

  // Null for a geometry that is too small to be worth it or too large to keep.
  // Borrowed: until the second call after this one.
  CachedOperand* Find(FgfBacked const& geometry);

  static constexpr std::size_t kPlaces = 8;
  static constexpr std::size_t kSmallest = 160;     // bytes
  static constexpr std::size_t kLargest = 4 << 20;  // bytes

 private:
  CachedOperand* Seen(CachedOperand& place);

  std::array<CachedOperand, kPlaces> places_;
  CachedOperand* last_ = &places_[0];  // the constant of a filter is found again and again
  std::uint64_t uses_ = 0;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_OPERAND_CACHE_H_
