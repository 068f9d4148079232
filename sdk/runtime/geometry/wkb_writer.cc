#include "sdk/runtime/geometry/wkb_writer.h"

#include <cmath>
#include <limits>
#include <vector>

#include "sdk/runtime/geometry/wkb_layout.h"

namespace fdo_sdk {

namespace {

constexpr FdoByte kLittleEndian = 1;

struct TypePair {
  FdoInt32 fgf;
  WkbType wkb;
};
constexpr TypePair kTypes[] = {
    {FdoGeometryType_Point, kWkbPoint},
    {FdoGeometryType_LineString, kWkbLineString},
    {FdoGeometryType_Polygon, kWkbPolygon},
    {FdoGeometryType_MultiPoint, kWkbMultiPoint},
    {FdoGeometryType_MultiLineString, kWkbMultiLineString},
    {FdoGeometryType_MultiPolygon, kWkbMultiPolygon},
    {FdoGeometryType_MultiGeometry, kWkbGeometryCollection},
    {FdoGeometryType_CurvePolygon, kWkbCurvePolygon},
    {FdoGeometryType_MultiCurveString, kWkbMultiCurve},
    {FdoGeometryType_MultiCurvePolygon, kWkbMultiSurface},
};

WkbType TypeOf(FdoInt32 fgfType) {
  for (TypePair const& pair : kTypes) {
    if (pair.fgf == fgfType) return pair.wkb;
  }
  ThrowInvalidFgf();
}

class WkbSink : public FgfSink {
 public:
  explicit WkbSink(FgfBuilder& out) : out_(out) {}

  void BeginGeometry(FgfHead const& head) {
    if (head.type == FdoGeometryType_CurveString) return BeginCurve(head.dimensionality);
    if (head.dimensionality < 0) open_.push_back({out_.Size(), 0});
    Header(TypeOf(head.type), head.dimensionality < 0 ? 0 : head.dimensionality);
    if (head.type != FdoGeometryType_Point) out_.Int32(head.count);
    rings_ = head.type == FdoGeometryType_CurvePolygon ? head.dimensionality : -1;
  }

  void EndGeometry(FgfHead const& head) {
    if (head.type == FdoGeometryType_CurveString) EndCurve();
    if (head.dimensionality < 0) {
      Open const ended = open_.back();
      open_.pop_back();
      out_.SetInt32(ended.header + 1,
                    static_cast<FdoInt32>(TypeWord(TypeOf(head.type), ended.dimensionality)));
      if (!open_.empty()) open_.back().dimensionality |= ended.dimensionality;
    } else if (!open_.empty()) {
      open_.back().dimensionality |= head.dimensionality;
    }
  }

  void BeginRing(FdoInt32 count) {
    if (rings_ >= 0) return BeginCurve(rings_);
    out_.Int32(count);
  }
  void EndRing() {
    if (rings_ >= 0) EndCurve();
  }

  void Positions(PositionSpan const& positions) { out_.Positions(positions); }
  void Start(PositionSpan const& start) { start_ = start; }
  void Arc(PositionSpan const& previous, PositionSpan const& midAndEnd) {
    segments_.push_back({previous, midAndEnd, true});
    ++arcs_;
  }
  void Line(PositionSpan const& previous, PositionSpan const& rest) {
    segments_.push_back({previous, rest, false});
  }

 private:
  // A geometry of parts whose type word waits for the ordinates of its parts.
  struct Open {
    std::size_t header;
    FdoInt32 dimensionality;
  };
  struct Segment {
    PositionSpan previous;
    PositionSpan rest;
    bool isArc;
  };

  static std::uint32_t TypeWord(WkbType type, FdoInt32 dimensionality) {
    return type + kWkbThousand * static_cast<std::uint32_t>(dimensionality);
  }

  void Header(WkbType type, FdoInt32 dimensionality) {
    out_.Byte(kLittleEndian);
    out_.Uint32(TypeWord(type, dimensionality));
  }

  void BeginCurve(FdoInt32 dimensionality) {
    dimensionality_ = dimensionality;
    segments_.clear();
    arcs_ = 0;
  }

  void EndCurve() {
    if (arcs_ == segments_.size()) return Arcs(0, segments_.size());
    Header(kWkbCompoundCurve, dimensionality_);
    std::size_t const countAt = out_.Size();
    out_.Int32(0);
    FdoInt32 members = 0;
    for (std::size_t i = 0; i < segments_.size(); ++members) {
      std::size_t end = i + 1;
      if (segments_[i].isArc) {
        while (end < segments_.size() && segments_[end].isArc) ++end;
        Arcs(i, end);
      } else {
        Header(kWkbLineString, dimensionality_);
        out_.Int32(segments_[i].rest.count + 1);
        out_.Positions(segments_[i].previous);
        out_.Positions(segments_[i].rest);
      }
      i = end;
    }
    out_.SetInt32(countAt, members);
  }

  void Arcs(std::size_t begin, std::size_t end) {
    PositionSpan const& start = begin < end ? segments_[begin].previous : start_;
    Header(kWkbCircularString, dimensionality_);
    // What FGF must write as a start that is nowhere is an empty curve.
    bool const empty = begin == end && std::isnan(start.X(0)) && std::isnan(start.Y(0));
    std::size_t const positions = empty ? 0 : 1 + 2 * (end - begin);
    if (positions > std::size_t{std::numeric_limits<FdoInt32>::max()}) ThrowInvalidFgf();
    out_.Int32(static_cast<FdoInt32>(positions));
    if (empty) return;
    out_.Positions(start);
    for (std::size_t i = begin; i < end; ++i) out_.Positions(segments_[i].rest);
  }

  FgfBuilder& out_;
  std::vector<Open> open_;
  FdoInt32 rings_ = -1;          // the dimensionality of the curve polygon whose rings follow
  FdoInt32 dimensionality_ = 0;  // of the curve being collected
  PositionSpan start_{nullptr, 0, 0};
  std::vector<Segment> segments_;
  std::size_t arcs_ = 0;
};

}  // namespace

void WriteWkb(FdoByte const* fgf, std::size_t size, FgfBuilder& out) {
  FgfCursor in(fgf, size);
  WkbSink sink(out);
  FgfWalk<WkbSink>(in, sink).Geometry();
}

}  // namespace fdo_sdk
