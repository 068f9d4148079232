// Filter text from anywhere: it is refused with a reason, or SQLite takes what it becomes and can run it.
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/sample_class.h"
#include "sdk/providers/sqlite/sql_functions.h"

namespace {

using fdo_sqlite::SqlFragment;

// A table with one row of nulls and one of values.
sqlite3* OpenSample() {
  sqlite3* database = nullptr;
  if (sqlite3_open(":memory:", &database) != SQLITE_OK) std::abort();
  if (fdo_sqlite::RegisterSqlFunctions(database) != SQLITE_OK) std::abort();
  std::string const sql = fdo_sqlite::SampleTableSql() +
                          "; INSERT INTO Parts (Id) VALUES (1);"
                          "INSERT INTO Parts VALUES (2, 1, 5, -5, 7, 9223372036854775807, 2, 2.5, 0.5, 'abc',"
                          " '2024-03-01T14:30:05', x'00ff',"
                          " x'0100000000000000000000000000f03f0000000000000040',"
                          " x'0101000000000000000000f03f0000000000000040')";
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
  return database;
}

// Functions may refuse a row's values; the text itself must be right.
void RunOn(sqlite3* database, SqlFragment const& where) {
  std::string const sql = "SELECT Id FROM Parts WHERE " + where.Text();
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) std::abort();
  if (sqlite3_bind_parameter_count(statement) != static_cast<int>(where.Parameters().size())) std::abort();
  fdo_sqlite::BindParameters(statement, where.Parameters());
  while (sqlite3_step(statement) == SQLITE_ROW) {
  }
  sqlite3_finalize(statement);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static sqlite3* const database = OpenSample();
  static fdo_sqlite::StoreClass const sample = fdo_sqlite::SampleClass();
  std::string const bytes(reinterpret_cast<char const*>(data), size);
  FdoStringP const text(bytes.c_str());
  try {
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text);
    SqlFragment const where = TranslateFilter(filter, fdo_sqlite::SqlScope{sample}).Where();
    RunOn(database, where);
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    if (failure->GetExceptionMessage() == nullptr) std::abort();
  }
  return 0;
}
