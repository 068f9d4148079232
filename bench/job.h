// A job is something the library does, held against a peer: the same work over the same data, done
// by hand or by the platform alone. docs/performance.md publishes what comes out.
#ifndef BENCH_JOB_H_
#define BENCH_JOB_H_

#include <cstdint>
#include <functional>
#include <string_view>

namespace fdo::bench {

struct Workbench;

// What one run of one side did.
struct Work {
  double amount = 0;           // in the job's unit, before it is divided by the time
  std::uint64_t checksum = 0;  // over what was read; both sides of a job must give the same
};

// One run of one side. It may be called any number of times and does the same work each time.
// Errors: an exception derived from std::exception.
using Side = std::function<Work()>;

struct Sides {
  Side ours;
  Side peer;
};

// How the amounts of a job become figures.
enum class Measure {
  kRate,    // amount per second; the ratio is ours over peer and must be at least the goal
  kAmount,  // the amount itself, less is better; the ratio is the goal over ours and must be at least 1
};

struct Unit {
  char const* name;
  Measure measure;
};

inline constexpr Unit kRowsPerSecond{"rows/s", Measure::kRate};
inline constexpr Unit kBytesPerSecond{"bytes/s", Measure::kRate};
inline constexpr Unit kGeometriesPerSecond{"geometries/s", Measure::kRate};
inline constexpr Unit kFiltersPerSecond{"filters/s", Measure::kRate};
inline constexpr Unit kConnectionsPerSecond{"connections/s", Measure::kRate};
inline constexpr Unit kStartsPerSecond{"starts/s", Measure::kRate};
inline constexpr Unit kMebibytes{"MiB", Measure::kAmount};

struct Job {
  char const* name;
  char const* data;  // names a data set that prepare knows
  Unit unit;
  double goal;  // see Measure; 0 when there is nothing to reach

  // Makes what both sides need, outside of the time that is measured.
  // Errors: as for Side, also when it does not know the data.
  Sides (*prepare)(Workbench const& bench, std::string_view data);
};

}  // namespace fdo::bench

#endif  // BENCH_JOB_H_
