// WalkFgf reads one geometry and hands its pieces to a sink, checked, in stream order. It is the one
// place that follows the layout: skipping, measuring, visiting and writing WKB are sinks.
#ifndef GEOMETRY_FGF_WALK_H_
#define GEOMETRY_FGF_WALK_H_

#include "geometry/fgf_layout.h"
#include "geometry/stream_cursor.h"

namespace fdo {

// Sink has the functions of FgfVisitor, virtual or not.
template <class Sink>
class FgfWalk {
 public:
  FgfWalk(StreamCursor& in, Sink& sink) : in_(in), sink_(sink) {}

  // Returns false when the cursor failed or the sink stopped.
  bool Geometry(std::int32_t parentType, std::int32_t index, int level) {
    if (level > kFgfMaxLevels) in_.Fail();
    std::int32_t const type = in_.Int32();
    if (in_.Failed()) return false;
    FgfLayout const* const layout = LayoutOf(type);
    if (layout == nullptr) return sink_.UnknownType(type);
    FgfGeometry head{type, parentType, index, kNoDimensionality, 0};
    if (layout->body == FgfBody::kParts) return Parts(head, level);
    head.dimensionality = in_.Dimensionality();
    int const ordinates = OrdinateCount(head.dimensionality);
    switch (layout->body) {
      case FgfBody::kPosition:
        head.count = 1;
        return Simple(head, ordinates);
      case FgfBody::kPositions:
        head.count = in_.Count(PositionBytes(ordinates));
        return Simple(head, ordinates);
      case FgfBody::kRings:
        return Polygon(head, ordinates);
      case FgfBody::kSegments:
        return CurveString(head, ordinates);
      case FgfBody::kCurveRings:
        return CurvePolygon(head, ordinates);
      case FgfBody::kParts:
        break;
    }
    return false;
  }

 private:
  bool Simple(FgfGeometry const& head, int ordinates) {
    FgfPositions const positions = in_.Positions(head.count, ordinates);
    return !in_.Failed() && sink_.BeginGeometry(head) && sink_.Positions(positions) &&
           sink_.EndGeometry(head);
  }

  bool Polygon(FgfGeometry& head, int ordinates) {
    head.count = in_.RingCount(kSmallestRing);
    if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    for (std::int32_t ring = 0; ring < head.count; ++ring) {
      std::int32_t const count = in_.Count(PositionBytes(ordinates));
      FgfPositions const positions = in_.Positions(count, ordinates);
      if (in_.Failed() || !sink_.BeginRing(ring, count) || !sink_.Positions(positions) || !sink_.EndRing()) {
        return false;
      }
    }
    return sink_.EndGeometry(head);
  }

  bool CurveString(FgfGeometry& head, int ordinates) {
    FgfPositions const start = in_.Positions(1, ordinates);
    head.count = in_.Count(kSmallestSegment);
    return !in_.Failed() && sink_.BeginGeometry(head) && sink_.Start(start) &&
           Segments(head.count, ordinates) && sink_.EndGeometry(head);
  }

  bool CurvePolygon(FgfGeometry& head, int ordinates) {
    head.count = in_.RingCount(kSmallestRing + PositionBytes(ordinates));
    if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    for (std::int32_t ring = 0; ring < head.count; ++ring) {
      FgfPositions const start = in_.Positions(1, ordinates);
      std::int32_t const count = in_.Count(kSmallestSegment);
      if (in_.Failed() || !sink_.BeginRing(ring, count) || !sink_.Start(start) ||
          !Segments(count, ordinates) || !sink_.EndRing()) {
        return false;
      }
    }
    return sink_.EndGeometry(head);
  }

  bool Segments(std::int32_t segments, int ordinates) {
    for (std::int32_t segment = 0; segment < segments; ++segment) {
      std::int32_t const type = in_.Int32();
      std::int32_t count = 0;
      if (type == kFgfArc) {
        count = 2;
      } else if (type == kFgfLine) {
        count = in_.Count(PositionBytes(ordinates));
      } else {
        in_.Fail();
      }
      FgfPositions const positions = in_.Positions(count, ordinates);
      if (in_.Failed() || !sink_.Segment(type, positions)) return false;
    }
    return true;
  }

  bool Parts(FgfGeometry& head, int level) {
    head.count = in_.Count(kSmallestPart);
    if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    for (std::int32_t part = 0; part < head.count; ++part) {
      if (!Geometry(head.type, part, level + 1)) return false;
    }
    return sink_.EndGeometry(head);
  }

  StreamCursor& in_;
  Sink& sink_;
};

// Returns false when the cursor failed or the sink stopped.
template <class Sink>
bool WalkFgf(StreamCursor& in, Sink& sink) {
  return FgfWalk<Sink>(in, sink).Geometry(0, 0, 1);
}

// A sink that lets everything pass; others replace what concerns them.
struct PassingSink {
  bool BeginGeometry(FgfGeometry const&) { return true; }
  bool BeginRing(std::int32_t, std::int32_t) { return true; }
  bool Positions(FgfPositions const&) { return true; }
  bool Start(FgfPositions const&) { return true; }
  bool Segment(std::int32_t, FgfPositions const&) { return true; }
  bool EndRing() { return true; }
  bool EndGeometry(FgfGeometry const&) { return true; }
  bool UnknownType(std::int32_t) { return true; }
};

}  // namespace fdo

#endif  // GEOMETRY_FGF_WALK_H_
