// Each routine beside its unchecked control, over rows of one shape that fit the cache (32 KiB) or do
// not (64 MiB). What counts is the ratio of a pair in one run:
//   geometry_benchmark --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
#include <benchmark/benchmark.h>
#include <fdo/geometry_stream.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "geometry/unchecked_loops.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using Bytes = std::vector<unsigned char>;

enum Shape { kPoint, kPolygon5, kPolygon21, kLineZ1000, kMultiPoint20, kMultiPolygon3 };
constexpr char const* kShapeNames[] = {"Point",     "Polygon5",     "Polygon21",
                                       "LineZ1000", "MultiPoint20", "MultiPolygon3"};

std::string RandomPositions(int count, bool z, std::mt19937& random) {
  std::uniform_real_distribution<double> ordinate(-1000, 1000);
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += ", ";
    text += std::to_string(ordinate(random)) + ' ' + std::to_string(ordinate(random));
    if (z) text += ' ' + std::to_string(ordinate(random));
  }
  return text;
}

std::string RandomText(Shape shape, std::mt19937& random) {
  auto const ring = [&](int count) { return "(" + RandomPositions(count, false, random) + ")"; };
  switch (shape) {
    case kPoint:
      return "POINT " + ring(1);
    case kPolygon5:
      return "POLYGON (" + ring(5) + ")";
    case kPolygon21:
      return "POLYGON (" + ring(21) + ")";
    case kLineZ1000:
      return "LINESTRING Z (" + RandomPositions(1000, true, random) + ")";
    case kMultiPoint20:
      return "MULTIPOINT " + ring(20);
    case kMultiPolygon3:
      return "MULTIPOLYGON ((" + ring(8) + "), (" + ring(30) + ", " + ring(6) + "), (" + ring(12) + "))";
  }
  return {};
}

// Rows of one shape, one after the other, until they fill that many bytes.
struct Rows {
  Rows(Shape shape, std::size_t size, bool asWkb) {
    std::mt19937 random(42);
    std::vector<Bytes> distinct;
    for (int i = 0; i < 16; ++i) {
      std::string const text = RandomText(shape, random);
      distinct.push_back(asWkb ? Wkb(text) : Fgf(text));
    }
    bytes.reserve(size + distinct.front().size());
    for (std::size_t i = 0; bytes.size() < size; ++i) {
      Bytes const& row = distinct[i % distinct.size()];
      ends.push_back(bytes.size() + row.size());
      bytes.insert(bytes.end(), row.begin(), row.end());
    }
  }

  template <class Visit>
  void Each(Visit visit) const {
    std::size_t begin = 0;
    for (std::size_t const end : ends) {
      visit(bytes.data() + begin, end - begin);
      begin = end;
    }
  }

  Bytes bytes;
  std::vector<std::size_t> ends;
};

template <class Visit>
void Run(benchmark::State& state, bool asWkb, Visit visit) {
  Shape const shape = static_cast<Shape>(state.range(0));
  Rows const rows(shape, static_cast<std::size_t>(state.range(1)), asWkb);
  Bytes out(2 * rows.bytes.size());
  for (auto _ : state) {
    rows.Each([&](unsigned char const* row, std::size_t length) { visit(row, length, out.data()); });
  }
  state.SetLabel(kShapeNames[shape]);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(rows.bytes.size()));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows.ends.size()));
}

void EveryShape(benchmark::internal::Benchmark* bench, bool withZ) {
  for (Shape const shape : {kPoint, kPolygon5, kPolygon21, kLineZ1000, kMultiPoint20, kMultiPolygon3}) {
    if (shape == kLineZ1000 && !withZ) continue;
    bench->Args({shape, 32 << 10})->Args({shape, 64 << 20});
  }
}
void AllShapes(benchmark::internal::Benchmark* bench) { EveryShape(bench, true); }
void XyShapes(benchmark::internal::Benchmark* bench) { EveryShape(bench, false); }

void BM_FgfBox(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t length, unsigned char*) {
    double box[4];
    FgfBox(row, row + length, box);
    benchmark::DoNotOptimize(box);
  });
}
BENCHMARK(BM_FgfBox)->Apply(AllShapes);

void BM_FgfBoxControl(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t, unsigned char*) {
    double box[4];
    UncheckedBox(row, box);
    benchmark::DoNotOptimize(box);
  });
}
BENCHMARK(BM_FgfBoxControl)->Apply(AllShapes);

void BM_SkipGeometry(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t length, unsigned char*) {
    benchmark::DoNotOptimize(SkipGeometry(row, row + length));
  });
}
BENCHMARK(BM_SkipGeometry)->Apply(AllShapes);

// The output of each row stays in the cache, as a row buffer does.
void BM_FgfToWkb(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t length, unsigned char* out) {
    benchmark::DoNotOptimize(FgfToWkb(row, length, out));
  });
}
BENCHMARK(BM_FgfToWkb)->Apply(XyShapes);

void BM_FgfToIsoWkb(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t length, unsigned char* out) {
    benchmark::DoNotOptimize(FgfToIsoWkb(row, length, out));
  });
}
BENCHMARK(BM_FgfToIsoWkb)->Apply(XyShapes);

void BM_FgfToWkbControl(benchmark::State& state) {
  Run(state, false, [](unsigned char const* row, std::size_t, unsigned char* out) {
    benchmark::DoNotOptimize(UncheckedFgfToWkb(row, out));
  });
}
BENCHMARK(BM_FgfToWkbControl)->Apply(XyShapes);

void BM_WkbToFgf(benchmark::State& state) {
  Run(state, true, [](unsigned char const* row, std::size_t length, unsigned char* out) {
    benchmark::DoNotOptimize(WkbToFgf(row, length, out));
  });
}
BENCHMARK(BM_WkbToFgf)->Apply(XyShapes);

void BM_IsoWkbToFgf(benchmark::State& state) {
  Run(state, true, [](unsigned char const* row, std::size_t length, unsigned char* out) {
    benchmark::DoNotOptimize(IsoWkbToFgf(row, length, out));
  });
}
BENCHMARK(BM_IsoWkbToFgf)->Apply(XyShapes);

void BM_WkbToFgfControl(benchmark::State& state) {
  Run(state, true, [](unsigned char const* row, std::size_t, unsigned char* out) {
    benchmark::DoNotOptimize(UncheckedWkbToFgf(row, out));
  });
}
BENCHMARK(BM_WkbToFgfControl)->Apply(XyShapes);

}  // namespace
}  // namespace fdo
