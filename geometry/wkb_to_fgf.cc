#include <fdo/geometry_stream.h>

#include "geometry/invalid_stream.h"
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

// Reads one WKB geometry of either form and writes it as FGF.
// Errors: each function returns false when the cursor failed and when FGF has no place for what was
//   read; the cursor tells which.
class WkbToFgfConversion {
 public:
  WkbToFgfConversion(WkbCursor& in, StreamWriter& out) : in_(in), out_(out) {}

  bool Geometry(FgfLayout const* parent, int level) {
    if (level > kFgfMaxLevels) in_.Fail();
    WkbHeader header = in_.Header();
    if (in_.Failed() || header.type == 0) return false;
    if (parent != nullptr && parent->partType != 0 && parent->partType != header.type) {
      // A plain line or polygon is a curve, too, where curves are expected.
      bool const plain = (parent->partType == kFgfCurveString && header.code == kWkbLineString) ||
                         (parent->partType == kFgfCurvePolygon && header.code == kWkbPolygon);
      if (!plain) return false;
      header.type = parent->partType;
    }
    FgfLayout const& layout = *LayoutOf(header.type);
    out_.Int32(header.type);
    if (layout.body != FgfBody::kParts) out_.Int32(header.dimensionality);
    int const ordinates = OrdinateCount(header.dimensionality);
    switch (layout.body) {
      case FgfBody::kPosition:
        return in_.Positions(1, ordinates, out_);
      case FgfBody::kPositions:
        return CountedPositions(ordinates);
      case FgfBody::kRings:
        return Polygon(ordinates);
      case FgfBody::kSegments:
        return Curve(header);
      case FgfBody::kCurveRings:
        return CurvePolygon(header);
      case FgfBody::kParts:
        return Parts(layout, level);
    }
    return false;
  }

 private:
  bool CountedPositions(int ordinates) {
    std::int32_t const count = in_.Count(PositionBytes(ordinates));
    if (in_.Failed()) return false;
    out_.Int32(count);
    return in_.Positions(count, ordinates, out_);
  }

  bool Polygon(int ordinates) {
    std::int32_t const rings = in_.RingCount(kSmallestRing);
    if (in_.Failed()) return false;
    out_.Int32(rings);
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      if (!CountedPositions(ordinates)) return false;
    }
    return true;
  }

  bool Parts(FgfLayout const& layout, int level) {
    std::int32_t const parts = in_.Count(kWkbHeaderBytes);
    if (in_.Failed()) return false;
    out_.Int32(parts);
    for (std::int32_t part = 0; part < parts; ++part) {
      if (!Geometry(&layout, level + 1)) return false;
    }
    return true;
  }

  bool CurvePolygon(WkbHeader const& polygon) {
    bool const plain = polygon.code == kWkbPolygon;
    std::int32_t const rings = in_.Count(plain ? kSmallestRing : kWkbCountedHeaderBytes);
    if (in_.Failed()) return false;
    out_.Int32(rings);
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      WkbHeader const header =
          plain ? WkbHeader{kWkbLineString, kFgfLineString, polygon.dimensionality} : in_.Header();
      if (in_.Failed() || header.dimensionality != polygon.dimensionality || !Curve(header)) return false;
    }
    return true;
  }

  // Writes start position, count and segments of the line string, arc string or compound curve whose
  // header has been read.
  bool Curve(WkbHeader const& header) {
    last_ = nullptr;
    segmentCount_ = nullptr;
    if (header.code != kWkbCompoundCurve) return CurveMember(header);
    std::int32_t const members = in_.Count(kWkbCountedHeaderBytes);
    if (in_.Failed() || members == 0) return false;
    for (std::int32_t i = 0; i < members; ++i) {
      WkbHeader const member = in_.Header();
      if (in_.Failed() || member.dimensionality != header.dimensionality || !CurveMember(member)) {
        return false;
      }
    }
    return true;
  }

  bool CurveMember(WkbHeader const& header) {
    bool const isLine = header.code == kWkbLineString;
    if (!isLine && header.code != kWkbCircularString) return false;
    int const ordinates = OrdinateCount(header.dimensionality);
    std::int32_t const points = in_.Count(PositionBytes(ordinates));
    bool const complete = isLine ? points >= 2 : points >= 3 && points % 2 == 1;
    if (in_.Failed() || !complete || !StartMember(ordinates)) return false;

    std::int32_t const segments = isLine ? 1 : (points - 1) / 2;
    Store(segmentCount_, Load<std::int32_t>(segmentCount_) + segments);
    for (std::int32_t segment = 0; segment < segments; ++segment) {
      out_.Int32(isLine ? kFgfLine : kFgfArc);
      if (isLine) out_.Int32(points - 1);
      if (!in_.Positions(isLine ? points - 1 : 2, ordinates, out_)) return false;
    }
    last_ = out_.At() - PositionBytes(ordinates);
    return true;
  }

  // The first position of a member starts the curve, or repeats where the member before it ended.
  bool StartMember(int ordinates) {
    unsigned char* const start = out_.At();
    if (!in_.Positions(1, ordinates, out_)) return false;
    if (last_ == nullptr) {
      segmentCount_ = out_.At();
      out_.Int32(0);
      return true;
    }
    bool const joined = SamePosition(last_, start, ordinates);
    out_.Remove(start, PositionBytes(ordinates));
    return joined;
  }

  WkbCursor& in_;
  StreamWriter& out_;
  unsigned char const* last_ = nullptr;    // end of the curve so far, in the output; null at its start
  unsigned char* segmentCount_ = nullptr;  // of the curve, in the output
};

std::size_t Convert(WkbCursor& in, unsigned char* to) {
  StreamWriter out(to);
  return WkbToFgfConversion(in, out).Geometry(nullptr, 1) ? out.Written() : 0;
}

}  // namespace

std::size_t WkbToFgf(unsigned char const* wkb, std::size_t length, unsigned char* out) {
  WkbCursor in(wkb, wkb + length, WkbForm::kOlder);
  std::size_t const written = Convert(in, out);
  if (in.Failed()) ThrowInvalidStream();
  return written;
}

std::size_t IsoWkbToFgf(unsigned char const* wkb, std::size_t length, unsigned char* out) noexcept {
  WkbCursor in(wkb, wkb + length, WkbForm::kIso);
  return Convert(in, out);
}

}  // namespace fdo
