// StreamCursor reads a byte stream front to back and never past its end. It is a borrowed view: it
// copies and allocates nothing and is valid while the bytes are.
// Errors: a read that does not fit fails the cursor for good. From then on it stands at the end and
//   every read gives 0, so that a caller may look at Failed() once after several reads.
#ifndef GEOMETRY_STREAM_CURSOR_H_
#define GEOMETRY_STREAM_CURSOR_H_

#include <fdo/geometry_stream.h>

#include <cstddef>
#include <cstdint>

#include "geometry/fgf_layout.h"
#include "geometry/unaligned.h"
#include "port/inlining.h"

namespace fdo {

class StreamCursor {
 public:
  StreamCursor(unsigned char const* begin, unsigned char const* end) : at_(begin), end_(end) {}

  unsigned char const* At() const { return at_; }
  bool Failed() const { return failed_; }
  QUILLON_ALWAYS_INLINE void Fail() {
    failed_ = true;
    at_ = end_;
  }

  // The next size bytes, or null.
  QUILLON_ALWAYS_INLINE unsigned char const* Take(std::uint64_t size) {
    if (size > Left()) [[unlikely]] {
      Fail();
      return nullptr;
    }
    unsigned char const* const taken = at_;
    at_ += static_cast<std::size_t>(size);
    return taken;
  }

  QUILLON_ALWAYS_INLINE unsigned char Byte() {
    unsigned char const* const taken = Take(1);
    return taken == nullptr ? static_cast<unsigned char>(0) : *taken;
  }

  QUILLON_ALWAYS_INLINE std::int32_t Int32() {
    if (Left() < sizeof(std::int32_t)) [[unlikely]] {
      Fail();
      return 0;
    }
    std::int32_t const value = Load<std::int32_t>(at_);
    at_ += sizeof(value);
    return value;
  }

  // Whether these bytes come next; they are then taken.
  QUILLON_ALWAYS_INLINE bool TakeIfNext(unsigned char const* bytes, std::size_t size) {
    if (Left() < size || std::memcmp(at_, bytes, size) != 0) return false;
    at_ += size;
    return true;
  }

  QUILLON_ALWAYS_INLINE int Dimensionality() {
    std::int32_t const dimensionality = Int32();
    if (dimensionality < 0 || dimensionality > (kDimensionalityZ | kDimensionalityM)) [[unlikely]] {
      Fail();
      return 0;
    }
    return dimensionality;
  }

  // Holds a count just read against what is left: each of the things counted takes at least that many
  // bytes. Returns the count, or 0 when the cursor failed.
  QUILLON_ALWAYS_INLINE std::int32_t Checked(std::int32_t count, std::size_t smallest) {
    // 32 bits times a few bytes cannot overflow 64 bits; dividing what is left costs more than a
    // whole small ring.
    if (count < 0 || std::uint64_t(count) * smallest > Left()) [[unlikely]] {
      Fail();
      return 0;
    }
    return count;
  }

  QUILLON_ALWAYS_INLINE std::int32_t Count(std::size_t smallest) { return Checked(Int32(), smallest); }

  // A ring count below 1 means no rings and is given as it stands.
  QUILLON_ALWAYS_INLINE std::int32_t RingCount(std::size_t smallest) {
    std::int32_t const count = Int32();
    return count < 0 ? count : Checked(count, smallest);
  }

  // Requires: count >= 0.
  QUILLON_ALWAYS_INLINE FgfPositions Positions(std::int32_t count, int ordinates) {
    return {Take(std::uint64_t(count) * PositionBytes(ordinates)), count, ordinates};
  }

  // A count and as many positions.
  QUILLON_ALWAYS_INLINE FgfPositions CountedPositions(int ordinates) {
    std::int32_t const count = Int32();
    if (count < 0) [[unlikely]] {
      Fail();
      return {nullptr, 0, ordinates};
    }
    return Positions(count, ordinates);
  }

 private:
  std::uint64_t Left() const { return static_cast<std::uint64_t>(end_ - at_); }

  unsigned char const* at_;
  unsigned char const* end_;
  bool failed_ = false;
};

}  // namespace fdo

#endif  // GEOMETRY_STREAM_CURSOR_H_
