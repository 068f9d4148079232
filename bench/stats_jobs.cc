// Statistics of a table, against SQLite's own aggregates and a loop over GDAL.
#include <memory>
#include <set>

#include "bench/cell_checksum.h"
#include "bench/job_table.h"
#include "bench/layer_scan.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"
#include "bench/vector_files.h"

namespace fdo::bench {
namespace {

// ours gives the checksum; the peer is a statement that gives the same figures.
template <class Ours>
Sides AgainstSql(Workbench const& bench, std::string_view data, Ours ours, char const* sql) {
  std::filesystem::path const file = SqliteFile(bench, data);
  auto const store = std::make_shared<SqliteStore>(file);
  auto const raw = std::make_shared<RawSqlite>(file);
  auto const rows = static_cast<double>(bench.rows);
  return {[=] { return Work{rows, ours(store->Rows())}; }, [=] { return raw->Aggregate(sql, rows); }};
}

}  // namespace

Sides StatsMinMaxJob(Workbench const& bench, std::string_view data) {
  return AgainstSql(
      bench, data,
      [](Table& table) {
        Value min;
        Value max;
        table.GetMinMax(min, max, L"number", nullptr);
        return OfFigure(min) + OfFigure(max);
      },
      "SELECT min(number), max(number) FROM rows");
}

Sides StatsMeanJob(Workbench const& bench, std::string_view data) {
  return AgainstSql(
      bench, data,
      [](Table& table) {
        double variance = 0;
        double mean = 0;
        table.GetStats(variance, mean, L"number", nullptr);
        return OfFigure(mean);
      },
      "SELECT avg(number) FROM rows");
}

Sides StatsMedianJob(Workbench const& bench, std::string_view data) {
  return AgainstSql(
      bench, data,
      [](Table& table) {
        Value median;
        table.GetMedian(median, L"number", nullptr);
        return OfFigure(median);
      },
      "SELECT avg(number) FROM (SELECT number FROM rows ORDER BY number"
      " LIMIT 2 - (SELECT count(*) FROM rows) % 2 OFFSET (SELECT (count(*) - 1) / 2 FROM rows))");
}

Sides StatsDistinctJob(Workbench const& bench, std::string_view data) {
  return AgainstSql(
      bench, data,
      [](Table& table) {
        std::set<Value> values;
        table.GetDistinctValues(values, L"narrow", /*includeNull=*/false, nullptr);
        return OfFigure(static_cast<double>(values.size()));
      },
      "SELECT count(DISTINCT narrow) FROM rows");
}

Sides StatsExtentJob(Workbench const& bench, std::string_view data) {
  auto const store = std::make_shared<SqliteStore>(SqliteFile(bench, data));
  auto const layer = std::make_shared<LayerScan>(VectorFile(bench, "gpkg " + std::string(data)));
  auto const rows = static_cast<double>(bench.rows);
  auto const ours = [=] {
    double box[4];
    store->Rows().GetExtent(box, nullptr);
    Work work{rows};
    for (double const ordinate : box) work.checksum += OfReal(ordinate);
    return work;
  };
  return {ours, [=] { return layer->Measure(); }};
}

}  // namespace fdo::bench
