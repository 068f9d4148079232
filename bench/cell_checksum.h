// What each side of a scan adds to its checksum for a cell. Both sides hold the cell in a form of their
// own, so the sum is over what these forms share.
#ifndef BENCH_CELL_CHECKSUM_H_
#define BENCH_CELL_CHECKSUM_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fdo::bench {

inline std::uint64_t OfInteger(std::int64_t value) { return static_cast<std::uint64_t>(value); }
inline std::uint64_t OfReal(double value) { return std::bit_cast<std::uint64_t>(value); }
inline std::uint64_t OfCharacter(std::uint32_t first) { return first; }
// The last digit of a year, which is the fourth character of a date as text.
inline std::uint64_t OfYearDigit(int digit) { return static_cast<std::uint64_t>(digit); }
// The last ordinate, with which every encoding of these geometries ends.
inline std::uint64_t OfGeometry(unsigned char const* bytes, std::size_t length) {
  std::uint64_t last;
  std::memcpy(&last, bytes + length - sizeof(last), sizeof(last));
  return last;
}

}  // namespace fdo::bench

#endif  // BENCH_CELL_CHECKSUM_H_
