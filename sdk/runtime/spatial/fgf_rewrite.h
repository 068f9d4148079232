// FgfRewrite writes a geometry stream again while it is walked, for heirs to change curves and rings.
#ifndef SDK_RUNTIME_SPATIAL_FGF_REWRITE_H_
#define SDK_RUNTIME_SPATIAL_FGF_REWRITE_H_

#include <vector>

#include "sdk/runtime/geometry/fgf_builder.h"
#include "sdk/runtime/geometry/fgf_geometry.h"

namespace fdo_sdk {

struct CurveSegment {
  bool isArc;
  PositionSpan previous;  // one position
  PositionSpan rest;      // of an arc mid and end
};

// A curve with its pieces together.
struct Curve {
  PositionSpan start;
  std::vector<CurveSegment> segments;
};

// Derived supplies FdoInt32 TypeOf(FdoInt32 type), the type to write for a type read, and
// WriteRing(PositionSpan const&, bool isOuter), WriteRing(Curve const&, bool isOuter) and
// WriteCurve(Curve const&), which write what follows type and dimensionality.
template <class Derived>
class FgfRewrite : public FgfSink {
 public:
  void BeginGeometry(FgfHead const& head) {
    type_ = head.type;
    out_.Int32(Self().TypeOf(head.type));
    if (head.dimensionality >= 0) out_.Int32(head.dimensionality);
    if (head.type != FdoGeometryType_Point && head.type != FdoGeometryType_CurveString)
      out_.Int32(head.count);
    isOuter_ = true;
  }
  void EndGeometry(FgfHead const& head) {
    if (head.type == FdoGeometryType_CurveString) Self().WriteCurve(curve_);
  }
  void EndRing() {
    if (type_ == FdoGeometryType_CurvePolygon) Self().WriteRing(curve_, isOuter_);
    isOuter_ = false;
  }
  void Positions(PositionSpan const& positions) {
    if (type_ == FdoGeometryType_Polygon) return Self().WriteRing(positions, isOuter_);
    out_.Positions(positions);
  }
  void Start(PositionSpan const& start) {
    curve_.start = start;
    curve_.segments.clear();
  }
  void Arc(PositionSpan const& previous, PositionSpan const& midAndEnd) {
    curve_.segments.push_back({true, previous, midAndEnd});
  }
  void Line(PositionSpan const& previous, PositionSpan const& rest) {
    curve_.segments.push_back({false, previous, rest});
  }

 protected:
  FgfBuilder out_;

 private:
  Derived& Self() { return static_cast<Derived&>(*this); }

  FdoInt32 type_ = 0;
  bool isOuter_ = true;
  Curve curve_{{nullptr, 0, 0}, {}};
};

// The type that a geometry becomes when its arcs are replaced by straight lines.
constexpr FdoInt32 StraightTypeOf(FdoInt32 type) {
  switch (type) {
    case FdoGeometryType_CurveString:
      return FdoGeometryType_LineString;
    case FdoGeometryType_CurvePolygon:
      return FdoGeometryType_Polygon;
    case FdoGeometryType_MultiCurveString:
      return FdoGeometryType_MultiLineString;
    case FdoGeometryType_MultiCurvePolygon:
      return FdoGeometryType_MultiPolygon;
    default:
      return type;
  }
}

// Walks the geometry, of any maker, with the sink.
// Errors: throws FdoException* for null.
template <class Sink>
void WalkGeometry(FdoIGeometry* geometry, Sink& sink) {
  if (geometry == nullptr) ThrowFailure(L"There is no geometry.");
  FdoPtr<FdoIGeometry> copy;
  FgfBacked const* own = AsFgfBacked(geometry);
  if (own == nullptr) {
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    copy = factory->CreateGeometry(geometry);
    own = AsFgfBacked(copy);
  }
  FgfCursor in = own->Bytes().Cursor();
  FgfWalk<Sink>(in, sink).Geometry();
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_FGF_REWRITE_H_
