// FgfBox, which checks every count, against a loop that trusts the bytes.
#include <fdo/geometry_stream.h>

#include <cfloat>
#include <cstring>
#include <memory>

#include "bench/geometry_streams.h"
#include "bench/job_table.h"
#include "geometry/unaligned.h"
#include "port/double_pair.h"

namespace fdo::bench {
namespace {

class UncheckedBox {
 public:
  // Returns the position after the geometry, a point, a line string or a polygon.
  unsigned char const* Measure(unsigned char const* at) {
    auto const type = Load<std::int32_t>(at);
    auto const dimensionality = Load<std::int32_t>(at + 4);
    std::size_t const stride = 8 * static_cast<std::size_t>(2 + (dimensionality & 1) + (dimensionality >> 1));
    at += 8;
    if (type == 1) return Widen(at, 1, stride);
    if (type == 2) return Widen(at + 4, Load<std::int32_t>(at), stride);
    std::int32_t const rings = Load<std::int32_t>(at);
    at += 4;
    for (std::int32_t ring = 0; ring < rings; ++ring) at = Widen(at + 4, Load<std::int32_t>(at), stride);
    return at;
  }

  void Write(double box[4]) const {
    port::StorePair(box, min_);
    port::StorePair(box + 2, max_);
  }

 private:
  // Four chains, because a minimum waits for the one before it: this is as fast as a loop here gets.
  unsigned char const* Widen(unsigned char const* at, std::int32_t count, std::size_t stride) {
    std::int32_t left = count;
    if (left >= 8) {
      port::DoublePair min[4] = {min_, min_, min_, min_};
      port::DoublePair max[4] = {max_, max_, max_, max_};
      for (; left >= 4; left -= 4, at += 4 * stride) {
        for (std::size_t chain = 0; chain < 4; ++chain) {
          port::DoublePair const position = port::LoadPair(at + chain * stride);
          min[chain] = port::Lower(position, min[chain]);
          max[chain] = port::Higher(position, max[chain]);
        }
      }
      min_ = port::Lower(port::Lower(min[0], min[1]), port::Lower(min[2], min[3]));
      max_ = port::Higher(port::Higher(max[0], max[1]), port::Higher(max[2], max[3]));
    }
    for (; left > 0; --left, at += stride) {
      port::DoublePair const position = port::LoadPair(at);
      min_ = port::Lower(position, min_);
      max_ = port::Higher(position, max_);
    }
    return at;
  }

  port::DoublePair min_ = port::BothOf(DBL_MAX);
  port::DoublePair max_ = port::BothOf(-DBL_MAX);
};

std::uint64_t BoxChecksum(double const box[4]) {
  std::uint64_t bits[4];
  std::memcpy(bits, box, sizeof(bits));
  return bits[0] + 3 * bits[1] + 5 * bits[2] + 7 * bits[3];
}

// next(at, end, box) measures the geometry at at and returns the position after it.
template <class Next>
Work MeasureAll(GeometryStreams const& streams, Next next) {
  unsigned char const* const begin = streams.bytes.data();
  unsigned char const* const end = begin + streams.bytes.size();
  Work work;
  for (int pass = 0; pass < streams.passes; ++pass) {
    for (unsigned char const* at = begin; at < end;) {
      double box[4];
      at = next(at, end, box);
      work.checksum += BoxChecksum(box);
    }
  }
  work.amount = static_cast<double>(streams.bytes.size()) * streams.passes;
  return work;
}

}  // namespace

Sides FgfBoxJob(Workbench const& bench, std::string_view data) {
  auto const streams =
      std::make_shared<GeometryStreams const>(MakeGeometryStreams(bench, data, Encoding::kFgf));
  return {
      [streams] {
        return MeasureAll(*streams, [](unsigned char const* at, unsigned char const* end, double* box) {
          return FgfBox(at, end, box);
        });
      },
      [streams] {
        return MeasureAll(*streams, [](unsigned char const* at, unsigned char const*, double* box) {
          UncheckedBox unchecked;
          at = unchecked.Measure(at);
          unchecked.Write(box);
          return at;
        });
      },
  };
}

}  // namespace fdo::bench
