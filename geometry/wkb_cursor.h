// WkbCursor reads WKB, whose every geometry begins with its own byte order and type.
#ifndef GEOMETRY_WKB_CURSOR_H_
#define GEOMETRY_WKB_CURSOR_H_

#include "geometry/stream_cursor.h"
#include "geometry/stream_writer.h"
#include "geometry/wkb_layout.h"

namespace fdo {

enum class WkbForm : std::uint8_t {
  kOlder,  // the byte order is not looked at, Z is a bit, types 1 to 6
  kIso,    // both byte orders, Z as a bit or all dimensionalities as thousands, types 1 to 12
};

struct WkbHeader {
  std::uint32_t code;  // without dimensionality
  std::int32_t type;   // of FGF; 0 when the code has none in this form, or the header does not fit
  int dimensionality;
};

template <WkbForm form>
class WkbCursor {
 public:
  WkbCursor(unsigned char const* begin, unsigned char const* end) : in_(begin, end) {}

  bool Failed() const { return in_.Failed(); }
  QUILLON_ALWAYS_INLINE void Fail() { in_.Fail(); }

  // Reads the header of a geometry; a failed cursor gives one without a type. What follows, up to the next
  // header, is in its byte order.
  QUILLON_ALWAYS_INLINE WkbHeader Header() {
    lastHeader_ = in_.At();
    unsigned char const order = in_.Byte();
    if constexpr (form == WkbForm::kOlder) {
      std::uint32_t const word = static_cast<std::uint32_t>(in_.Int32());
      std::uint32_t const code = word & ~kWkbZBit;
      bool const known = code <= kFgfMultiPolygon;
      return {code, known ? FgfTypeOfWkb(code) : 0, (word & kWkbZBit) != 0 ? kDimensionalityZ : 0};
    }
    if (order != kWkbBigEndian && order != kWkbLittleEndian) in_.Fail();
    swapped_ = order == kWkbBigEndian;
    std::uint32_t const word = static_cast<std::uint32_t>(Int32());
    if ((word & kWkbZBit) != 0) {
      std::uint32_t const code = word & ~kWkbZBit;
      return {code, FgfTypeOfWkb(code), kDimensionalityZ};
    }
    std::uint32_t const code = word % kIsoDimensionality;
    std::uint32_t const dimensionality = word / kIsoDimensionality;
    if (dimensionality > (kDimensionalityZ | kDimensionalityM)) return {code, 0, 0};
    return {code, FgfTypeOfWkb(code), static_cast<int>(dimensionality)};
  }

  // Whether a header with the same bytes as the last one comes next; it is then taken.
  QUILLON_ALWAYS_INLINE bool TakeSameHeader() { return in_.TakeIfNext(lastHeader_, kWkbHeaderBytes); }

  QUILLON_ALWAYS_INLINE std::int32_t Count(std::size_t smallest) { return in_.Checked(Int32(), smallest); }

  // Below 1 it means no rings, in the older form only.
  QUILLON_ALWAYS_INLINE std::int32_t RingCount(std::size_t smallest) {
    std::int32_t const count = Int32();
    return count < 0 && form == WkbForm::kOlder ? count : in_.Checked(count, smallest);
  }

  // Requires: count >= 0.
  QUILLON_ALWAYS_INLINE FgfPositions Positions(std::int32_t count, int ordinates) {
    return in_.Positions(count, ordinates);
  }

  // A count and as many positions.
  QUILLON_ALWAYS_INLINE FgfPositions CountedPositions(int ordinates) {
    std::int32_t const count = Int32();
    if (count < 0) in_.Fail();
    return Positions(in_.Failed() ? 0 : count, ordinates);
  }

  QUILLON_ALWAYS_INLINE void Copy(FgfPositions const& positions, StreamWriter& out) const {
    if (swapped_) {
      out.SwappedPositions(positions.bytes, positions.count, positions.ordinates);
    } else {
      out.Positions(positions.bytes, positions.count, positions.ordinates);
    }
  }

 private:
  QUILLON_ALWAYS_INLINE std::int32_t Int32() {
    std::int32_t const value = in_.Int32();
    if (!swapped_) return value;
    std::uint32_t const bits = static_cast<std::uint32_t>(value);
    return static_cast<std::int32_t>(bits << 24 | (bits & 0xFF00U) << 8 | (bits >> 8 & 0xFF00U) | bits >> 24);
  }

  StreamCursor in_;
  unsigned char const* lastHeader_ = nullptr;
  bool swapped_ = false;
};

}  // namespace fdo

#endif  // GEOMETRY_WKB_CURSOR_H_
