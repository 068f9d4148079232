// StreamWriter appends little-endian numbers and blocks of bytes to memory that the caller has sized.
// Requires: room; nothing is checked here. Each user states its bound, and the tests give it a buffer
//   of exactly that size.
#ifndef GEOMETRY_STREAM_WRITER_H_
#define GEOMETRY_STREAM_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "geometry/fgf_layout.h"
#include "geometry/unaligned.h"
#include "port/inlining.h"

namespace fdo {

class StreamWriter {
 public:
  explicit StreamWriter(unsigned char* out) : begin_(out), at_(out) {}

  unsigned char* At() const { return at_; }
  unsigned char* Begin() const { return begin_; }
  std::size_t Written() const { return static_cast<std::size_t>(at_ - begin_); }

  QUILLON_ALWAYS_INLINE void Byte(unsigned char value) { *at_++ = value; }

  QUILLON_ALWAYS_INLINE void Int32(std::uint32_t value) {
    Store(at_, value);
    at_ += sizeof(value);
  }
  QUILLON_ALWAYS_INLINE void Int32(std::int32_t value) { Int32(static_cast<std::uint32_t>(value)); }

  QUILLON_ALWAYS_INLINE void Positions(unsigned char const* positions, std::int32_t count, int ordinates) {
    std::size_t const size = std::size_t(count) * PositionBytes(ordinates);
    if (count == 1) {
      // For so few bytes a call costs more than the copy.
      std::memcpy(at_, positions, 2 * sizeof(double));
      for (std::size_t at = 2 * sizeof(double); at < size; at += sizeof(double)) {
        std::memcpy(at_ + at, positions + at, sizeof(double));
      }
    } else {
      std::memcpy(at_, positions, size);
    }
    at_ += size;
  }

  // The same for ordinates with their bytes the other way round.
  void SwappedPositions(unsigned char const* positions, std::int32_t count, int ordinates) {
    std::size_t const doubles = std::size_t(count) * std::size_t(ordinates);
    CopySwapped(at_, positions, doubles);
    at_ += doubles * sizeof(double);
  }

  // Takes out size bytes at a place already written, and moves up what follows them.
  void Remove(unsigned char* from, std::size_t size) {
    std::memmove(from, from + size, static_cast<std::size_t>(at_ - from) - size);
    at_ -= size;
  }

 private:
  // Static, so that a writer has no address and may live in registers.
  static void CopySwapped(unsigned char* to, unsigned char const* from, std::size_t doubles) {
    for (; doubles > 0; --doubles, to += sizeof(double), from += sizeof(double)) {
      for (std::size_t byte = 0; byte < sizeof(double); ++byte) to[byte] = from[sizeof(double) - 1 - byte];
    }
  }

  unsigned char* begin_;
  unsigned char* at_;
};

}  // namespace fdo

#endif  // GEOMETRY_STREAM_WRITER_H_
