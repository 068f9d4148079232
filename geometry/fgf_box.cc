#include <fdo/geometry_stream.h>

#include <limits>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"
#include "geometry/plain_geometry.h"
#include "port/double_pair.h"
#include "port/inlining.h"

namespace fdo {
namespace {

using port::DoublePair;
using port::Higher;
using port::LoadPair;
using port::Lower;

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Below this many positions, setting up and joining four chains costs more than it saves.
constexpr std::int32_t kChainsPayFrom = 8;

struct Bounds {
  DoublePair min;
  DoublePair max;
};

inline void Widen(Bounds& bounds, unsigned char const* position) {
  DoublePair const pair = LoadPair(position);
  bounds.min = Lower(pair, bounds.min);
  bounds.max = Higher(pair, bounds.max);
}

QUILLON_ALWAYS_INLINE void Widen(Bounds& bounds, FgfPositions const& positions) {
  unsigned char const* at = positions.bytes;
  std::size_t const stride = PositionBytes(positions.ordinates);
  std::int32_t left = positions.count;
  Bounds first = bounds;
  if (left >= kChainsPayFrom) {
    // A minimum waits for the one before it: four independent chains keep the processor busy.
    Bounds second = first, third = first, fourth = first;
    for (; left >= 4; left -= 4, at += 4 * stride) {
      Widen(first, at);
      Widen(second, at + stride);
      Widen(third, at + 2 * stride);
      Widen(fourth, at + 3 * stride);
    }
    first.min = Lower(Lower(first.min, second.min), Lower(third.min, fourth.min));
    first.max = Higher(Higher(first.max, second.max), Higher(third.max, fourth.max));
  }
  for (; left > 0; --left, at += stride) Widen(first, at);
  bounds = first;
}

class BoxSink : public PassingSink {
 public:
  bool Start(FgfPositions const& position) {
    Widen(bounds_, position.bytes);
    return true;
  }

  bool Segment(std::int32_t, FgfPositions const& positions) { return Positions(positions); }

  bool Positions(FgfPositions const& positions) {
    if (positions.count == 1) {
      Widen(bounds_, positions.bytes);
    } else {
      Widen(bounds_, positions);
    }
    return true;
  }

  Bounds const& Measured() const { return bounds_; }

 private:
  Bounds bounds_{port::BothOf(kInfinity), port::BothOf(-kInfinity)};
};

// Null, and no box, unless there is a single run of positions with a number on both axes.
QUILLON_ALWAYS_INLINE unsigned char const* BoxOfSingleRun(unsigned char const* begin,
                                                          unsigned char const* end, double box[4]) {
  if (IsPlainPoint(begin, end)) {
    unsigned char const* const position = begin + kSingleHeadBytes;
    DoublePair const pair = LoadPair(position);
    if (!port::Same(pair, pair)) return nullptr;
    port::StorePair(box, pair);
    port::StorePair(box + 2, pair);
    return position + sizeof(pair);
  }
  FgfPositions const run = SingleRun(begin, end);
  if (run.count == 0) return nullptr;
  Bounds bounds{port::BothOf(kInfinity), port::BothOf(-kInfinity)};
  Widen(bounds, run);
  if (!port::NoneGreater(bounds.min, bounds.max)) return nullptr;
  port::StorePair(box, bounds.min);
  port::StorePair(box + 2, bounds.max);
  return run.bytes + std::size_t(run.count) * PositionBytes(run.ordinates);
}

struct HeadSink : PassingSink {
  bool BeginGeometry(FgfGeometry const& outermost) {
    head = outermost;
    return false;
  }
  FgfGeometry head{};
};

// A point, a line string and a polygon of one ring are measured from their first position on and may
// lie at infinity; the box of any other geometry starts out empty, which is finite.
bool StartsAtFirstPosition(unsigned char const* begin, unsigned char const* end) {
  StreamCursor in(begin, end);
  FgfNesting nesting;
  HeadSink sink;
  WalkFgf(in, sink, nesting);
  FgfGeometry const& head = sink.head;
  return head.type == kFgfPoint || head.type == kFgfLineString ||
         (head.type == kFgfPolygon && head.count == 1);
}

// A function of its own, so that the short way does not set up its frame.
QUILLON_NEVER_INLINE unsigned char const* WalkedBox(unsigned char const* begin, unsigned char const* end,
                                                    double box[4]) {
  StreamCursor in(begin, end);
  FgfNesting nesting;
  BoxSink sink;
  WalkFgf(in, sink, nesting);
  if (in.Failed()) ThrowInvalidStream();

  Bounds const measured = sink.Measured();
  Bounds const finite{Lower(measured.min, port::BothOf(kLargest)),
                      Higher(measured.max, port::BothOf(-kLargest))};
  port::StorePair(box, finite.min);
  port::StorePair(box + 2, finite.max);
  bool const isFinite = port::Same(finite.min, measured.min) && port::Same(finite.max, measured.max);
  if (!isFinite && StartsAtFirstPosition(begin, end)) {
    double unbounded[4];
    port::StorePair(unbounded, measured.min);
    port::StorePair(unbounded + 2, measured.max);
    for (int axis = 0; axis < 2; ++axis) {
      if (unbounded[axis] > unbounded[axis + 2]) continue;  // nothing was measured
      box[axis] = unbounded[axis];
      box[axis + 2] = unbounded[axis + 2];
    }
  }
  return in.At();
}

}  // namespace

unsigned char const* FgfBox(unsigned char const* begin, unsigned char const* end, double box[4]) {
  unsigned char const* const after = BoxOfSingleRun(begin, end, box);
  return after != nullptr ? after : WalkedBox(begin, end, box);
}

}  // namespace fdo
