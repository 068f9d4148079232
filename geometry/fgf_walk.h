// WalkFgf reads one geometry and hands its pieces to a sink, checked, in stream order. It is the one
// place that follows the layout: skipping, measuring, visiting and writing WKB are sinks.
#ifndef GEOMETRY_FGF_WALK_H_
#define GEOMETRY_FGF_WALK_H_

#include "geometry/fgf_layout.h"
#include "geometry/stream_cursor.h"
#include "port/inlining.h"

namespace fdo {

// The multi types that are open around the geometry at hand. Each caller of the walk has them among its
// own variables: with them in its frame, the walk could not be inlined.
struct FgfNesting {
  struct Level {
    std::int32_t type;
    std::int32_t index;
    std::int32_t count;
  };
  Level levels[kFgfMaxLevels - 1];
};

// Sink has the functions of FgfVisitor, virtual or not. There is no recursion, and all is inlined into
// the caller, so that cursor and sink stay in registers: rows are small, and a call for each piece costs
// more than the work on it.
template <class Sink>
class FgfWalk {
 public:
  FgfWalk(StreamCursor in, Sink& sink, FgfNesting& nesting) : in_(in), sink_(sink), around_(nesting.levels) {}

  StreamCursor const& Cursor() const { return in_; }

  // Returns false when the cursor failed or the sink stopped.
  QUILLON_ALWAYS_INLINE bool Run() {
    FgfGeometry head{in_.Int32(), 0, 0, kNoDimensionality, 0};
    if (in_.Failed()) return false;
    FgfBody const body = BodyOf(head.type);
    if (body == FgfBody::kParts) return Multi(head);
    return body == FgfBody::kNone ? sink_.UnknownType(head.type) : Single(head, body);
  }

 private:
  QUILLON_ALWAYS_INLINE bool Multi(FgfGeometry& head) {
    int depth = 0;
    if (!Open(head, depth)) return false;
    while (depth > 0) {
      FgfNesting::Level const& parent = around_[depth - 1];
      if (++head.index == parent.count) {
        --depth;
        head = {parent.type, depth == 0 ? 0 : around_[depth - 1].type, parent.index, kNoDimensionality,
                parent.count};
        if (!sink_.EndGeometry(head)) return false;
        continue;
      }
      unsigned char const* const first = in_.At();
      head.type = in_.Int32();
      if (in_.Failed()) return false;
      FgfBody const body = BodyOf(head.type);
      bool const read = body == FgfBody::kParts  ? Open(head, depth)
                        : body == FgfBody::kNone ? sink_.UnknownType(head.type)
                                                 : Single(head, body);
      if (!read) return false;
      if (body == FgfBody::kPosition && !LikePoints(first, head, parent.count)) return false;
    }
    return true;
  }

  // Reads the points that follow a point as long as they begin with the same type and dimensionality,
  // which then need no second look.
  QUILLON_ALWAYS_INLINE bool LikePoints(unsigned char const* first, FgfGeometry& head, std::int32_t count) {
    int const ordinates = OrdinateCount(head.dimensionality);
    while (head.index + 1 < count && in_.TakeIfNext(first, kSingleHeadBytes)) {
      ++head.index;
      if (!Position(head, ordinates)) return false;
    }
    return true;
  }

  // Begins a multi type and, where it has parts, makes it what is around the next geometry.
  QUILLON_ALWAYS_INLINE bool Open(FgfGeometry& head, int& depth) {
    head.dimensionality = kNoDimensionality;
    head.count = in_.Count(kSmallestPart);
    if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    if (head.count == 0) return sink_.EndGeometry(head);
    if (depth == kFgfMaxLevels - 1) {
      in_.Fail();
      return false;
    }
    around_[depth++] = {head.type, head.index, head.count};
    head.parentType = head.type;
    head.index = -1;
    return true;
  }

  QUILLON_ALWAYS_INLINE bool Single(FgfGeometry& head, FgfBody body) {
    head.dimensionality = in_.Dimensionality();
    int const ordinates = OrdinateCount(head.dimensionality);
    switch (body) {
      case FgfBody::kPosition:
        head.count = 1;
        return Position(head, ordinates);
      case FgfBody::kPositions:
      case FgfBody::kRings:
        return Lines(head, ordinates);
      case FgfBody::kSegments:
      case FgfBody::kCurveRings:
        return Curves(head, ordinates);
      case FgfBody::kParts:
      case FgfBody::kNone:
        break;
    }
    return false;
  }

  QUILLON_ALWAYS_INLINE bool Position(FgfGeometry const& head, int ordinates) {
    FgfPositions const position = in_.Positions(1, ordinates);
    return !in_.Failed() && sink_.BeginGeometry(head) && sink_.Positions(position) && sink_.EndGeometry(head);
  }

  // A line string is laid out as the one ring of a polygon, without the ring count.
  QUILLON_ALWAYS_INLINE bool Lines(FgfGeometry& head, int ordinates) {
    bool const isPolygon = head.type == kFgfPolygon;
    std::int32_t rings = 1;
    if (isPolygon) {
      rings = head.count = in_.RingCount(kSmallestRing);
      if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    }
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      FgfPositions const positions = in_.CountedPositions(ordinates);
      if (in_.Failed()) return false;
      if (!isPolygon) head.count = positions.count;
      bool const begun = isPolygon ? sink_.BeginRing(ring, positions.count) : sink_.BeginGeometry(head);
      if (!begun || !sink_.Positions(positions)) return false;
      if (isPolygon && !sink_.EndRing()) return false;
    }
    return sink_.EndGeometry(head);
  }

  // A curve string is laid out as the one ring of a curve polygon, without the ring count.
  QUILLON_ALWAYS_INLINE bool Curves(FgfGeometry& head, int ordinates) {
    bool const isPolygon = head.type == kFgfCurvePolygon;
    std::int32_t rings = 1;
    if (isPolygon) {
      rings = head.count = in_.RingCount(kSmallestRing + PositionBytes(ordinates));
      if (in_.Failed() || !sink_.BeginGeometry(head)) return false;
    }
    for (std::int32_t ring = 0; ring < rings; ++ring) {
      FgfPositions const start = in_.Positions(1, ordinates);
      std::int32_t const segments = in_.Count(kSmallestSegment);
      if (in_.Failed()) return false;
      if (!isPolygon) head.count = segments;
      bool const begun = isPolygon ? sink_.BeginRing(ring, segments) : sink_.BeginGeometry(head);
      if (!begun || !sink_.Start(start)) return false;
      for (std::int32_t segment = 0; segment < segments; ++segment) {
        if (!Segment(ordinates)) return false;
      }
      if (isPolygon && !sink_.EndRing()) return false;
    }
    return sink_.EndGeometry(head);
  }

  QUILLON_ALWAYS_INLINE bool Segment(int ordinates) {
    std::int32_t const type = in_.Int32();
    if (type != kFgfArc && type != kFgfLine) in_.Fail();
    FgfPositions const positions =
        type == kFgfArc ? in_.Positions(2, ordinates) : in_.CountedPositions(ordinates);
    return !in_.Failed() && sink_.Segment(type, positions);
  }

  StreamCursor in_;
  Sink& sink_;
  FgfNesting::Level* around_;
};

// Returns false when the cursor failed or the sink stopped.
template <class Sink>
QUILLON_ALWAYS_INLINE bool WalkFgf(StreamCursor& in, Sink& sink, FgfNesting& nesting) {
  FgfWalk<Sink> walk(in, sink, nesting);
  bool const complete = walk.Run();
  in = walk.Cursor();
  return complete;
}

// A sink that lets everything pass; others replace what concerns them.
struct PassingSink {
  bool BeginGeometry(FgfGeometry const&) { return true; }
  bool BeginRing(std::int32_t, std::int32_t) { return true; }
  bool Positions(FgfPositions const&) { return true; }
  bool Start(FgfPositions const&) { return true; }
  QUILLON_ALWAYS_INLINE bool Segment(std::int32_t, FgfPositions const&) { return true; }
  bool EndRing() { return true; }
  bool EndGeometry(FgfGeometry const&) { return true; }
  bool UnknownType(std::int32_t) { return true; }
};

}  // namespace fdo

#endif  // GEOMETRY_FGF_WALK_H_
