#ifndef BENCH_WORKBENCH_H_
#define BENCH_WORKBENCH_H_

#include <cstdint>
#include <filesystem>

namespace fdo::bench {

// What the jobs of one run share.
struct Workbench {
  std::int64_t rows = 1'000'000;
  std::uint64_t seed = 20261121;
  std::filesystem::path dataDirectory;     // files of earlier runs are found here again
  std::filesystem::path program;           // the running program, to start it anew
  std::filesystem::path programDirectory;  // where the small programs of some jobs stand beside it
};

}  // namespace fdo::bench

#endif  // BENCH_WORKBENCH_H_
