#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/stream_writer.h"
#include "geometry/wkb_header.h"
#include "port/inlining.h"

namespace fdo {
namespace {

// A curve in WKB is one member (a line string, or an arc string of all adjoining arcs) or several in a
// compound curve. Which of both is known only at its end: the compound header is written first and
// taken out again where it is not needed.
class CurveWriter {
 public:
  // loneLine: a single line segment may stand for itself, because a curve is what is expected here.
  void Begin(StreamWriter& out, int dimensionality, bool loneLine) {
    dimensionality_ = dimensionality;
    loneLine_ = loneLine;
    header_ = out.At();
    arcCount_ = nullptr;
    members_ = 0;
    AppendWkbHeader(out, IsoCode(kWkbCompoundCurve), 0);
  }

  void Start(FgfPositions const& position) { last_ = position.bytes; }

  bool Segment(StreamWriter& out, std::int32_t type, FgfPositions const& positions) {
    if (positions.count < 1) return false;
    if (type == kFgfArc) {
      if (arcCount_ == nullptr) {
        arcCount_ = out.At() + kWkbHeaderBytes;
        BeginMember(out, kWkbCircularString, 1, positions.ordinates);
      }
      Store(arcCount_, Load<std::uint32_t>(arcCount_) + 2);
    } else {
      arcCount_ = nullptr;
      BeginMember(out, kWkbLineString, static_cast<std::uint32_t>(positions.count) + 1, positions.ordinates);
    }
    out.Positions(positions.bytes, positions.count, positions.ordinates);
    last_ = positions.bytes + std::size_t(positions.count - 1) * PositionBytes(positions.ordinates);
    return true;
  }

  void End(StreamWriter& out) {
    bool const arcsOnly = arcCount_ != nullptr;
    if (members_ == 1 && (arcsOnly || loneLine_)) {
      out.Remove(header_, kWkbCountedHeaderBytes);
    } else {
      Store(header_ + kWkbHeaderBytes, members_);
    }
  }

 private:
  std::uint32_t IsoCode(std::uint32_t code) const {
    return code + static_cast<std::uint32_t>(dimensionality_) * kIsoDimensionality;
  }

  // Each member repeats the position that it starts from.
  void BeginMember(StreamWriter& out, std::uint32_t code, std::uint32_t points, int ordinates) {
    ++members_;
    AppendWkbHeader(out, IsoCode(code), points);
    out.Positions(last_, 1, ordinates);
  }

  int dimensionality_ = 0;
  bool loneLine_ = false;
  unsigned char* header_ = nullptr;
  unsigned char* arcCount_ = nullptr;    // of the arc string being written, null after a line
  unsigned char const* last_ = nullptr;  // where the curve has come to, in the stream
  std::uint32_t members_ = 0;
};

// Stops the walk at what WKB cannot hold.
class IsoWkbSink : public PassingSink {
 public:
  IsoWkbSink(unsigned char* out, CurveWriter& curve) : out_(out), curve_(curve) {}

  std::size_t Written() const { return out_.Written(); }

  QUILLON_ALWAYS_INLINE bool BeginGeometry(FgfGeometry const& head) {
    if (head.dimensionality != dimensionality_ && head.dimensionality != kNoDimensionality) {
      if (dimensionality_ != kNoDimensionality) return false;
      SetDimensionality(head.dimensionality);
    }
    if (head.count < 0 || !MayHold(head.parentType, head.type)) return false;
    curvedRings_ = head.type == kFgfCurvePolygon;
    if (head.type == kFgfCurveString) return BeginCurve(head.count, head.parentType == kFgfMultiCurveString);
    std::uint32_t const code = IsoWkbOf(head.type) + typeOffset_;
    if (head.type == kFgfPoint) {
      AppendWkbHeader(out_, code);
    } else {
      AppendWkbHeader(out_, code, static_cast<std::uint32_t>(head.count));
    }
    return true;
  }

  QUILLON_ALWAYS_INLINE bool BeginRing(std::int32_t, std::int32_t count) {
    if (curvedRings_) return BeginCurve(count, true);
    out_.Int32(count);
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Positions(FgfPositions const& positions) {
    out_.Positions(positions.bytes, positions.count, positions.ordinates);
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Start(FgfPositions const& position) {
    curve_.Start(position);
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Segment(std::int32_t type, FgfPositions const& positions) {
    StreamWriter out = out_;  // as out_ says
    bool const written = curve_.Segment(out, type, positions);
    out_ = out;
    return written;
  }

  QUILLON_ALWAYS_INLINE bool EndRing() {
    if (curvedRings_) EndCurve();
    return true;
  }

  QUILLON_ALWAYS_INLINE bool EndGeometry(FgfGeometry const& head) {
    if (head.type == kFgfCurveString) EndCurve();
    return true;
  }

  bool UnknownType(std::int32_t) { return false; }

 private:
  // WKB states the dimensionality of a collection in front, FGF only further in. Up to the first
  // geometry that has one, nothing but headers of collections has been written.
  QUILLON_ALWAYS_INLINE void SetDimensionality(int dimensionality) {
    dimensionality_ = dimensionality;
    typeOffset_ = static_cast<std::uint32_t>(dimensionality) * kIsoDimensionality;
    for (unsigned char* header = out_.Begin(); header != out_.At(); header += kWkbCountedHeaderBytes) {
      Store(header + 1, Load<std::uint32_t>(header + 1) + typeOffset_);
    }
  }

  QUILLON_ALWAYS_INLINE bool BeginCurve(std::int32_t segments, bool loneLine) {
    if (segments < 1) return false;
    StreamWriter out = out_;
    curve_.Begin(out, dimensionality_, loneLine);
    out_ = out;
    return true;
  }

  QUILLON_ALWAYS_INLINE void EndCurve() {
    StreamWriter out = out_;
    curve_.End(out);
    out_ = out;
  }

  StreamWriter out_;  // the curve writer is lent copies: this one can then stay in registers
  CurveWriter& curve_;
  int dimensionality_ = kNoDimensionality;  // of the whole stream, once known
  std::uint32_t typeOffset_ = 0;
  bool curvedRings_ = false;
};

}  // namespace

std::size_t FgfToIsoWkb(unsigned char const* fgf, std::size_t length, unsigned char* out) noexcept {
  StreamCursor in(fgf, fgf + length);
  FgfNesting nesting;
  CurveWriter curve;
  IsoWkbSink sink(out, curve);
  return WalkFgf(in, sink, nesting) ? sink.Written() : 0;
}

}  // namespace fdo
