// A box as a geometry: what SpatialExtents gives.
#ifndef SDK_PROVIDERS_SQLITE_EXTENT_POLYGON_H_
#define SDK_PROVIDERS_SQLITE_EXTENT_POLYGON_H_

#include <array>
#include <cstdint>
#include <cstring>

#include "Fdo.h"
#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sqlite {

// An FGF polygon in two dimensions. Its first position is the least corner and its third is the greatest;
// readers rely on that. Requires: !box.IsEmpty()
inline std::array<unsigned char, 96> ExtentPolygon(fdo_sdk::FgfBox const& box) {
  std::int32_t const head[] = {FdoGeometryType_Polygon, FdoDimensionality_XY, 1, 5};
  double const positions[] = {box.minX, box.minY, box.maxX, box.minY, box.maxX,
                              box.maxY, box.minX, box.maxY, box.minX, box.minY};
  std::array<unsigned char, 96> fgf;
  static_assert(sizeof head + sizeof positions == sizeof fgf);
  std::memcpy(fgf.data(), head, sizeof head);
  std::memcpy(fgf.data() + sizeof head, positions, sizeof positions);
  return fgf;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_EXTENT_POLYGON_H_
