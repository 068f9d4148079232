// The ways in which SQLite is made to fail by the tests that let each of its calls fail in turn.
#ifndef TESTING_SQLITE_FAULTS_H_
#define TESTING_SQLITE_FAULTS_H_

#include "port/file.h"
#include "testing/failing_sqlite.h"

namespace fdo {

struct FaultCase {
  char const* name;
  SqliteFault fault;
  bool lasting;
  int step;
};
inline constexpr FaultCase kFaults[] = {
    {"disk", SqliteFault::kDisk, false, 2},          {"broken disk", SqliteFault::kDisk, true, 5},
    {"full disk", SqliteFault::kFullDisk, false, 1}, {"disk stays full", SqliteFault::kFullDisk, true, 3},
    {"memory", SqliteFault::kMemory, false, 17},
};

// With QUILLON_EVERY_FAILURE set every call fails in turn; otherwise every step-th.
inline int StepOf(FaultCase const& row) {
  return port::EnvironmentVariable("QUILLON_EVERY_FAILURE").empty() ? row.step : 1;
}

}  // namespace fdo

#endif  // TESTING_SQLITE_FAULTS_H_
