// The layout of FGF in numbers, and the loads and stores that its unaligned fields need.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_LAYOUT_H_
#define SDK_RUNTIME_GEOMETRY_FGF_LAYOUT_H_

#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>

#include "FdoCommon.h"

namespace fdo_sdk {

static_assert(std::endian::native == std::endian::little, "streams are read and written without conversion");
static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8, "an ordinate is an IEEE double");

template <class Number>
Number Load(FdoByte const* from) {
  Number value;
  std::memcpy(&value, from, sizeof(value));
  return value;
}

// A geometry that stands alone is level 1, a part is one level below what holds it.
inline constexpr int kMaxLevels = 128;

constexpr bool IsDimensionality(FdoInt32 dimensionality) {
  return dimensionality >= 0 && dimensionality <= (FdoDimensionality_Z | FdoDimensionality_M);
}

// Requires: IsDimensionality(dimensionality).
constexpr int OrdinateCount(FdoInt32 dimensionality) {
  return 2 + (dimensionality & FdoDimensionality_Z) + (dimensionality >> 1);
}
static_assert(OrdinateCount(0) == 2 && OrdinateCount(1) == 3 && OrdinateCount(2) == 3 &&
              OrdinateCount(3) == 4);

constexpr std::size_t PositionBytes(FdoInt32 dimensionality) {
  return sizeof(double) * static_cast<std::size_t>(OrdinateCount(dimensionality));
}

// The fewest bytes that one counted thing takes: a count of more than fit is refused before it is used.
inline constexpr std::size_t kSmallestPart = 8;        // a multi type and its count of zero
inline constexpr std::size_t kSmallestRing = 4;        // a position count of zero
inline constexpr std::size_t kSmallestCurveRing = 20;  // a start position and a segment count of zero
inline constexpr std::size_t kSmallestSegment = 8;     // a line of no positions

// What stands before the counted things of each layout.
inline constexpr std::size_t kPointHead = 8;  // type, dimensionality
inline constexpr std::size_t kLineHead = 12;  // type, dimensionality, count
inline constexpr std::size_t kPartsHead = 8;  // type, count

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_LAYOUT_H_
