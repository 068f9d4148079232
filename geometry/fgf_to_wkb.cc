#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"
#include "geometry/plain_geometry.h"
#include "geometry/stream_writer.h"
#include "geometry/wkb_header.h"
#include "port/inlining.h"

namespace fdo {
namespace {

// Writes the older form. What it does not carry stops the walk.
class WkbSink : public PassingSink {
 public:
  explicit WkbSink(unsigned char* out) : out_(out) {}

  std::size_t Written() const { return out_.Written(); }

  QUILLON_ALWAYS_INLINE bool BeginGeometry(FgfGeometry const& head) {
    if (!IsPlainType(head.type) || !MayHold(head.parentType, head.type)) return false;
    AppendWkbHeader(out_, static_cast<std::uint32_t>(head.type));
    if (head.dimensionality != kNoDimensionality) {
      if ((head.dimensionality & kDimensionalityM) != 0) return false;
      // The leading type word, also from a part: that is the documented header of a multi-geometry.
      if ((head.dimensionality & kDimensionalityZ) != 0) {
        Store(out_.Begin() + 1, static_cast<std::uint32_t>(head.type) | kWkbZBit);
      }
    }
    if (head.type != kFgfPoint) out_.Int32(head.count);
    return true;
  }

  QUILLON_ALWAYS_INLINE bool BeginRing(std::int32_t, std::int32_t count) {
    out_.Int32(count);
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Positions(FgfPositions const& positions) {
    out_.Positions(positions.bytes, positions.count, positions.ordinates);
    return true;
  }

  bool UnknownType(std::int32_t) { return false; }

 private:
  StreamWriter out_;
};

// 0 for anything but a sound point, line string or polygon without M.
QUILLON_ALWAYS_INLINE std::size_t PlainToWkb(unsigned char const* fgf, std::size_t length,
                                             unsigned char* out) {
  if (length < kSingleHeadBytes) return 0;
  auto const type = Load<std::uint32_t>(fgf);
  auto const dimensionality = Load<std::uint32_t>(fgf + sizeof(type));
  if (!IsPointLineOrPolygon(type) || dimensionality > kDimensionalityZ) return 0;
  bool const hasZ = dimensionality == kDimensionalityZ;
  unsigned char const* const body = fgf + kSingleHeadBytes;
  unsigned char const* const end = EndOfPlainBody(type, PositionBytes(hasZ ? 3 : 2), body, fgf + length);
  if (end == nullptr) return 0;
  out[0] = kWkbLittleEndian;
  Store(out + 1, type | (hasZ ? kWkbZBit : 0));
  return kWkbHeaderBytes + CopyPlainBody(out + kWkbHeaderBytes, body, end);
}

// A function of its own, so that the short way does not set up its frame.
QUILLON_NEVER_INLINE std::size_t WalkedToWkb(unsigned char const* fgf, std::size_t length,
                                             unsigned char* out) {
  StreamCursor in(fgf, fgf + length);
  FgfNesting nesting;
  WkbSink sink(out);
  bool const complete = WalkFgf(in, sink, nesting);
  if (in.Failed()) ThrowInvalidStream();
  return complete ? sink.Written() : 0;
}

}  // namespace

std::size_t FgfToWkb(unsigned char const* fgf, std::size_t length, unsigned char* out) {
  std::size_t const written = PlainToWkb(fgf, length, out);
  return written != 0 ? written : WalkedToWkb(fgf, length, out);
}

}  // namespace fdo
