// Numbers in a byte stream. They may lie at any address, and are little-endian as the platform is.
#ifndef GEOMETRY_UNALIGNED_H_
#define GEOMETRY_UNALIGNED_H_

#include <bit>
#include <cstring>
#include <limits>

namespace fdo {

static_assert(std::endian::native == std::endian::little, "streams are read and written without conversion");
static_assert(std::numeric_limits<double>::is_iec559 && sizeof(double) == 8, "an ordinate is an IEEE double");

template <class Number>
Number Load(unsigned char const* from) {
  Number value;
  std::memcpy(&value, from, sizeof(value));
  return value;
}

template <class Number>
void Store(unsigned char* to, Number value) {
  std::memcpy(to, &value, sizeof(value));
}

}  // namespace fdo

#endif  // GEOMETRY_UNALIGNED_H_
