#ifndef BENCH_GEOMETRY_STREAMS_H_
#define BENCH_GEOMETRY_STREAMS_H_

#include <cstddef>
#include <string_view>
#include <vector>

#include "bench/seeded_rows.h"
#include "bench/workbench.h"

namespace fdo::bench {

enum class Encoding { kFgf, kWkb };

// Geometries of one length, one behind the other.
struct GeometryStreams {
  std::vector<unsigned char> bytes;
  std::size_t lengthEach;
  int passes;  // how often one run goes through the bytes, so that every run reads about as much
};

// data is one of: "points in cache", "points out of cache", "polygons in cache", "polygons out of
// cache". In cache is 256 KiB, out of cache 256 bytes for each row of the workbench.
// Errors: std::invalid_argument for any other data.
GeometryStreams MakeGeometryStreams(Workbench const& bench, std::string_view data, Encoding encoding);

}  // namespace fdo::bench

#endif  // BENCH_GEOMETRY_STREAMS_H_
