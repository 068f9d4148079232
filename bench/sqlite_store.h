// SQLite files that the library makes, and the library's side of jobs on them.
#ifndef BENCH_SQLITE_STORE_H_
#define BENCH_SQLITE_STORE_H_

#include <fdo/database_fdo.h>

#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "bench/kept_rows.h"
#include "bench/workbench.h"

namespace fdo::bench {

// The table "rows" of a SQLite file.
class SqliteStore {
 public:
  // Opens a file. Errors: std::runtime_error when it does not open, or has no table.
  explicit SqliteStore(std::filesystem::path const& path);

  // Makes a new file, in place of any there, with a table of an identity, six columns of data and a
  // geometry: "id", "wide", "narrow", "number", "word", "moment", "flag" and "shape".
  // Errors: std::runtime_error.
  static SqliteStore Create(std::filesystem::path const& path);

  // Writes the rows, settling each kBatch of them. Errors: std::runtime_error.
  static constexpr std::size_t kBatch = 10'000;
  void Insert(std::span<KeptRow const> rows, Shape shape);

  Table& Rows() { return (*database_)[0]; }

 private:
  SqliteStore() = default;
  void Open(std::filesystem::path const& path);

  std::unique_ptr<DatabaseFdo> database_;
};

// "points" or "polygons". Errors: std::invalid_argument.
Shape ShapeOf(std::string_view data);

// The file that holds those rows, made when it is not there.
// Errors: std::invalid_argument for other data, std::runtime_error.
std::filesystem::path SqliteFile(Workbench const& bench, std::string_view data);

}  // namespace fdo::bench

#endif  // BENCH_SQLITE_STORE_H_
