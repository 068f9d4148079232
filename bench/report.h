#ifndef BENCH_REPORT_H_
#define BENCH_REPORT_H_

#include <string>
#include <vector>

#include "bench/compare.h"
#include "bench/job.h"

namespace fdo::bench {

struct Result {
  Job const* job;
  Comparison comparison;
};

// The table, line by line, so that a line can be shown when its job is done.
std::string TableHead();
std::string TableLine(Result const& result);

// A list of {"job", "data", "ours", "peer", "unit", "ratio"}. ours and peer are in the unit; ratio is
// as Measure says.
std::string Json(std::vector<Result> const& results);

}  // namespace fdo::bench

#endif  // BENCH_REPORT_H_
