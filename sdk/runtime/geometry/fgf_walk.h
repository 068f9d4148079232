// FgfWalk reads one FGF geometry and hands its pieces to a sink, checked, in stream order. It is the one
// place that follows the layout.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_WALK_H_
#define SDK_RUNTIME_GEOMETRY_FGF_WALK_H_

#include "sdk/runtime/geometry/fgf_layout.h"
#include "sdk/runtime/geometry/stream_failure.h"

namespace fdo_sdk {

// Positions that lie one after the other in a stream, at any address.
struct PositionSpan {
  FdoByte const* data;
  FdoInt32 count;
  FdoInt32 dimensionality;

  FdoByte const* At(FdoInt32 index) const {
    return data + static_cast<std::size_t>(index) * PositionBytes(dimensionality);
  }
  double X(FdoInt32 index) const { return Load<double>(At(index)); }
  double Y(FdoInt32 index) const { return Load<double>(At(index) + sizeof(double)); }
};

// Reads a stream front to back and never past its end. It borrows the bytes.
// Errors: throws ThrowInvalidFgf() for what does not fit.
class FgfCursor {
 public:
  FgfCursor(FdoByte const* begin, std::size_t size) : at_(begin), end_(begin + size) {}

  FdoByte const* At() const { return at_; }
  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }

  FdoByte const* Take(std::size_t size) {
    if (size > Left()) ThrowInvalidFgf();
    FdoByte const* const taken = at_;
    at_ += size;
    return taken;
  }

  FdoInt32 Int32() { return Load<FdoInt32>(Take(sizeof(FdoInt32))); }

  FdoInt32 Dimensionality() {
    FdoInt32 const dimensionality = Int32();
    if (!IsDimensionality(dimensionality)) ThrowInvalidFgf();
    return dimensionality;
  }

  // A count of things that take at least that many bytes each.
  FdoInt32 Count(std::size_t smallest) {
    FdoInt32 const count = Int32();
    if (count < 0 || static_cast<std::size_t>(count) > Left() / smallest) ThrowInvalidFgf();
    return count;
  }

  // Requires: count was checked, or is a small constant.
  PositionSpan Positions(FdoInt32 count, FdoInt32 dimensionality) {
    FdoByte const* const data = Take(static_cast<std::size_t>(count) * PositionBytes(dimensionality));
    return {data, count, dimensionality};
  }

 private:
  FdoByte const* at_;
  FdoByte const* end_;
};

// What a geometry says of itself before its pieces. A type made of parts has no dimensionality of its own
// (-1); count is of positions, rings, segments or parts.
struct FgfHead {
  FdoInt32 type;
  FdoInt32 dimensionality;
  FdoInt32 count;
};

// The pieces of a geometry, for a sink to hide what it cares for.
struct FgfSink {
  void BeginGeometry(FgfHead const&) {}
  void EndGeometry(FgfHead const&) {}
  void BeginRing(FdoInt32 /*count*/) {}
  void EndRing() {}
  void Positions(PositionSpan const&) {}  // of a point, a line string or a linear ring
  void Start(PositionSpan const&) {}      // of a curve: one position
  // Segments start where the one before ended; previous is that one position.
  void Arc(PositionSpan const& /*previous*/, PositionSpan const& /*midAndEnd*/) {}
  void Line(PositionSpan const& /*previous*/, PositionSpan const& /*rest*/) {}
};

template <class Sink>
class FgfWalk {
 public:
  FgfWalk(FgfCursor& in, Sink& sink) : in_(in), sink_(sink) {}

  // A part of a homogeneous geometry must be of the type that its parent says; 0 is any type.
  void Geometry(FdoInt32 requiredType = 0, int level = 1) {
    if (level > kMaxLevels) ThrowInvalidFgf();
    FgfHead head{in_.Int32(), -1, 0};
    if (requiredType != 0 && head.type != requiredType) ThrowInvalidFgf();
    switch (head.type) {
      case FdoGeometryType_Point:
        head.dimensionality = in_.Dimensionality();
        head.count = 1;
        return Simple(head);
      case FdoGeometryType_LineString:
        head.dimensionality = in_.Dimensionality();
        head.count = in_.Count(PositionBytes(head.dimensionality));
        return Simple(head);
      case FdoGeometryType_Polygon:
        return Polygon(head);
      case FdoGeometryType_MultiPoint:
        return Parts(head, FdoGeometryType_Point, level);
      case FdoGeometryType_MultiLineString:
        return Parts(head, FdoGeometryType_LineString, level);
      case FdoGeometryType_MultiPolygon:
        return Parts(head, FdoGeometryType_Polygon, level);
      case FdoGeometryType_MultiGeometry:
        return Parts(head, 0, level);
      case FdoGeometryType_CurveString:
        return CurveString(head);
      case FdoGeometryType_CurvePolygon:
        return CurvePolygon(head);
      case FdoGeometryType_MultiCurveString:
        return Parts(head, FdoGeometryType_CurveString, level);
      case FdoGeometryType_MultiCurvePolygon:
        return Parts(head, FdoGeometryType_CurvePolygon, level);
      default:
        ThrowInvalidFgf();
    }
  }

  void LinearRing(FdoInt32 dimensionality) {
    FdoInt32 const count = in_.Count(PositionBytes(dimensionality));
    PositionSpan const positions = in_.Positions(count, dimensionality);
    sink_.BeginRing(count);
    sink_.Positions(positions);
    sink_.EndRing();
  }

  void Ring(FdoInt32 dimensionality) {
    PositionSpan const start = in_.Positions(1, dimensionality);
    FdoInt32 const count = in_.Count(kSmallestSegment);
    sink_.BeginRing(count);
    sink_.Start(start);
    Segments(start, count);
    sink_.EndRing();
  }

  // Gives the end of the last segment.
  PositionSpan Segments(PositionSpan previous, FdoInt32 count) {
    for (FdoInt32 i = 0; i < count; ++i) previous = Segment(previous);
    return previous;
  }

  PositionSpan Segment(PositionSpan const& previous) {
    FdoInt32 const dimensionality = previous.dimensionality;
    switch (in_.Int32()) {
      case FdoGeometryComponentType_CircularArcSegment: {
        PositionSpan const midAndEnd = in_.Positions(2, dimensionality);
        sink_.Arc(previous, midAndEnd);
        return {midAndEnd.At(1), 1, dimensionality};
      }
      case FdoGeometryComponentType_LineStringSegment: {
        FdoInt32 const count = in_.Count(PositionBytes(dimensionality));
        PositionSpan const rest = in_.Positions(count, dimensionality);
        sink_.Line(previous, rest);
        return count == 0 ? previous : PositionSpan{rest.At(count - 1), 1, dimensionality};
      }
      default:
        ThrowInvalidFgf();
    }
  }

 private:
  void Simple(FgfHead const& head) {
    PositionSpan const positions = in_.Positions(head.count, head.dimensionality);
    sink_.BeginGeometry(head);
    sink_.Positions(positions);
    sink_.EndGeometry(head);
  }

  void Polygon(FgfHead& head) {
    head.dimensionality = in_.Dimensionality();
    head.count = in_.Count(kSmallestRing);
    sink_.BeginGeometry(head);
    for (FdoInt32 i = 0; i < head.count; ++i) LinearRing(head.dimensionality);
    sink_.EndGeometry(head);
  }

  void CurveString(FgfHead& head) {
    head.dimensionality = in_.Dimensionality();
    PositionSpan const start = in_.Positions(1, head.dimensionality);
    head.count = in_.Count(kSmallestSegment);
    sink_.BeginGeometry(head);
    sink_.Start(start);
    Segments(start, head.count);
    sink_.EndGeometry(head);
  }

  void CurvePolygon(FgfHead& head) {
    head.dimensionality = in_.Dimensionality();
    head.count = in_.Count(kSmallestCurveRing);
    sink_.BeginGeometry(head);
    for (FdoInt32 i = 0; i < head.count; ++i) Ring(head.dimensionality);
    sink_.EndGeometry(head);
  }

  void Parts(FgfHead& head, FdoInt32 partType, int level) {
    head.count = in_.Count(kSmallestPart);
    sink_.BeginGeometry(head);
    for (FdoInt32 i = 0; i < head.count; ++i) Geometry(partType, level + 1);
    sink_.EndGeometry(head);
  }

  FgfCursor& in_;
  Sink& sink_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_WALK_H_
