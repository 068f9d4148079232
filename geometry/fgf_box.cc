#include <fdo/geometry_stream.h>

#include <limits>

#include "geometry/fgf_walk.h"
#include "geometry/invalid_stream.h"
#include "port/double_pair.h"

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

class BoxSink : public PassingSink {
 public:
  bool BeginGeometry(FgfGeometry const& head) {
    // A point, a line string and a lone ring are measured from their first position on, so that they
    // may lie at infinity; any other geometry narrows the finite empty box.
    bool const fromFirstPosition =
        head.parentType == 0 && (head.type == kFgfPoint || head.type == kFgfLineString ||
                                 (head.type == kFgfPolygon && head.count == 1));
    if (fromFirstPosition) {
      min_ = port::BothOf(kInfinity);
      max_ = port::BothOf(-kInfinity);
    }
    return true;
  }

  bool Start(FgfPositions const& position) { return Positions(position); }
  bool Segment(std::int32_t, FgfPositions const& positions) { return Positions(positions); }

  bool Positions(FgfPositions const& positions) {
    unsigned char const* at = positions.bytes;
    std::size_t const stride = PositionBytes(positions.ordinates);
    std::int32_t left = positions.count;
    if (left >= kChainsPayFrom) {
      // A minimum waits for the one before it: four independent chains keep the processor busy.
      DoublePair min[4] = {min_, min_, min_, min_};
      DoublePair max[4] = {max_, max_, max_, max_};
      for (; left >= 4; left -= 4, at += 4 * stride) {
        for (std::size_t chain = 0; chain < 4; ++chain) {
          DoublePair const position = LoadPair(at + chain * stride);
          min[chain] = Lower(position, min[chain]);
          max[chain] = Higher(position, max[chain]);
        }
      }
      min_ = Lower(Lower(min[0], min[1]), Lower(min[2], min[3]));
      max_ = Higher(Higher(max[0], max[1]), Higher(max[2], max[3]));
    }
    for (; left > 0; --left, at += stride) {
      DoublePair const position = LoadPair(at);
      min_ = Lower(position, min_);
      max_ = Higher(position, max_);
    }
    return true;
  }

  void Write(double box[4]) const {
    port::StorePair(box, min_);
    port::StorePair(box + 2, max_);
    for (int axis = 0; axis < 2; ++axis) {
      if (box[axis] <= box[axis + 2]) continue;
      box[axis] = kLargest;  // nothing was measured: the empty box is finite
      box[axis + 2] = -kLargest;
    }
  }

 private:
  DoublePair min_ = port::BothOf(kLargest);
  DoublePair max_ = port::BothOf(-kLargest);
};

}  // namespace

unsigned char const* FgfBox(unsigned char const* begin, unsigned char const* end, double box[4]) {
  StreamCursor in(begin, end);
  BoxSink sink;
  WalkFgf(in, sink);
  if (in.Failed()) ThrowInvalidStream();
  sink.Write(box);
  return in.At();
}

}  // namespace fdo
