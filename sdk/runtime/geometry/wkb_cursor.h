// WkbCursor reads the fields of WKB, checked, in either byte order.
#ifndef SDK_RUNTIME_GEOMETRY_WKB_CURSOR_H_
#define SDK_RUNTIME_GEOMETRY_WKB_CURSOR_H_

#include <algorithm>
#include <cstdint>
#include <limits>

#include "sdk/runtime/geometry/fgf_walk.h"
#include "sdk/runtime/geometry/wkb_layout.h"

namespace fdo_sdk {

// What stands before each geometry and each of its parts, however Z and M are marked.
struct WkbHead {
  std::uint32_t type;
  FdoInt32 dimensionality;
};

// Reads front to back and never past its end, in the byte order that was announced last. It borrows the
// bytes.
// Errors: throws ThrowInvalidWkb() for what does not fit.
class WkbCursor {
 public:
  WkbCursor(FdoByte const* begin, std::size_t size) : at_(begin), end_(begin + size) {}

  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }

  FdoByte const* Take(std::size_t size) {
    if (size > Left()) ThrowInvalidWkb();
    FdoByte const* const taken = at_;
    at_ += size;
    return taken;
  }

  void ByteOrder() {
    FdoByte const order = *Take(1);
    if (order > 1) ThrowInvalidWkb();
    bigEndian_ = order == 0;
  }

  std::uint32_t Uint32() {
    FdoByte const* const taken = Take(sizeof(std::uint32_t));
    return bigEndian_ ? Reversed<std::uint32_t>(taken) : Load<std::uint32_t>(taken);
  }

  FdoInt32 Count(std::size_t smallest) {
    std::uint32_t const count = Uint32();
    if (count > static_cast<std::uint32_t>(std::numeric_limits<FdoInt32>::max()) ||
        count > Left() / smallest) {
      ThrowInvalidWkb();
    }
    return static_cast<FdoInt32>(count);
  }

  // Hands them to out.Positions: all at once where they lie, or one by one when they have to be turned.
  template <class Out>
  void Positions(FdoInt32 count, FdoInt32 dimensionality, Out& out) {
    std::size_t const each = PositionBytes(dimensionality);
    FdoByte const* const taken = Take(static_cast<std::size_t>(count) * each);
    if (!bigEndian_) return out.Positions(PositionSpan{taken, count, dimensionality});
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoByte turned[4 * sizeof(double)];
      FdoByte const* const from = taken + static_cast<std::size_t>(i) * each;
      for (std::size_t at = 0; at < each; at += sizeof(double)) {
        std::reverse_copy(from + at, from + at + sizeof(double), turned + at);
      }
      out.Positions(PositionSpan{turned, 1, dimensionality});
    }
  }

  WkbHead Head() {
    ByteOrder();
    std::uint32_t word = Uint32();
    bool const oldZ = (word & kWkbOldZ) != 0;
    word &= ~kWkbOldZ;
    std::uint32_t const thousands = word / kWkbThousand;
    if (thousands > (FdoDimensionality_Z | FdoDimensionality_M)) ThrowInvalidWkb();
    FdoInt32 const iso = static_cast<FdoInt32>(thousands);
    return {word % kWkbThousand, oldZ ? iso | FdoDimensionality_Z : iso};
  }

 private:
  template <class Number>
  static Number Reversed(FdoByte const* from) {
    FdoByte turned[sizeof(Number)];
    std::reverse_copy(from, from + sizeof(Number), turned);
    return Load<Number>(turned);
  }

  FdoByte const* at_;
  FdoByte const* end_;
  bool bigEndian_ = false;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_WKB_CURSOR_H_
