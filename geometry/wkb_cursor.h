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
  std::int32_t type;   // of FGF, 0 when the code has none in this form
  int dimensionality;
};

class WkbCursor {
 public:
  WkbCursor(unsigned char const* begin, unsigned char const* end, WkbForm form)
      : in_(begin, end), form_(form) {}

  bool Failed() const { return in_.Failed(); }
  void Fail() { in_.Fail(); }

  // Reads the header of a geometry. What follows, up to the next header, is in its byte order.
  WkbHeader Header() {
    unsigned char const order = in_.Byte();
    if (form_ == WkbForm::kOlder) {
      std::uint32_t const word = static_cast<std::uint32_t>(in_.Int32());
      std::uint32_t const code = word & ~kWkbZBit;
      bool const known = code <= kFgfMultiPolygon;
      return {code, known ? FgfTypeOfIsoWkb(code) : 0, (word & kWkbZBit) != 0 ? kDimensionalityZ : 0};
    }
    if (order != kWkbBigEndian && order != kWkbLittleEndian) in_.Fail();
    swapped_ = order == kWkbBigEndian;
    std::uint32_t const word = static_cast<std::uint32_t>(Int32());
    if ((word & kWkbZBit) != 0) {
      std::uint32_t const code = word & ~kWkbZBit;
      return {code, FgfTypeOfIsoWkb(code), kDimensionalityZ};
    }
    std::uint32_t const code = word % kIsoDimensionality;
    std::uint32_t const dimensionality = word / kIsoDimensionality;
    if (dimensionality > (kDimensionalityZ | kDimensionalityM)) return {code, 0, 0};
    return {code, FgfTypeOfIsoWkb(code), static_cast<int>(dimensionality)};
  }

  std::int32_t Count(std::size_t smallest) { return in_.Checked(Int32(), smallest); }

  // Below 1 it means no rings, in the older form only.
  std::int32_t RingCount(std::size_t smallest) {
    std::int32_t const count = Int32();
    return count < 0 && form_ == WkbForm::kOlder ? count : in_.Checked(count, smallest);
  }

  // Copies the next positions.
  bool Positions(std::int32_t count, int ordinates, StreamWriter& out) {
    FgfPositions const positions = in_.Positions(count, ordinates);
    if (in_.Failed()) return false;
    if (swapped_) {
      out.SwappedPositions(positions.bytes, count, ordinates);
    } else {
      out.Positions(positions.bytes, count, ordinates);
    }
    return true;
  }

 private:
  std::int32_t Int32() {
    unsigned char const* const taken = in_.Take(sizeof(std::int32_t));
    if (taken == nullptr) return 0;
    if (!swapped_) return Load<std::int32_t>(taken);
    return static_cast<std::int32_t>(std::uint32_t(taken[0]) << 24 | std::uint32_t(taken[1]) << 16 |
                                     std::uint32_t(taken[2]) << 8 | std::uint32_t(taken[3]));
  }

  StreamCursor in_;
  WkbForm form_;
  bool swapped_ = false;
};

}  // namespace fdo

#endif  // GEOMETRY_WKB_CURSOR_H_
