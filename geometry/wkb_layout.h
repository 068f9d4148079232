// What WKB has beside the FGF types it mirrors: its header, and the names of codes that are looked at
// one by one. The correspondence of types stands in kFgfLayouts.
#ifndef GEOMETRY_WKB_LAYOUT_H_
#define GEOMETRY_WKB_LAYOUT_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "geometry/fgf_layout.h"

namespace fdo {

inline constexpr unsigned char kWkbBigEndian = 0;
inline constexpr unsigned char kWkbLittleEndian = 1;

// The older way to tell a Z ordinate.
inline constexpr std::uint32_t kWkbZBit = 0x80000000U;

// ISO adds this to the type code once for each step of the dimensionality.
inline constexpr std::uint32_t kIsoDimensionality = 1000;

inline constexpr std::uint32_t kWkbLineString = 2;
inline constexpr std::uint32_t kWkbPolygon = 3;
inline constexpr std::uint32_t kWkbCircularString = 8;
inline constexpr std::uint32_t kWkbCompoundCurve = 9;

inline constexpr std::size_t kWkbHeaderBytes = 5;         // byte order, type code
inline constexpr std::size_t kWkbCountedHeaderBytes = 9;  // and a count

namespace internal {

inline constexpr std::size_t kWkbCodes = 13;  // 0 to 12

consteval std::array<std::int32_t, kWkbCodes> FgfTypeOfEachWkb() {
  std::array<std::int32_t, kWkbCodes> types{};
  for (FgfLayout const& layout : kFgfLayouts) types[layout.isoWkb] = layout.type;
  types[kWkbCircularString] = kFgfCurveString;  // beside the compound curve
  return types;
}
inline constexpr auto kFgfTypeOfWkb = FgfTypeOfEachWkb();

}  // namespace internal

// The FGF type that a plain ISO code is read as, 0 when there is none.
constexpr std::int32_t FgfTypeOfWkb(std::uint32_t code) {
  return code < internal::kWkbCodes ? internal::kFgfTypeOfWkb[code] : 0;
}
static_assert(FgfTypeOfWkb(kWkbCompoundCurve) == kFgfCurveString && FgfTypeOfWkb(0) == 0 &&
              FgfTypeOfWkb(13) == 0);

// Types that both WKB forms share, and all that the older one has.
constexpr bool IsPlainType(std::int32_t type) { return type >= kFgfPoint && type <= kFgfMultiPolygon; }

}  // namespace fdo

#endif  // GEOMETRY_WKB_LAYOUT_H_
