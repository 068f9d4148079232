// New files with an index of the boxes: what is measured is making, filling and closing one.
#include <Fdo.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/job_table.h"
#include "bench/provider_rows.h"
#include "bench/raw_sqlite.h"
#include "bench/sqlite_store.h"
#include "bench/vector_files.h"

namespace fdo::bench {
namespace {

// Makes the store, writes the rows into it, and closes it, which makes the index.
typedef void (*WriteStore)(std::filesystem::path const& file, std::span<KeptRow const> rows, Shape shape);

void RequireNumber(std::filesystem::path const& file, char const* sql, std::int64_t number) {
  if (RawSqlite(file).Number(sql) != number) throw std::runtime_error("the index is not in place");
}

// Against GDAL's GeoPackage writer.
Sides IndexedInserts(Workbench const& bench, std::string_view data, WriteStore write) {
  Shape const shape = ShapeOf(data);
  std::int64_t const count = std::min<std::int64_t>(bench.rows, 300'000);
  auto const rows = std::make_shared<std::vector<KeptRow> const>(KeepRows(bench.seed, shape, count));
  std::filesystem::path const file = bench.dataDirectory / "indexed.sqlite";
  std::filesystem::path const gpkg = bench.dataDirectory / "indexed.gpkg";
  std::filesystem::create_directories(bench.dataDirectory);
  Work const done{static_cast<double>(count), static_cast<std::uint64_t>(count)};
  return {[=] {
            write(file, *rows, shape);
            RequireNumber(file, "SELECT sum(box_count) FROM fdo_spatial_index_segment", count);
            return done;
          },
          [=, name = "indexed gpkg " + std::string(data)] {
            NewVectorFile(gpkg, name).Append(*rows, SqliteStore::kBatch);
            RequireNumber(gpkg, "SELECT count(*) FROM sqlite_schema WHERE name LIKE 'rtree%_node'", 1);
            return done;
          }};
}

}  // namespace

Sides SqliteInsertIndexedJob(Workbench const& bench, std::string_view data) {
  return IndexedInserts(bench, data,
                        [](std::filesystem::path const& file, std::span<KeptRow const> rows, Shape shape) {
                          SqliteStore::Create(file);
                          Translated([&] {
                            FdoPtr<FdoIConnection> connection = OpenProvider(file);
                            InsertRows(connection, rows, shape, SqliteStore::kBatch);
                            connection->Close();
                            return Work{};
                          });
                        });
}

Sides FdoInsertIndexedVsOgrJob(Workbench const& bench, std::string_view data) {
  constexpr std::string_view kIndexed = "indexed ";
  return IndexedInserts(bench, data.substr(kIndexed.size()),
                        [](std::filesystem::path const& file, std::span<KeptRow const> rows, Shape shape) {
                          SqliteStore::Create(file).Insert(rows, shape);
                        });
}

}  // namespace fdo::bench
