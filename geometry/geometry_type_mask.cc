#include <fdo/geometry_stream.h>

#include "geometry/wkb_layout.h"

namespace fdo {

std::int32_t FgfGeometryTypeMask(std::uint32_t wkbType) {
  constexpr std::int32_t kAllKinds = 1 | 2 | 4 | 8;
  std::uint32_t const code = wkbType & ~kWkbZBit;
  if (code == 0) return 0;
  std::int32_t const type = static_cast<std::int32_t>(code);
  return IsPlainType(type) ? LayoutOf(type)->plainMask : kAllKinds;
}

}  // namespace fdo
