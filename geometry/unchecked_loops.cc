#include "geometry/unchecked_loops.h"

#include <cstdint>
#include <limits>

#include "geometry/unaligned.h"
#include "port/double_pair.h"

namespace fdo {
namespace {

using port::DoublePair;
using port::Higher;
using port::LoadPair;
using port::Lower;

constexpr double kLargest = std::numeric_limits<double>::max();

struct Bounds {
  DoublePair min = port::BothOf(kLargest);
  DoublePair max = port::BothOf(-kLargest);
};

std::int32_t NextInt(unsigned char const*& at) {
  std::int32_t const value = Load<std::int32_t>(at);
  at += sizeof(value);
  return value;
}

unsigned char const* Widen(unsigned char const* at, std::int32_t count, std::size_t stride, Bounds& bounds) {
  DoublePair min0 = bounds.min, min1 = min0, min2 = min0, min3 = min0;
  DoublePair max0 = bounds.max, max1 = max0, max2 = max0, max3 = max0;
  for (; count >= 4; count -= 4, at += 4 * stride) {
    DoublePair const p0 = LoadPair(at), p1 = LoadPair(at + stride);
    DoublePair const p2 = LoadPair(at + 2 * stride), p3 = LoadPair(at + 3 * stride);
    min0 = Lower(p0, min0);
    min1 = Lower(p1, min1);
    min2 = Lower(p2, min2);
    min3 = Lower(p3, min3);
    max0 = Higher(p0, max0);
    max1 = Higher(p1, max1);
    max2 = Higher(p2, max2);
    max3 = Higher(p3, max3);
  }
  for (; count > 0; --count, at += stride) {
    min0 = Lower(LoadPair(at), min0);
    max0 = Higher(LoadPair(at), max0);
  }
  bounds.min = Lower(Lower(min0, min1), Lower(min2, min3));
  bounds.max = Higher(Higher(max0, max1), Higher(max2, max3));
  return at;
}

unsigned char const* WidenByOne(unsigned char const* at, Bounds& bounds) {
  std::int32_t const type = NextInt(at);
  std::size_t const stride = NextInt(at) == 0 ? 16 : 24;
  if (type == 1) {
    bounds.min = Lower(LoadPair(at), bounds.min);
    bounds.max = Higher(LoadPair(at), bounds.max);
    return at + stride;
  }
  std::int32_t rings = type == 3 ? NextInt(at) : 1;
  for (; rings > 0; --rings) {
    std::int32_t const count = NextInt(at);
    at = Widen(at, count, stride, bounds);
  }
  return at;
}

void Copy(unsigned char const*& from, unsigned char*& to, std::size_t size) {
  std::memcpy(to, from, size);
  from += size;
  to += size;
}

std::int32_t CopyInt(unsigned char const*& from, unsigned char*& to) {
  std::int32_t const value = NextInt(from);
  Store(to, value);
  to += sizeof(value);
  return value;
}

void CopyBody(std::int32_t type, unsigned char const*& from, unsigned char*& to) {
  if (type == 1) return Copy(from, to, 16);
  std::int32_t rings = type == 3 ? CopyInt(from, to) : 1;
  for (; rings > 0; --rings) {
    std::int32_t const count = CopyInt(from, to);
    Copy(from, to, std::size_t(count) * 16);
  }
}

void OneToWkb(unsigned char const*& from, unsigned char*& to) {
  *to++ = 1;
  std::int32_t const type = CopyInt(from, to);
  from += sizeof(std::int32_t);
  CopyBody(type, from, to);
}

void OneToFgf(unsigned char const*& from, unsigned char*& to) {
  ++from;
  std::int32_t const type = CopyInt(from, to);
  Store(to, std::int32_t{0});
  to += sizeof(std::int32_t);
  CopyBody(type, from, to);
}

}  // namespace

unsigned char const* UncheckedBox(unsigned char const* fgf, double box[4]) {
  Bounds bounds;
  if (Load<std::int32_t>(fgf) < 4) {
    fgf = WidenByOne(fgf, bounds);
  } else {
    fgf += sizeof(std::int32_t);
    for (std::int32_t parts = NextInt(fgf); parts > 0; --parts) fgf = WidenByOne(fgf, bounds);
  }
  port::StorePair(box, bounds.min);
  port::StorePair(box + 2, bounds.max);
  return fgf;
}

std::size_t UncheckedFgfToWkb(unsigned char const* fgf, unsigned char* out) {
  unsigned char* to = out;
  if (Load<std::int32_t>(fgf) < 4) {
    OneToWkb(fgf, to);
  } else {
    *to++ = 1;
    CopyInt(fgf, to);
    for (std::int32_t parts = CopyInt(fgf, to); parts > 0; --parts) OneToWkb(fgf, to);
  }
  return static_cast<std::size_t>(to - out);
}

std::size_t UncheckedWkbToFgf(unsigned char const* wkb, unsigned char* out) {
  unsigned char* to = out;
  if (Load<std::int32_t>(wkb + 1) < 4) {
    OneToFgf(wkb, to);
  } else {
    ++wkb;
    CopyInt(wkb, to);
    for (std::int32_t parts = CopyInt(wkb, to); parts > 0; --parts) OneToFgf(wkb, to);
  }
  return static_cast<std::size_t>(to - out);
}

}  // namespace fdo
