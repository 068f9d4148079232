#ifndef BENCH_OPTIONS_H_
#define BENCH_OPTIONS_H_

#include <filesystem>
#include <string>
#include <vector>

#include "bench/compare.h"
#include "bench/workbench.h"

namespace fdo::bench {

struct Options {
  Workbench bench;
  Effort effort;
  std::string only;                // jobs whose "name data" begins so; empty for all
  std::filesystem::path jsonFile;  // empty for none
  bool list = false;               // the jobs' names instead of a run
  bool help = false;               // the usage instead of a run
};

extern char const kUsage[];

// Errors: std::invalid_argument with a message for the user.
Options ParseOptions(std::vector<std::string> const& arguments);

}  // namespace fdo::bench

#endif  // BENCH_OPTIONS_H_
