// Points, line strings and polygons are what most rows hold, and they are small, so that the general
// walk costs as much as the work on them. These take the sound ones in one step. Everything else, broken
// streams included, is left to the walk, which alone decides what it means.
#ifndef GEOMETRY_PLAIN_GEOMETRY_H_
#define GEOMETRY_PLAIN_GEOMETRY_H_

#include <fdo/geometry_stream.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "geometry/fgf_layout.h"
#include "geometry/unaligned.h"
#include "port/inlining.h"

namespace fdo {

constexpr bool IsPointLineOrPolygon(std::uint32_t type) {
  static_assert(kFgfPoint == 1 && kFgfLineString == 2 && kFgfPolygon == 3);
  return type - kFgfPoint <= kFgfPolygon - kFgfPoint;
}

// The counts and positions after the head of such a geometry, which are the same in FGF and in WKB.
// Gives: where they end; null when they do not fit or a count is negative.
QUILLON_ALWAYS_INLINE unsigned char const* EndOfPlainBody(std::uint32_t type, std::size_t positionBytes,
                                                          unsigned char const* at, unsigned char const* end) {
  auto const left = [&] { return static_cast<std::uint64_t>(end - at); };
  if (type == kFgfPoint) return left() < positionBytes ? nullptr : at + positionBytes;
  std::int32_t rings = 1;
  if (type == kFgfPolygon) {
    if (left() < sizeof(rings)) return nullptr;
    rings = Load<std::int32_t>(at);
    at += sizeof(rings);
    if (rings < 0) return nullptr;
  }
  for (; rings > 0; --rings) {
    if (left() < sizeof(std::int32_t)) return nullptr;
    std::int32_t const count = Load<std::int32_t>(at);
    at += sizeof(count);
    if (count < 0 || std::uint64_t(count) * positionBytes > left()) return nullptr;
    at += std::size_t(count) * positionBytes;
  }
  return at;
}

// Copies such a body; returns its length.
QUILLON_ALWAYS_INLINE std::size_t CopyPlainBody(unsigned char* to, unsigned char const* body,
                                                unsigned char const* end) {
  constexpr std::size_t kOnePosition = 2 * sizeof(double);
  auto const length = static_cast<std::size_t>(end - body);
  if (length == kOnePosition) {
    std::memcpy(to, body, kOnePosition);  // no call
  } else {
    std::memcpy(to, body, length);
  }
  return length;
}

// Whether an FGF point with X and Y alone stands there, whole.
QUILLON_ALWAYS_INLINE bool IsPlainPoint(unsigned char const* begin, unsigned char const* end) {
  constexpr std::uint64_t kHead = kFgfPoint;  // type code, then a dimensionality of 0
  return static_cast<std::uint64_t>(end - begin) >= kSingleHeadBytes + 2 * sizeof(double) &&
         Load<std::uint64_t>(begin) == kHead;
}

// The positions of an FGF geometry that has a single run of them: a point, a line string or a polygon
// of one ring. The count is 0 for any other, and where there are none.
QUILLON_ALWAYS_INLINE FgfPositions SingleRun(unsigned char const* begin, unsigned char const* end) {
  constexpr FgfPositions kNone{nullptr, 0, 0};
  auto left = static_cast<std::uint64_t>(end - begin);
  // One ordinate more than a head takes: even a point is longer.
  if (left < kSingleHeadBytes + sizeof(double)) return kNone;
  auto const type = Load<std::uint32_t>(begin);
  auto const dimensionality = Load<std::uint32_t>(begin + sizeof(type));
  if (!IsPointLineOrPolygon(type) || dimensionality > (kDimensionalityZ | kDimensionalityM)) return kNone;
  unsigned char const* at = begin + kSingleHeadBytes;
  std::int32_t count = 1;
  if (type == kFgfPolygon) {
    if (Load<std::int32_t>(at) != 1) return kNone;
    at += sizeof(count);
  }
  if (type != kFgfPoint) {
    count = Load<std::int32_t>(at);
    at += sizeof(count);
  }
  left = static_cast<std::uint64_t>(end - at);
  int const ordinates = OrdinateCount(static_cast<int>(dimensionality));
  if (count <= 0 || std::uint64_t(count) * PositionBytes(ordinates) > left) return kNone;
  return {at, count, ordinates};
}

}  // namespace fdo

#endif  // GEOMETRY_PLAIN_GEOMETRY_H_
