// The peers: loops over SQLite's C interface, as a program without the library would write them.
#ifndef BENCH_RAW_SQLITE_H_
#define BENCH_RAW_SQLITE_H_

#include <filesystem>
#include <memory>
#include <span>
#include <string>

#include "bench/job.h"
#include "bench/kept_rows.h"

struct sqlite3;
struct sqlite3_stmt;

namespace fdo::bench {

struct Box {
  double minX, minY, maxX, maxY;
};

// A connection to a file whose table "rows" is as SqliteStore makes it.
// Errors of all operations: std::runtime_error.
class RawSqlite {
 public:
  explicit RawSqlite(std::filesystem::path const& path);

  // Reads every cell of the rows that meet the condition, all of them for "".
  Work ReadAll(std::string const& condition);
  // The same, but only "narrow" and "word" add to the checksum.
  Work ReadAllSumTwo();
  // Reads "narrow" of every row, and no other column.
  Work ReadNarrow();
  // Reads every cell of the row of each identity, by one prepared statement.
  Work LookUp(std::span<std::int64_t const> ids);
  // Begins a transaction that is never ended: look-ups need not lock the file any more.
  void Hold() { Run("BEGIN"); }
  // Inserts the rows by one prepared statement, in transactions of that many.
  Work Insert(std::span<KeptRow const> rows, Shape shape, std::size_t batch);
  // Makes an R*Tree "box" of the rows' boxes. Requires: the geometries are FGF.
  void MakeBoxTree();
  // Reads every cell of the rows in each box, found by a join with the R*Tree.
  Work ReadBoxes(std::span<Box const> boxes);
  // The one number that a query gives.
  std::int64_t Number(std::string const& sql);
  // The first row of a query of reals or texts; each column adds its number rounded to thousandths.
  Work Aggregate(std::string const& sql, double amount);

 private:
  struct Close {
    void operator()(sqlite3* database) const;
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  Statement Prepare(std::string const& sql);
  void Run(char const* sql);

  std::unique_ptr<sqlite3, Close> database_;
};

// A figure that both sides of a job calculate, each with roundings of its own.
std::uint64_t OfFigure(double figure);

}  // namespace fdo::bench

#endif  // BENCH_RAW_SQLITE_H_
