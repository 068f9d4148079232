#include "bench/report.h"

#include <fmt/format.h>

namespace fdo::bench {
namespace {

constexpr char const* kLine = "| {:<14} | {:<23} | {:>15} | {:>15} | {:>6} | {:>14} | {:<16} | {:<7} |\n";

std::string Figure(double figure, Unit const& unit) {
  struct Step {
    double from;
    double divisor;
    char const* prefix;
  };
  constexpr Step kSteps[] = {{1e9, 1e9, "G "}, {1e6, 1e6, "M "}, {1e4, 1e3, "k "}, {0, 1, " "}};
  if (unit.measure == Measure::kAmount) return fmt::format("{:.2f} {}", figure, unit.name);
  for (Step const& step : kSteps) {
    if (figure >= step.from) return fmt::format("{:.2f}{}{}", figure / step.divisor, step.prefix, unit.name);
  }
  return fmt::format("{} {}", figure, unit.name);
}

std::string Goal(Job const& job) {
  if (job.goal == 0) return "-";
  if (job.unit.measure == Measure::kAmount) return fmt::format("ours <= {} {}", job.goal, job.unit.name);
  return fmt::format("ratio >= {}", job.goal);
}

}  // namespace

std::string TableHead() {
  std::string const names =
      fmt::format(kLine, "job", "data", "ours", "peer", "ratio", "of the pairs", "to reach", "reached");
  std::string rule = names;
  for (char& c : rule) {
    if (c != '|' && c != '\n') c = '-';
  }
  return names + rule;
}

std::string TableLine(Result const& result) {
  Job const& job = *result.job;
  Comparison const& figures = result.comparison;
  return fmt::format(kLine, job.name, job.data, Figure(figures.ours, job.unit),
                     Figure(figures.peer, job.unit), fmt::format("{:.2f}", figures.ratio),
                     fmt::format("{:.2f} to {:.2f}", figures.lowestRatio, figures.highestRatio), Goal(job),
                     job.goal == 0     ? "-"
                     : figures.reached ? "yes"
                                       : "no");
}

std::string Json(std::vector<Result> const& results) {
  std::string text = "[";
  char const* separator = "\n";
  for (Result const& result : results) {
    Job const& job = *result.job;
    // The names come from the table of jobs and hold nothing that JSON would want escaped.
    text += fmt::format(
        R"({}  {{"job": "{}", "data": "{}", "ours": {:.6g}, "peer": {:.6g}, "unit": "{}", "ratio": {:.6g}}})",
        separator, job.name, job.data, result.comparison.ours, result.comparison.peer, job.unit.name,
        result.comparison.ratio);
    separator = ",\n";
  }
  return text + "\n]\n";
}

}  // namespace fdo::bench
