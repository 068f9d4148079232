#include "bench/raw_sqlite.h"

#include <fdo/geometry_stream.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "bench/cell_checksum.h"

namespace fdo::bench {
namespace {

constexpr char kSelect[] = "SELECT id, wide, narrow, number, word, moment, flag, shape FROM rows";
constexpr int kColumnCount = 8;
constexpr std::size_t kNarrow = 2;
constexpr std::size_t kWord = 4;
typedef std::array<std::uint64_t, kColumnCount> ColumnSums;

void AddRow(sqlite3_stmt* statement, ColumnSums& sums) {
  for (int const column : {0, 1, 2, 6}) {
    sums[static_cast<std::size_t>(column)] += OfInteger(sqlite3_column_int64(statement, column));
  }
  sums[3] += OfReal(sqlite3_column_double(statement, 3));
  sums[4] += OfCharacter(sqlite3_column_text(statement, 4)[0]);
  sums[5] += OfYearDigit(sqlite3_column_text(statement, 5)[3] - '0');
  auto const* const bytes = static_cast<unsigned char const*>(sqlite3_column_blob(statement, 7));
  sums[7] += OfGeometry(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, 7)));
}

std::uint64_t Total(ColumnSums const& sums) {
  std::uint64_t total = 0;
  for (std::uint64_t const sum : sums) total += sum;
  return total;
}

// Steps over all rows, which visit sees.
template <class Visit>
void ForEachRow(sqlite3_stmt* statement, Visit visit) {
  int result;
  while ((result = sqlite3_step(statement)) == SQLITE_ROW) visit();
  if (result != SQLITE_DONE) throw std::runtime_error("SQLite stops half way");
}

}  // namespace

void RawSqlite::Close::operator()(sqlite3* database) const { sqlite3_close(database); }
void RawSqlite::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

RawSqlite::RawSqlite(std::filesystem::path const& path) {
  sqlite3* database = nullptr;
  int const result = sqlite3_open(path.string().c_str(), &database);
  database_.reset(database);
  if (result != SQLITE_OK) throw std::runtime_error("SQLite does not open " + path.string());
}

RawSqlite::Statement RawSqlite::Prepare(std::string const& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }
  return Statement(statement);
}

void RawSqlite::Run(char const* sql) {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
  }
}

Work RawSqlite::ReadAll(std::string const& condition) {
  Statement const statement = Prepare(kSelect + (condition.empty() ? "" : " WHERE " + condition));
  Work work;
  ColumnSums sums{};
  ForEachRow(statement.get(), [&] {
    AddRow(statement.get(), sums);
    ++work.amount;
  });
  work.checksum = Total(sums);
  return work;
}

Work RawSqlite::ReadAllSumTwo() {
  Statement const statement = Prepare(kSelect);
  Work work;
  ColumnSums sums{};
  ForEachRow(statement.get(), [&] {
    AddRow(statement.get(), sums);
    ++work.amount;
  });
  // Only so are the other columns of any use to the compiler.
  if (Total(sums) == 0) throw std::runtime_error("the rows hold nothing");
  work.checksum = sums[kNarrow] + sums[kWord];
  return work;
}

Work RawSqlite::ReadNarrow() {
  Statement const statement = Prepare("SELECT narrow FROM rows");
  Work work;
  ForEachRow(statement.get(), [&] {
    work.checksum += OfInteger(sqlite3_column_int64(statement.get(), 0));
    ++work.amount;
  });
  return work;
}

Work RawSqlite::LookUp(std::span<std::int64_t const> ids) {
  Statement const statement = Prepare(std::string(kSelect) + " WHERE id = ?");
  Work work;
  ColumnSums sums{};
  for (std::int64_t const id : ids) {
    sqlite3_bind_int64(statement.get(), 1, id);
    if (sqlite3_step(statement.get()) != SQLITE_ROW) throw std::runtime_error("a row is missing");
    AddRow(statement.get(), sums);
    sqlite3_reset(statement.get());
    ++work.amount;
  }
  work.checksum = Total(sums);
  return work;
}

std::int64_t RawSqlite::Number(std::string const& sql) {
  Statement const statement = Prepare(sql);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) throw std::runtime_error("a query gives no number");
  return sqlite3_column_int64(statement.get(), 0);
}

void RawSqlite::MakeBoxTree() {
  Run("BEGIN; CREATE VIRTUAL TABLE box USING rtree(id, min_x, max_x, min_y, max_y)");
  {
    Statement const read = Prepare("SELECT id, shape FROM rows");
    Statement const add = Prepare("INSERT INTO box VALUES (?, ?, ?, ?, ?)");
    ForEachRow(read.get(), [&] {
      auto const* const fgf = static_cast<unsigned char const*>(sqlite3_column_blob(read.get(), 1));
      double box[4];
      FgfBox(fgf, fgf + sqlite3_column_bytes(read.get(), 1), box);
      sqlite3_bind_int64(add.get(), 1, sqlite3_column_int64(read.get(), 0));
      sqlite3_bind_double(add.get(), 2, box[0]);
      sqlite3_bind_double(add.get(), 3, box[2]);
      sqlite3_bind_double(add.get(), 4, box[1]);
      sqlite3_bind_double(add.get(), 5, box[3]);
      if (sqlite3_step(add.get()) != SQLITE_DONE) throw std::runtime_error("the R*Tree takes no row");
      sqlite3_reset(add.get());
    });
  }
  Run("COMMIT");
}

Work RawSqlite::ReadBoxes(std::span<Box const> boxes) {
  Statement const statement = Prepare(
      "SELECT rows.id, wide, narrow, number, word, moment, flag, shape FROM box CROSS JOIN rows"
      " ON rows.id = box.id WHERE max_x >= ? AND min_x <= ? AND max_y >= ? AND min_y <= ?");
  Work work;
  ColumnSums sums{};
  for (Box const& box : boxes) {
    sqlite3_bind_double(statement.get(), 1, box.minX);
    sqlite3_bind_double(statement.get(), 2, box.maxX);
    sqlite3_bind_double(statement.get(), 3, box.minY);
    sqlite3_bind_double(statement.get(), 4, box.maxY);
    ForEachRow(statement.get(), [&] {
      // The R*Tree rounds to 32 bits, outwards.
      auto const* const fgf = static_cast<unsigned char const*>(sqlite3_column_blob(statement.get(), 7));
      double own[4];
      FgfBox(fgf, fgf + sqlite3_column_bytes(statement.get(), 7), own);
      if (own[0] > box.maxX || own[2] < box.minX || own[1] > box.maxY || own[3] < box.minY) return;
      AddRow(statement.get(), sums);
      ++work.amount;
    });
    sqlite3_reset(statement.get());
  }
  work.checksum = Total(sums);
  return work;
}

Work RawSqlite::Insert(std::span<KeptRow const> rows, Shape shape, std::size_t batch) {
  Statement const statement = Prepare(
      "INSERT INTO rows (wide, narrow, number, word, moment, flag, shape) VALUES (?, ?, ?, ?, ?, ?, ?)");
  std::vector<unsigned char> fgf;
  Work work;
  for (std::size_t begin = 0; begin < rows.size(); begin += batch) {
    Run("BEGIN");
    for (KeptRow const& kept : rows.subspan(begin, std::min(batch, rows.size() - begin))) {
      fgf.clear();
      AppendFgf(kept.row, shape, fgf);
      sqlite3_bind_int64(statement.get(), 1, kept.row.wide);
      sqlite3_bind_int(statement.get(), 2, kept.row.narrow);
      sqlite3_bind_double(statement.get(), 3, kept.row.real);
      sqlite3_bind_text(statement.get(), 4, kept.row.text.data(), kTextLength, SQLITE_STATIC);
      sqlite3_bind_text(statement.get(), 5, kept.storedMoment.c_str(),
                        static_cast<int>(kept.storedMoment.size()), SQLITE_STATIC);
      sqlite3_bind_int(statement.get(), 6, kept.row.flag ? 1 : 0);
      sqlite3_bind_blob(statement.get(), 7, fgf.data(), static_cast<int>(fgf.size()), SQLITE_STATIC);
      if (sqlite3_step(statement.get()) != SQLITE_DONE) {
        throw std::runtime_error(sqlite3_errmsg(database_.get()));
      }
      sqlite3_reset(statement.get());
      ++work.amount;
    }
    Run("COMMIT");
  }
  return work;
}

Work RawSqlite::Aggregate(std::string const& sql, double amount) {
  Statement const statement = Prepare(sql);
  Work work;
  ForEachRow(statement.get(), [&] {
    for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
      work.checksum += OfFigure(sqlite3_column_double(statement.get(), i));
    }
  });
  work.amount = amount;
  return work;
}

std::uint64_t OfFigure(double figure) { return OfInteger(std::llround(figure * 1000)); }

}  // namespace fdo::bench
