// FgfToWkb and WkbToFgf, which check every count, against loops that trust the bytes.
#include <fdo/geometry_stream.h>

#include <memory>
#include <vector>

#include "bench/geometry_streams.h"
#include "bench/job_table.h"
#include "geometry/unaligned.h"

namespace fdo::bench {
namespace {

constexpr std::uint32_t kZBit = 0x80000000;

// What a conversion reads and writes; the unchecked loops move along both.
struct Copier {
  unsigned char const* in;
  unsigned char* out;

  std::int32_t Count() {
    auto const count = Load<std::int32_t>(in);
    Store(out, count);
    in += 4;
    out += 4;
    return count;
  }
  void Positions(std::int32_t count, std::size_t stride) {
    std::size_t const length = static_cast<std::size_t>(count) * stride;
    std::memcpy(out, in, length);
    in += length;
    out += length;
  }
  // What follows the head is the same on both sides.
  void Body(std::uint32_t type, std::size_t stride) {
    if (type == 1) return Positions(1, stride);
    std::int32_t const count = Count();
    if (type == 2) return Positions(count, stride);
    for (std::int32_t ring = 0; ring < count; ++ring) Positions(Count(), stride);
  }
};

std::size_t UncheckedFgfToWkb(unsigned char const* fgf, unsigned char* wkb) {
  auto const type = Load<std::uint32_t>(fgf);
  bool const hasZ = (Load<std::uint32_t>(fgf + 4) & 1) != 0;
  wkb[0] = 1;
  Store(wkb + 1, type | (hasZ ? kZBit : 0));
  Copier copier{fgf + 8, wkb + 5};
  copier.Body(type, hasZ ? 24 : 16);
  return static_cast<std::size_t>(copier.out - wkb);
}

std::size_t UncheckedWkbToFgf(unsigned char const* wkb, unsigned char* fgf) {
  auto const typeWord = Load<std::uint32_t>(wkb + 1);
  std::uint32_t const type = typeWord & ~kZBit;
  bool const hasZ = (typeWord & kZBit) != 0;
  Store(fgf, type);
  Store(fgf + 4, std::int32_t{hasZ ? 1 : 0});
  Copier copier{wkb + 5, fgf + 8};
  copier.Body(type, hasZ ? 24 : 16);
  return static_cast<std::size_t>(copier.out - fgf);
}

// convert(in, length, out) returns the bytes written, at least eight.
template <class Convert>
Work ConvertAll(GeometryStreams const& streams, std::vector<unsigned char>& out, Convert convert) {
  unsigned char const* const begin = streams.bytes.data();
  unsigned char const* const end = begin + streams.bytes.size();
  Work work;
  for (int pass = 0; pass < streams.passes; ++pass) {
    for (unsigned char const* at = begin; at < end; at += streams.lengthEach) {
      std::size_t const written = convert(at, streams.lengthEach, out.data());
      work.checksum +=
          written + Load<std::uint64_t>(out.data()) + Load<std::uint64_t>(out.data() + written - 8);
    }
  }
  work.amount = static_cast<double>(streams.bytes.size()) * streams.passes;
  return work;
}

template <class Ours, class Peer>
Sides ConversionSides(GeometryStreams made, std::size_t outBytes, Ours ours, Peer peer) {
  auto const streams = std::make_shared<GeometryStreams const>(std::move(made));
  auto const out = std::make_shared<std::vector<unsigned char>>(outBytes);
  return {
      [=] { return ConvertAll(*streams, *out, ours); },
      [=] { return ConvertAll(*streams, *out, peer); },
  };
}

}  // namespace

Sides FgfToWkbJob(Workbench const& bench, std::string_view data) {
  GeometryStreams streams = MakeGeometryStreams(bench, data, Encoding::kFgf);
  std::size_t const outBytes = FgfToWkbBound(streams.lengthEach);
  return ConversionSides(
      std::move(streams), outBytes,
      [](unsigned char const* in, std::size_t length, unsigned char* out) {
        return FgfToWkb(in, length, out);
      },
      [](unsigned char const* in, std::size_t, unsigned char* out) { return UncheckedFgfToWkb(in, out); });
}

Sides WkbToFgfJob(Workbench const& bench, std::string_view data) {
  GeometryStreams streams = MakeGeometryStreams(bench, data, Encoding::kWkb);
  std::size_t const outBytes = WkbToFgfBound(streams.lengthEach);
  return ConversionSides(
      std::move(streams), outBytes,
      [](unsigned char const* in, std::size_t length, unsigned char* out) {
        return WkbToFgf(in, length, out);
      },
      [](unsigned char const* in, std::size_t, unsigned char* out) { return UncheckedWkbToFgf(in, out); });
}

}  // namespace fdo::bench
