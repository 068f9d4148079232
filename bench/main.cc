// Runs the jobs of job_table.cc, each against its peer, and prints what they reach.
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/compare.h"
#include "bench/job_table.h"
#include "bench/options.h"
#include "bench/report.h"
#include "bench/rss_growth_job.h"

namespace fdo::bench {
namespace {

enum ExitCode { kDone = 0, kFailed = 1, kUsageError = 2 };

void Print(std::FILE* stream, std::string const& text) {
  std::fputs(text.c_str(), stream);
  std::fflush(stream);
}

bool IsWanted(Job const& job, std::string const& prefix) {
  return (std::string(job.name) + " " + job.data).starts_with(prefix);
}

// Whether every wanted job ran; a job that fails is told and does not keep the others from running.
bool RunJobs(Options const& options, std::vector<Result>& results) {
  bool allRan = true;
  Print(stdout, TableHead());
  for (Job const& job : Jobs()) {
    if (!IsWanted(job, options.only)) continue;
    try {
      Sides const sides = job.prepare(options.bench, job.data);
      results.push_back({&job, Compare(job, sides, options.effort)});
      Print(stdout, TableLine(results.back()));
    } catch (std::exception const& failure) {
      allRan = false;
      Print(stderr,
            std::string("quillon_bench: ") + job.name + " " + job.data + ": " + failure.what() + "\n");
    }
  }
  return allRan;
}

void WriteFile(std::filesystem::path const& path, std::string const& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text << std::flush;
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

int Run(Options const& options) {
  if (options.help) {
    Print(stdout, kUsage);
    return kDone;
  }
  bool anyWanted = false;
  for (Job const& job : Jobs()) {
    if (!IsWanted(job, options.only)) continue;
    anyWanted = true;
    if (options.list) Print(stdout, std::string(job.name) + " " + job.data + "\n");
  }
  if (!anyWanted) throw std::invalid_argument("no job begins with \"" + options.only + "\"");
  if (options.list) return kDone;

  std::vector<Result> results;
  bool const allRan = RunJobs(options, results);
  if (!options.jsonFile.empty()) WriteFile(options.jsonFile, Json(results));
  return allRan ? kDone : kFailed;
}

}  // namespace

int Main(std::string const& program, std::vector<std::string> const& arguments) {
  try {
    if (IsResidentMemoryRun(arguments)) return ResidentMemoryRun(arguments);
    Options options = ParseOptions(arguments);
    options.bench.program = std::filesystem::absolute(program);
    options.bench.programDirectory = options.bench.program.parent_path();
    if (options.bench.dataDirectory.empty()) {
      options.bench.dataDirectory = options.bench.programDirectory.parent_path() / "bench-data";
    }
    return Run(options);
  } catch (std::invalid_argument const& mistake) {
    Print(stderr, std::string("quillon_bench: ") + mistake.what() + "\n" + kUsage);
    return kUsageError;
  } catch (std::exception const& failure) {
    Print(stderr, std::string("quillon_bench: ") + failure.what() + "\n");
    return kFailed;
  }
}

}  // namespace fdo::bench

int main(int argc, char** argv) {
  return fdo::bench::Main(argc > 0 ? argv[0] : "",
                          std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
