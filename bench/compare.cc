#include "bench/compare.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace fdo::bench {
namespace {

// An amount smaller than this is noise; as a bound it keeps the ratio finite.
constexpr double kLeastAmount = 1.0 / 16;

struct Run {
  Work work;  // of each single call
  double figure;
};

bool SameWork(Work const& left, Work const& right, Measure measure) {
  // What a kAmount job measures is the amount, so only the checksum says that the work was the same.
  return left.checksum == right.checksum && (measure == Measure::kAmount || left.amount == right.amount);
}

Run RunSide(Side const& side, Measure measure, double leastSeconds, Clock const& clock) {
  double const start = clock();
  Work const work = side();
  double const firstSeconds = clock() - start;
  if (measure == Measure::kAmount) return {work, work.amount};

  double amount = work.amount;
  double seconds = firstSeconds;
  while (seconds < leastSeconds) {
    Work const again = side();
    if (!SameWork(work, again, measure)) throw std::runtime_error("one side's work differs from run to run");
    amount += again.amount;
    seconds = clock() - start;
  }
  if (seconds <= 0) throw std::runtime_error("the work is too short for the clock");
  return {work, amount / seconds};
}

// Requires: figures is not empty
double Median(std::vector<double> figures) {
  std::sort(figures.begin(), figures.end());
  std::size_t const middle = figures.size() / 2;
  return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

}  // namespace

double SteadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Comparison Compare(Job const& job, Sides const& sides, Effort const& effort, Clock const& clock) {
  Measure const measure = job.unit.measure;
  std::vector<double> ours;
  std::vector<double> peer;
  std::vector<double> ratios;
  for (int pair = -1; pair < effort.pairs; ++pair) {
    bool const warmingUp = pair < 0;
    double const leastSeconds = warmingUp ? 0 : effort.leastSeconds;
    Run const ourRun = RunSide(sides.ours, measure, leastSeconds, clock);
    Run const peerRun = RunSide(sides.peer, measure, leastSeconds, clock);
    if (!SameWork(ourRun.work, peerRun.work, measure)) {
      throw std::runtime_error("ours and the peer did not do the same work");
    }
    if (warmingUp) continue;
    ours.push_back(ourRun.figure);
    peer.push_back(peerRun.figure);
    ratios.push_back(measure == Measure::kRate ? ourRun.figure / peerRun.figure
                                               : job.goal / std::max(ourRun.figure, kLeastAmount));
  }
  Comparison result{};
  result.ours = Median(ours);
  result.peer = Median(peer);
  result.ratio = Median(ratios);
  result.lowestRatio = *std::min_element(ratios.begin(), ratios.end());
  result.highestRatio = *std::max_element(ratios.begin(), ratios.end());
  result.reached = result.ratio >= (measure == Measure::kRate || job.goal == 0 ? job.goal : 1.0);
  return result;
}

}  // namespace fdo::bench
