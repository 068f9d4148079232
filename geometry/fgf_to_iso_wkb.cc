#include <fdo/geometry_stream.h>

#include "geometry/fgf_walk.h"
#include "geometry/stream_writer.h"
#include "geometry/wkb_layout.h"

namespace fdo {
namespace {

// Stops at the first geometry that has a dimensionality. WKB states that of a collection in front,
// FGF only further in.
struct FirstDimensionality : PassingSink {
  bool BeginGeometry(FgfGeometry const& head) {
    if (head.dimensionality == kNoDimensionality) return true;
    found = head.dimensionality;
    return false;
  }
  int found = 0;
};

// A curve in WKB is one member (a line string, or an arc string of all adjoining arcs) or several in a
// compound curve. Which of both is known only at its end: the compound header is written first and
// taken out again where it is not needed.
class CurveWriter {
 public:
  CurveWriter(StreamWriter& out, int dimensionality)
      : out_(out),
        typeOffset_(static_cast<std::uint32_t>(dimensionality) * kIsoDimensionality),
        ordinates_(OrdinateCount(dimensionality)) {}

  void Header(std::uint32_t isoWkb) {
    out_.Byte(kWkbLittleEndian);
    out_.Int32(isoWkb + typeOffset_);
  }

  // loneLine: a single line segment may stand for itself, because a curve is what is expected here.
  bool Begin(std::int32_t segments, bool loneLine) {
    if (segments < 1) return false;
    header_ = out_.At();
    members_ = 0;
    arcCount_ = nullptr;
    loneLine_ = loneLine;
    Header(kWkbCompoundCurve);
    out_.Int32(0);
    return true;
  }

  void Start(FgfPositions const& position) { last_ = position.bytes; }

  bool Segment(std::int32_t type, FgfPositions const& positions) {
    if (positions.count < 1) return false;
    if (type == kFgfArc) {
      if (arcCount_ == nullptr) {
        arcCount_ = BeginMember(kWkbCircularString, 1);
      }
      Store(arcCount_, Load<std::uint32_t>(arcCount_) + 2);
    } else {
      arcCount_ = nullptr;
      BeginMember(kWkbLineString, static_cast<std::uint32_t>(positions.count) + 1);
    }
    out_.Positions(positions.bytes, positions.count, ordinates_);
    last_ = positions.bytes + std::size_t(positions.count - 1) * PositionBytes(ordinates_);
    return true;
  }

  void End() {
    bool const arcsOnly = arcCount_ != nullptr;
    if (members_ == 1 && (arcsOnly || loneLine_)) {
      out_.Remove(header_, kWkbCountedHeaderBytes);
    } else {
      Store(header_ + kWkbHeaderBytes, members_);
    }
    header_ = nullptr;
  }

  bool Open() const { return header_ != nullptr; }

 private:
  // Returns where the count of points is. Each member repeats the position that it starts from.
  unsigned char* BeginMember(std::uint32_t isoWkb, std::uint32_t points) {
    ++members_;
    Header(isoWkb);
    unsigned char* const count = out_.At();
    out_.Int32(points);
    out_.Positions(last_, 1, ordinates_);
    return count;
  }

  StreamWriter& out_;
  std::uint32_t typeOffset_;
  int ordinates_;
  unsigned char* header_ = nullptr;    // of the curve being written, null between curves
  unsigned char* arcCount_ = nullptr;  // of the arc string being written, null after a line
  unsigned char const* last_ = nullptr;
  std::uint32_t members_ = 0;
  bool loneLine_ = false;
};

// Stops the walk at what WKB cannot hold.
class IsoWkbSink : public PassingSink {
 public:
  IsoWkbSink(unsigned char* out, int dimensionality)
      : out_(out), dimensionality_(dimensionality), curve_(out_, dimensionality) {}
  IsoWkbSink(IsoWkbSink const&) = delete;
  IsoWkbSink& operator=(IsoWkbSink const&) = delete;

  std::size_t Written() const { return out_.Written(); }

  bool BeginGeometry(FgfGeometry const& head) {
    if (head.dimensionality != kNoDimensionality && head.dimensionality != dimensionality_) return false;
    if (head.parentType != 0) {
      std::int32_t const expected = LayoutOf(head.parentType)->partType;
      if (expected != 0 && expected != head.type) return false;
    }
    if (head.count < 0) return false;
    FgfLayout const& layout = *LayoutOf(head.type);
    if (layout.body == FgfBody::kSegments) {
      return curve_.Begin(head.count, head.parentType == kFgfMultiCurveString);
    }
    curvedRings_ = layout.body == FgfBody::kCurveRings;
    curve_.Header(layout.isoWkb);
    if (layout.body != FgfBody::kPosition) out_.Int32(head.count);
    return true;
  }

  bool BeginRing(std::int32_t, std::int32_t count) {
    if (curvedRings_) return curve_.Begin(count, true);
    out_.Int32(count);
    return true;
  }

  bool Positions(FgfPositions const& positions) {
    out_.Positions(positions.bytes, positions.count, positions.ordinates);
    return true;
  }

  bool Start(FgfPositions const& position) {
    curve_.Start(position);
    return true;
  }

  bool Segment(std::int32_t type, FgfPositions const& positions) { return curve_.Segment(type, positions); }

  bool EndRing() { return EndCurve(); }
  bool EndGeometry(FgfGeometry const&) { return EndCurve(); }

  bool UnknownType(std::int32_t) { return false; }

 private:
  bool EndCurve() {
    if (curve_.Open()) curve_.End();
    return true;
  }

  StreamWriter out_;
  int dimensionality_;
  CurveWriter curve_;
  bool curvedRings_ = false;
};

}  // namespace

std::size_t FgfToIsoWkb(unsigned char const* fgf, std::size_t length, unsigned char* out) noexcept {
  StreamCursor ahead(fgf, fgf + length);
  FirstDimensionality first;
  WalkFgf(ahead, first);

  StreamCursor in(fgf, fgf + length);
  IsoWkbSink sink(out, first.found);
  return WalkFgf(in, sink) ? sink.Written() : 0;
}

}  // namespace fdo
