#include <fdo/geometry_stream.h>

#include "geometry/invalid_stream.h"
#include "geometry/plain_geometry.h"
#include "geometry/stream_writer.h"
#include "geometry/wkb_cursor.h"

namespace fdo {
namespace {

// Whether two positions are at the same place. Equal bytes are, also where an ordinate is no number.
bool SamePosition(unsigned char const* left, unsigned char const* right, int ordinates) {
  if (std::memcmp(left, right, PositionBytes(ordinates)) == 0) return true;
  for (int ordinate = 0; ordinate < ordinates; ++ordinate) {
    std::size_t const at = std::size_t(ordinate) * sizeof(double);
    if (Load<double>(left + at) != Load<double>(right + at)) return false;
  }
  return true;
}

// Writes curves as FGF: one start position, then segments that each start where the last one ended.
// Errors: each function returns false when the cursor failed and when FGF cannot hold the curve.
template <WkbForm form>
class CurveReader {
 public:
  CurveReader(WkbCursor<form>& in, StreamWriter& out) : in_(in), out_(out) {}

  // Reads a curve polygon from its ring count on; a plain polygon is one of plain rings.
  bool Polygon(WkbHeader const& polygon) {
    bool const plain = polygon.code == kWkbPolygon;
    std::int32_t const rings = in_.Count(plain ? kSmallestRing : kWkbCountedHeaderBytes);
    if (in_.Failed()) return false;
    out_.Int32(rings);
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      WkbHeader const header =
          plain ? WkbHeader{kWkbLineString, kFgfLineString, polygon.dimensionality} : in_.Header();
      if (header.dimensionality != polygon.dimensionality || !Curve(header)) return false;
    }
    return true;
  }

  // Reads a line string, an arc string or a compound curve from its count on.
  bool Curve(WkbHeader const& header) {
    last_ = nullptr;
    if (header.code != kWkbCompoundCurve) return Member(header);
    std::int32_t const members = in_.Count(kWkbCountedHeaderBytes);
    if (members == 0) return false;
    for (std::int32_t i = 0; i < members; ++i) {
      WkbHeader const member = in_.Header();
      if (member.dimensionality != header.dimensionality || !Member(member)) return false;
    }
    return true;
  }

 private:
  bool Member(WkbHeader const& header) {
    bool const isLine = header.code == kWkbLineString;
    if (in_.Failed() || (!isLine && header.code != kWkbCircularString)) return false;
    int const ordinates = OrdinateCount(header.dimensionality);
    std::int32_t const points = in_.Count(PositionBytes(ordinates));
    bool const complete = isLine ? points >= 2 : points >= 3 && points % 2 == 1;
    if (!complete || !Start(in_.Positions(1, ordinates))) return false;

    std::int32_t const segments = isLine ? 1 : (points - 1) / 2;
    std::int32_t const positions = isLine ? points - 1 : 2;
    Store(segmentCount_, Load<std::int32_t>(segmentCount_) + segments);
    for (std::int32_t segment = 0; segment < segments; ++segment) {
      out_.Int32(isLine ? kFgfLine : kFgfArc);
      if (isLine) out_.Int32(positions);
      in_.Copy(in_.Positions(positions, ordinates), out_);
    }
    last_ = out_.At() - PositionBytes(ordinates);
    return true;
  }

  // The first position of a member starts the curve, or repeats where the member before it ended.
  bool Start(FgfPositions const& position) {
    unsigned char* const start = out_.At();
    in_.Copy(position, out_);
    if (last_ == nullptr) {
      segmentCount_ = out_.At();
      out_.Int32(0);
      return true;
    }
    bool const joined = SamePosition(last_, start, position.ordinates);
    out_.Remove(start, PositionBytes(position.ordinates));
    return joined;
  }

  WkbCursor<form>& in_;
  StreamWriter& out_;
  unsigned char const* last_ = nullptr;    // end of the curve so far, in the output; null at its start
  unsigned char* segmentCount_ = nullptr;  // of the curve, in the output
};

// Reads one WKB geometry and writes it as FGF. As in FgfWalk there is no recursion, and all but the
// curves is inlined, so that cursor and writer stay in registers.
// Errors: each function returns false when the cursor failed and when FGF has no place for what was
//   read; the cursor tells which.
template <WkbForm form>
class WkbToFgfConversion {
 public:
  WkbToFgfConversion(unsigned char const* wkb, std::size_t length, unsigned char* out)
      : in_(wkb, wkb + length), out_(out) {}

  bool Failed() const { return in_.Failed(); }

  // Returns the bytes written, 0 on failure.
  QUILLON_ALWAYS_INLINE std::size_t Run() {
    WkbHeader const header = in_.Header();
    FgfBody const body = BodyOf(header.type);
    bool const complete = body == FgfBody::kParts ? Multi(header) : Single(header, body);
    return complete ? out_.Written() : 0;
  }

 private:
  // A multi type that is open, and how many of its parts are still to come.
  struct Level {
    std::int32_t type;
    std::int32_t left;
  };

  QUILLON_ALWAYS_INLINE bool Multi(WkbHeader const& outermost) {
    Level around[kFgfMaxLevels];  // one more than has parts, so that what is too deep is seen below
    int depth = 0;
    if (!Open(outermost, around[0])) return false;
    for (;;) {
      while (around[depth].left == 0) {
        if (depth == 0) return true;
        --depth;
      }
      if (depth == kFgfMaxLevels - 1) {
        in_.Fail();
        return false;
      }
      --around[depth].left;
      WkbHeader header = in_.Header();
      if (!Fits(around[depth].type, header)) return false;
      FgfBody const body = BodyOf(header.type);
      if (body == FgfBody::kParts) {
        if (!Open(header, around[++depth])) return false;
      } else {
        if (!Single(header, body)) return false;
        if (body == FgfBody::kPosition && !LikePoints(header, around[depth].left)) return false;
      }
    }
  }

  // Reads the points that follow a point as long as their headers are the same bytes.
  QUILLON_ALWAYS_INLINE bool LikePoints(WkbHeader const& header, std::int32_t& left) {
    while (left > 0 && in_.TakeSameHeader()) {
      --left;
      if (!Single(header, FgfBody::kPosition)) return false;
    }
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Open(WkbHeader const& header, Level& level) {
    level = {header.type, in_.Count(kWkbHeaderBytes)};
    if (in_.Failed()) return false;
    out_.Int32(level.type);
    out_.Int32(level.left);
    return true;
  }

  // A plain line or polygon is a curve, too, where curves are expected.
  QUILLON_ALWAYS_INLINE static bool Fits(std::int32_t parentType, WkbHeader& header) {
    if (MayHold(parentType, header.type)) return true;
    if (parentType == kFgfMultiCurveString && header.code == kWkbLineString) {
      header.type = kFgfCurveString;
      return true;
    }
    if (parentType == kFgfMultiCurvePolygon && header.code == kWkbPolygon) {
      header.type = kFgfCurvePolygon;
      return true;
    }
    return false;
  }

  QUILLON_ALWAYS_INLINE bool Single(WkbHeader const& header, FgfBody body) {
    if (body == FgfBody::kNone) return false;
    out_.Int32(header.type);
    out_.Int32(header.dimensionality);
    int const ordinates = OrdinateCount(header.dimensionality);
    if (body == FgfBody::kPosition) return Copy(in_.Positions(1, ordinates));
    if (body == FgfBody::kPositions || body == FgfBody::kRings) return Lines(header, ordinates);
    return Curves(header);
  }

  // A line string is laid out as the one ring of a polygon, without the ring count.
  QUILLON_ALWAYS_INLINE bool Lines(WkbHeader const& header, int ordinates) {
    std::int32_t rings = 1;
    if (header.type == kFgfPolygon) {
      rings = in_.RingCount(kSmallestRing);
      if (in_.Failed()) return false;
      out_.Int32(rings);
    }
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      FgfPositions const positions = in_.CountedPositions(ordinates);
      if (in_.Failed()) return false;
      out_.Int32(positions.count);
      in_.Copy(positions, out_);
    }
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Copy(FgfPositions const& positions) {
    if (in_.Failed()) return false;
    in_.Copy(positions, out_);
    return true;
  }

  bool Curves(WkbHeader const& header) {
    WkbCursor<form> in = in_;  // the reader is lent copies: the members can then stay in registers
    StreamWriter out = out_;
    CurveReader<form> reader(in, out);
    bool const read = header.type == kFgfCurvePolygon ? reader.Polygon(header) : reader.Curve(header);
    in_ = in;
    out_ = out;
    return read;
  }

  WkbCursor<form> in_;
  StreamWriter out_;
};

// 0 for anything but a sound point, line string or polygon of the older form.
QUILLON_ALWAYS_INLINE std::size_t PlainToFgf(unsigned char const* wkb, std::size_t length,
                                             unsigned char* out) {
  if (length < kWkbHeaderBytes) return 0;
  auto const word = Load<std::uint32_t>(wkb + 1);
  std::uint32_t const type = word & ~kWkbZBit;
  if (!IsPointLineOrPolygon(type)) return 0;
  bool const hasZ = (word & kWkbZBit) != 0;
  unsigned char const* const body = wkb + kWkbHeaderBytes;
  unsigned char const* const end = EndOfPlainBody(type, PositionBytes(hasZ ? 3 : 2), body, wkb + length);
  if (end == nullptr) return 0;
  Store(out, type);
  Store(out + sizeof(type), std::int32_t{hasZ ? kDimensionalityZ : 0});
  return kSingleHeadBytes + CopyPlainBody(out + kSingleHeadBytes, body, end);
}

// A function of its own, so that the short way does not set up its frame.
QUILLON_NEVER_INLINE std::size_t WalkedToFgf(unsigned char const* wkb, std::size_t length,
                                             unsigned char* out) {
  WkbToFgfConversion<WkbForm::kOlder> conversion(wkb, length, out);
  std::size_t const written = conversion.Run();
  if (conversion.Failed()) ThrowInvalidStream();
  return written;
}

}  // namespace

std::size_t WkbToFgf(unsigned char const* wkb, std::size_t length, unsigned char* out) {
  std::size_t const written = PlainToFgf(wkb, length, out);
  return written != 0 ? written : WalkedToFgf(wkb, length, out);
}

std::size_t IsoWkbToFgf(unsigned char const* wkb, std::size_t length, unsigned char* out) noexcept {
  return WkbToFgfConversion<WkbForm::kIso>(wkb, length, out).Run();
}

}  // namespace fdo
