// Which way the rings of polygons run, and turning them.
#include <algorithm>

#include "FdoSpatial.h"
#include "sdk/runtime/spatial/fgf_rewrite.h"
#include "sdk/runtime/spatial/geos_build.h"
#include "sdk/runtime/spatial/ring_measures.h"

using namespace fdo_sdk;

namespace {

double SignedAreaOf(Curve const& curve) {
  std::vector<Xy> positions{{curve.start.X(0), curve.start.Y(0)}};
  for (CurveSegment const& segment : curve.segments) {
    if (segment.isArc) {
      CircularArc const arc({segment.previous.X(0), segment.previous.Y(0)},
                            {segment.rest.X(0), segment.rest.Y(0)}, {segment.rest.X(1), segment.rest.Y(1)});
      arc.Approximate(arc.IsStraight() ? 0 : kArcOffset * arc.Radius(), 0, positions);
      continue;
    }
    for (FdoInt32 i = 0; i < segment.rest.count; ++i)
      positions.push_back({segment.rest.X(i), segment.rest.Y(i)});
  }
  return SignedArea(positions);
}

double SignedAreaOf(PositionSpan const& ring) { return SignedArea(ring); }

// Copies all and turns the rings for which that is asked.
class TurnSink : public FgfRewrite<TurnSink> {
 public:
  // None turns every ring, the rules those that break them.
  explicit TurnSink(FdoPolygonVertexOrderRule rule) : rule_(rule) {}

  FdoInt32 TypeOf(FdoInt32 type) const { return type; }

  template <class Ring>
  void WriteRing(Ring const& ring, bool isOuter) {
    if (MustTurn(SignedAreaOf(ring), isOuter)) {
      WriteTurned(ring);
    } else {
      Write(ring);
    }
  }

  void WriteCurve(Curve const& curve) { Write(curve); }

  FgfBuilder const& Written() const { return out_; }

 private:
  bool MustTurn(double area, bool isOuter) const {
    if (rule_ == FdoPolygonVertexOrderRule_None) return true;
    bool const wantsPositive = (rule_ == FdoPolygonVertexOrderRule_CCW) == isOuter;
    return wantsPositive ? area < 0 : area > 0;
  }

  void Write(PositionSpan const& ring) {
    out_.Int32(ring.count);
    out_.Positions(ring);
  }

  void Write(Curve const& curve) {
    out_.Positions(curve.start);
    out_.Int32(static_cast<FdoInt32>(curve.segments.size()));
    for (CurveSegment const& segment : curve.segments) {
      WriteType(segment);
      out_.Positions(segment.rest);
    }
  }

  void WriteType(CurveSegment const& segment) {
    if (segment.isArc) return out_.Int32(FdoGeometryComponentType_CircularArcSegment);
    out_.Int32(FdoGeometryComponentType_LineStringSegment);
    out_.Int32(segment.rest.count);
  }

  void WriteBackwards(PositionSpan const& positions, FdoInt32 count) {
    for (FdoInt32 i = count - 1; i >= 0; --i) out_.Positions({positions.At(i), 1, positions.dimensionality});
  }

  void WriteTurned(PositionSpan const& ring) {
    out_.Int32(ring.count);
    WriteBackwards(ring, ring.count);
  }

  void WriteTurned(Curve const& curve) {
    if (curve.segments.empty()) return Write(curve);
    CurveSegment const& last = curve.segments.back();
    out_.Positions(last.rest.count == 0
                       ? last.previous
                       : PositionSpan{last.rest.At(last.rest.count - 1), 1, last.rest.dimensionality});
    out_.Int32(static_cast<FdoInt32>(curve.segments.size()));
    for (auto segment = curve.segments.rbegin(); segment != curve.segments.rend(); ++segment) {
      WriteType(*segment);
      if (segment->rest.count == 0) continue;
      WriteBackwards(segment->rest, segment->rest.count - 1);
      out_.Positions(segment->previous);
    }
  }

  FdoPolygonVertexOrderRule rule_;
};

// Notes which of the two rules is broken anywhere.
class CheckSink : public FgfRewrite<CheckSink> {
 public:
  FdoInt32 TypeOf(FdoInt32 type) const { return type; }

  template <class Ring>
  void WriteRing(Ring const& ring, bool isOuter) {
    double const area = SignedAreaOf(ring);
    if (area == 0) return;
    sawRing_ = true;
    ((area > 0) == isOuter ? breaksClockwise_ : breaksCounter_) = true;
  }
  void WriteCurve(Curve const&) {}

  FdoPolygonVertexOrderRule Kept() const {
    if (!sawRing_ || (breaksClockwise_ && breaksCounter_)) return FdoPolygonVertexOrderRule_None;
    return breaksClockwise_ ? FdoPolygonVertexOrderRule_CCW : FdoPolygonVertexOrderRule_CW;
  }

 private:
  bool sawRing_ = false;
  bool breaksClockwise_ = false;
  bool breaksCounter_ = false;
};

FdoIGeometry* Turn(FdoIGeometry* geometry, FdoPolygonVertexOrderRule rule) {
  TurnSink sink(rule);
  WalkGeometry(geometry, sink);
  FdoPtr<FdoByteArray> array = sink.Written().ToArray();
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  return factory->CreateGeometryFromFgf(array);
}

}  // namespace

FdoIGeometry* FdoSpatialUtility::FixPolygonVertexOrder(FdoIGeometry* geometry,
                                                       FdoPolygonVertexOrderRule vertexOrderRule) {
  if (geometry == nullptr) ThrowFailure(L"There is no geometry.");
  if (vertexOrderRule == FdoPolygonVertexOrderRule_None) return FDO_SAFE_ADDREF(geometry);
  return Turn(geometry, vertexOrderRule);
}

FdoIGeometry* FdoSpatialUtility::ReversePolygonVertexOrder(FdoIGeometry* geometry) {
  return Turn(geometry, FdoPolygonVertexOrderRule_None);
}

FdoPolygonVertexOrderRule FdoSpatialUtility::CheckPolygonVertexOrder(FdoIGeometry* geometry) {
  CheckSink sink;
  WalkGeometry(geometry, sink);
  return sink.Kept();
}

FdoPolygonVertexOrderAction FdoSpatialUtility::GetPolygonVertexOrderAction(
    FdoPolygonVertexOrderRule sourceVertexOrderRule, FdoBoolean sourceStrictnessRule,
    FdoPolygonVertexOrderRule targetVertexOrderRule, FdoBoolean targetStrictnessRule) {
  if (targetVertexOrderRule == FdoPolygonVertexOrderRule_None || !targetStrictnessRule) {
    return FdoPolygonVertexOrderAction_None;
  }
  if (sourceVertexOrderRule == FdoPolygonVertexOrderRule_None || !sourceStrictnessRule) {
    return FdoPolygonVertexOrderAction_CheckAndReverse;
  }
  return sourceVertexOrderRule == targetVertexOrderRule ? FdoPolygonVertexOrderAction_None
                                                        : FdoPolygonVertexOrderAction_Reverse;
}
