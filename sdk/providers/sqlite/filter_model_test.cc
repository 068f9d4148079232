// Filters select the same rows in SQLite as in memory, over a family of random filters;
// QUILLON_SQLITE_FILTERS sets how many.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/random_filters.h"
#include "sdk/providers/sqlite/sample_class.h"
#include "sdk/providers/sqlite/sample_rows.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/runtime/core/utf8.h"
#include "testing/memory_provider/filter_evaluation.h"

namespace fdo_sqlite {
namespace {

constexpr int kRows = 300;

// Each filter is held against the model on every third row, from one of the first three on: the model is
// slow.
constexpr std::size_t kStride = 3;

std::uint64_t FilterCount() {
  char const* const asked = std::getenv("QUILLON_SQLITE_FILTERS");
  return asked == nullptr ? 2000 : std::strtoull(asked, nullptr, 10);
}

class FilterModelTest : public testing::Test {
 protected:
  FilterModelTest() {
    EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    EXPECT_EQ(RegisterSqlFunctions(database_), SQLITE_OK);
    table_ = MakeSampleRows(database_, kRows);
  }
  ~FilterModelTest() override { sqlite3_close(database_); }

  // A letter for each row that is looked at: Y where it is selected.
  std::string InSqlite(SqlFragment const& where, std::size_t first) {
    std::string selected(kRows, '.');
    std::string const sql = "SELECT Id FROM Parts WHERE " + where.Text();
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      return sqlite3_errmsg(database_);
    }
    BindParameters(statement, where.Parameters());
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
      selected[static_cast<std::size_t>(sqlite3_column_int(statement, 0) - 1)] = 'Y';
    }
    std::string looked;
    for (std::size_t i = first; i < kRows; i += kStride) looked += selected[i];
    if (code != SQLITE_DONE) looked = sqlite3_errmsg(database_);
    sqlite3_finalize(statement);
    return looked;
  }

  std::string InMemory(FdoFilter* filter, std::size_t first) {
    std::string looked;
    for (std::size_t i = first; i < table_.rows.size(); i += kStride) {
      looked += memory_provider::Holds(filter, table_, *table_.rows[i], nullptr) ? 'Y' : '.';
    }
    return looked;
  }

  sqlite3* database_ = nullptr;
  StoreClass class_ = SampleClass();
  memory_provider::Table table_;
};

TEST_F(FilterModelTest, SqliteSelectsWhatTheModelSelects) {
  std::uint64_t some = 0;
  int failures = 0;
  for (std::uint64_t seed = 0; seed < FilterCount(); ++seed) {
    std::wstring const text = RandomFilters(seed).Filter(static_cast<int>(seed % 4));
    std::string const shown = "seed " + std::to_string(seed) + ": " + fdo_sdk::Utf8FromWide(text);
    std::string sql;
    try {
      FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text.c_str());
      SqlFragment const where = TranslateFilter(filter, SqlScope{class_}).Where();
      sql = where.Text();
      std::string const expected = InMemory(filter, seed % kStride);
      EXPECT_EQ(InSqlite(where, seed % kStride), expected) << shown << "\n" << sql;
      some += expected.find('Y') != std::string::npos && expected.find('.') != std::string::npos ? 1 : 0;
    } catch (FdoException* failure) {
      ADD_FAILURE() << shown << "\n"
                    << sql << "\n"
                    << FdoStringP(failure->GetExceptionMessage()).operator char const*();
      failure->Release();
    }
    if (HasFailure() && ++failures == 5) break;
  }
  // A family that selects everything or nothing would show little.
  EXPECT_GT(some, FilterCount() / 3);
}

}  // namespace
}  // namespace fdo_sqlite
