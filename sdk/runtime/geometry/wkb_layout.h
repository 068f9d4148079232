// The type words of WKB and the FGF types that answer them.
#ifndef SDK_RUNTIME_GEOMETRY_WKB_LAYOUT_H_
#define SDK_RUNTIME_GEOMETRY_WKB_LAYOUT_H_

#include <cstddef>
#include <cstdint>

namespace fdo_sdk {

enum WkbType : std::uint32_t {
  kWkbPoint = 1,
  kWkbLineString = 2,
  kWkbPolygon = 3,
  kWkbMultiPoint = 4,
  kWkbMultiLineString = 5,
  kWkbMultiPolygon = 6,
  kWkbGeometryCollection = 7,
  kWkbCircularString = 8,
  kWkbCompoundCurve = 9,
  kWkbCurvePolygon = 10,
  kWkbMultiCurve = 11,
  kWkbMultiSurface = 12
};

// ISO marks Z and M with thousands, the older form marks Z with the highest bit.
inline constexpr std::uint32_t kWkbThousand = 1000;
inline constexpr std::uint32_t kWkbOldZ = 0x80000000u;

// The fewest bytes of a counted thing: byte order, type and a count of zero; a position count of zero.
inline constexpr std::size_t kSmallestWkbPart = 9;
inline constexpr std::size_t kSmallestWkbRing = 4;

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_WKB_LAYOUT_H_
