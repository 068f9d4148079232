#include "bench/geometry_streams.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace fdo::bench {
namespace {

struct StreamData {
  std::string_view name;
  Shape shape;
  bool inCache;
};

constexpr StreamData kStreamData[] = {
    {"points in cache", Shape::kPoint, true},
    {"points out of cache", Shape::kPoint, false},
    {"polygons in cache", Shape::kPolygon, true},
    {"polygons out of cache", Shape::kPolygon, false},
};

constexpr std::size_t kCachedBytes = 256 * 1024;
constexpr std::size_t kBytesPerRow = 256;

StreamData const& FindStreamData(std::string_view name) {
  for (StreamData const& data : kStreamData) {
    if (data.name == name) return data;
  }
  throw std::invalid_argument("no geometry streams \"" + std::string(name) + "\"");
}

}  // namespace

GeometryStreams MakeGeometryStreams(Workbench const& bench, std::string_view name, Encoding encoding) {
  StreamData const& data = FindStreamData(name);
  std::size_t const allBytes = static_cast<std::size_t>(bench.rows) * kBytesPerRow;
  std::size_t const heldBytes = data.inCache ? std::min(allBytes, kCachedBytes) : allBytes;

  GeometryStreams streams{};
  SeededRows rows(bench.seed, data.shape);
  auto const append = encoding == Encoding::kFgf ? AppendFgf : AppendWkb;
  append(rows.Next(), data.shape, streams.bytes);
  streams.lengthEach = streams.bytes.size();
  std::size_t const count = std::max<std::size_t>(1, heldBytes / streams.lengthEach);
  streams.bytes.reserve(count * streams.lengthEach);
  for (std::size_t i = 1; i < count; ++i) append(rows.Next(), data.shape, streams.bytes);
  streams.passes = static_cast<int>(std::max<std::size_t>(1, allBytes / streams.bytes.size()));
  return streams;
}

}  // namespace fdo::bench
