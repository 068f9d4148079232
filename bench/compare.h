#ifndef BENCH_COMPARE_H_
#define BENCH_COMPARE_H_

#include <functional>

#include "bench/job.h"

namespace fdo::bench {

struct Effort {
  int pairs = 5;
  double leastSeconds = 0.25;  // one side's run is repeated until it has taken that long
};

// Figures of one job. ours, peer and ratio are medians; the ratio is taken within each pair, so that
// it does not suffer from a machine that drifts between them.
struct Comparison {
  double ours;
  double peer;
  double ratio;
  double lowestRatio;
  double highestRatio;
  bool reached;  // true, too, for a job without a goal
};

// Seconds since some fixed moment.
using Clock = std::function<double()>;
double SteadySeconds();

// Runs ours, peer, ours, peer ..., after one pair that is not counted.
// Errors: std::runtime_error when the sides disagree about their work; whatever a side throws.
// Requires: effort.pairs > 0
Comparison Compare(Job const& job, Sides const& sides, Effort const& effort,
                   Clock const& clock = SteadySeconds);

}  // namespace fdo::bench

#endif  // BENCH_COMPARE_H_
