// How long a program takes that uses the library but opens no vector file, against one that is linked
// with GDAL: the whole life of a process that makes one call.
#include <stdexcept>
#include <string>

#include "bench/job_table.h"
#include "bench/workbench.h"
#include "port/child_process.h"

namespace fdo::bench {
namespace {

constexpr int kStarts = 20;

Side StartsOf(std::filesystem::path const& program) {
  return [name = program.string()] {
    for (int i = 0; i < kStarts; ++i) {
      if (port::RunChild(name, {}).exitCode != 0) throw std::runtime_error(name + " failed");
    }
    return Work{kStarts, 0};
  };
}

}  // namespace

Sides StartJob(Workbench const& bench, std::string_view) {
  std::string const suffix = bench.program.extension().string();
  return {StartsOf(bench.programDirectory / ("bench_start_with_quillon" + suffix)),
          StartsOf(bench.programDirectory / ("bench_start_with_gdal" + suffix))};
}

}  // namespace fdo::bench
