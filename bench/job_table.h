// A new job is one file that defines its Sides function, listed with its name in CMakeLists.txt, and
// here its declaration and, in job_table.cc, a row for each data set it runs on.
#ifndef BENCH_JOB_TABLE_H_
#define BENCH_JOB_TABLE_H_

#include <span>
#include <string_view>

#include "bench/job.h"

namespace fdo::bench {

struct Workbench;

Sides EvalOgrJob(Workbench const& bench, std::string_view data);
Sides EvalSpatialJob(Workbench const& bench, std::string_view data);
Sides EvalSqliteJob(Workbench const& bench, std::string_view data);
Sides EvalVariantJob(Workbench const& bench, std::string_view data);
Sides FdoByIdJob(Workbench const& bench, std::string_view data);
Sides FdoFilterJob(Workbench const& bench, std::string_view data);
Sides FdoInsertIndexedVsOgrJob(Workbench const& bench, std::string_view data);
Sides FdoInsertJob(Workbench const& bench, std::string_view data);
Sides FdoInsertVsOgrJob(Workbench const& bench, std::string_view data);
Sides FdoLazyJob(Workbench const& bench, std::string_view data);
Sides FdoScanJob(Workbench const& bench, std::string_view data);
Sides FdoScanVsOgrJob(Workbench const& bench, std::string_view data);
Sides FgfBoxJob(Workbench const& bench, std::string_view data);
Sides FgfToWkbJob(Workbench const& bench, std::string_view data);
Sides GeometryFromFgfJob(Workbench const& bench, std::string_view data);
Sides OgrOneFieldJob(Workbench const& bench, std::string_view data);
Sides OgrScanJob(Workbench const& bench, std::string_view data);
Sides ParseFilterJob(Workbench const& bench, std::string_view data);
Sides PoolJob(Workbench const& bench, std::string_view data);
Sides RssGrowthJob(Workbench const& bench, std::string_view data);
Sides ScrollerJob(Workbench const& bench, std::string_view data);
Sides SpatialEvaluateJob(Workbench const& bench, std::string_view data);
Sides SqliteBox001PctJob(Workbench const& bench, std::string_view data);
Sides SqliteBox1PctJob(Workbench const& bench, std::string_view data);
Sides SqliteByIdHeldJob(Workbench const& bench, std::string_view data);
Sides SqliteByIdJob(Workbench const& bench, std::string_view data);
Sides SqliteInsertIndexedJob(Workbench const& bench, std::string_view data);
Sides SqliteInsertJob(Workbench const& bench, std::string_view data);
Sides SqliteOneColumnJob(Workbench const& bench, std::string_view data);
Sides SqliteScanJob(Workbench const& bench, std::string_view data);
Sides StartJob(Workbench const& bench, std::string_view data);
Sides StatsDistinctJob(Workbench const& bench, std::string_view data);
Sides StatsExtentJob(Workbench const& bench, std::string_view data);
Sides StatsMeanJob(Workbench const& bench, std::string_view data);
Sides StatsMedianJob(Workbench const& bench, std::string_view data);
Sides StatsMinMaxJob(Workbench const& bench, std::string_view data);
Sides WkbToFgfJob(Workbench const& bench, std::string_view data);

// Every job, in the order in which they run and are shown.
std::span<Job const> Jobs();

}  // namespace fdo::bench

#endif  // BENCH_JOB_TABLE_H_
