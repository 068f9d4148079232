// What memory a scan takes must not depend on the number of rows: resident memory after all rows less
// that after a tenth of them, each in a file and a process of its own.
#include "bench/rss_growth_job.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "bench/job_table.h"
#include "bench/layer_scan.h"
#include "bench/ogr_source.h"
#include "bench/table_scan.h"
#include "bench/vector_files.h"
#include "port/child_process.h"
#include "port/process_memory.h"

namespace fdo::bench {
namespace {

constexpr char kFlag[] = "--resident-memory-after";
constexpr char kOurs[] = "ours";
constexpr char kPeer[] = "peer";

struct Resident {
  std::int64_t bytes;
  std::uint64_t checksum;
};

// The scan, and the statistics that are made in one pass and keep no rows.
Resident AfterOurs(std::filesystem::path const& file) {
  OgrSource source(file);
  Table& table = source.FirstTable();
  Work const work = ScanTable(table);
  double box[4];
  table.GetExtent(box, nullptr);
  double variance;
  double mean;
  table.GetStats(variance, mean, L"number", nullptr);
  Value least;
  Value most;
  table.GetMinMax(least, most, L"word", nullptr);
  return {port::ResidentBytes(), work.checksum};
}

Resident AfterPeer(std::filesystem::path const& file) {
  LayerScan layer(file);
  Work const work = layer.ReadAll();
  return {port::ResidentBytes(), work.checksum};
}

Resident InChild(Workbench const& bench, char const* side, std::filesystem::path const& file) {
  port::ChildResult const child = port::RunChild(bench.program.string(), {kFlag, side, file.string()});
  std::istringstream output(child.output);
  Resident resident{};
  if (child.exitCode != 0 || !(output >> resident.bytes >> resident.checksum)) {
    throw std::runtime_error("the run that measures memory failed");
  }
  return resident;
}

Work Growth(Workbench const& bench, char const* side, std::filesystem::path const& few,
            std::filesystem::path const& all) {
  constexpr double kMebibyte = 1024 * 1024;
  Resident const afterFew = InChild(bench, side, few);
  Resident const afterAll = InChild(bench, side, all);
  return {static_cast<double>(afterAll.bytes - afterFew.bytes) / kMebibyte,
          afterFew.checksum + afterAll.checksum};
}

}  // namespace

bool IsResidentMemoryRun(std::vector<std::string> const& arguments) {
  return arguments.size() == 3 && arguments[0] == kFlag;
}

int ResidentMemoryRun(std::vector<std::string> const& arguments) {
  Resident const resident = arguments[1] == kOurs ? AfterOurs(arguments[2]) : AfterPeer(arguments[2]);
  if (resident.bytes < 0) throw std::runtime_error("the platform does not tell the resident memory");
  std::printf("%lld %llu\n", static_cast<long long>(resident.bytes),
              static_cast<unsigned long long>(resident.checksum));
  return 0;
}

Sides RssGrowthJob(Workbench const& bench, std::string_view data) {
  Workbench tenth = bench;
  tenth.rows = std::max<std::int64_t>(1, bench.rows / 10);
  std::filesystem::path const few = VectorFile(tenth, data);
  std::filesystem::path const all = VectorFile(bench, data);
  return {[=] { return Growth(bench, kOurs, few, all); }, [=] { return Growth(bench, kPeer, few, all); }};
}

}  // namespace fdo::bench
