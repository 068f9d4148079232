// Measuring memory needs a process that has done nothing else, so the program starts itself with
// arguments that ResidentMemoryRun answers.
#ifndef BENCH_RSS_GROWTH_JOB_H_
#define BENCH_RSS_GROWTH_JOB_H_

#include <string>
#include <vector>

namespace fdo::bench {

bool IsResidentMemoryRun(std::vector<std::string> const& arguments);

// Scans a file and prints the resident memory and what was read.
// Gives: the exit code.
// Errors: an exception derived from std::exception.
int ResidentMemoryRun(std::vector<std::string> const& arguments);

}  // namespace fdo::bench

#endif  // BENCH_RSS_GROWTH_JOB_H_
