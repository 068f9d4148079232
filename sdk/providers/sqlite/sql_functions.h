// The SQL functions that translated filters and expressions call, and how a database learns them.
#ifndef SDK_PROVIDERS_SQLITE_SQL_FUNCTIONS_H_
#define SDK_PROVIDERS_SQLITE_SQL_FUNCTIONS_H_

#include <sqlite3.h>

#include <vector>

namespace fdo_sqlite {

// One SQL function: a scalar has run, an aggregate step and finish instead.
struct SqlFunction {
  char const* name;
  int arity;   // -1 for any number
  bool fixed;  // whether the same arguments always give the same result
  void (*run)(sqlite3_context* context, int count, sqlite3_value** arguments);
  void (*step)(sqlite3_context* context, int count, sqlite3_value** arguments);
  void (*finish)(sqlite3_context* context);
};

// By subject; each is made once and is never changed.
std::vector<SqlFunction> const& NumberFunctions();
std::vector<SqlFunction> const& TextFunctions();
std::vector<SqlFunction> const& GeometryFunctions();
std::vector<SqlFunction> const& AggregateFunctions();
std::vector<SqlFunction> const& VisitFunctions();

// Gives the functions to a connection of SQLite. What a file's own schema names does not reach them.
// Gives: SQLite's result code.
int RegisterSqlFunctions(sqlite3* database);

// Calls body; what it throws becomes the error of the SQL function, and so the message of the failed
// statement.
template <class Body>
void RunSqlFunction(sqlite3_context* context, Body body);

void ReportSqlError(sqlite3_context* context);  // of the exception that is being handled

template <class Body>
void RunSqlFunction(sqlite3_context* context, Body body) {
  try {
    body();
  } catch (...) {
    ReportSqlError(context);
  }
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SQL_FUNCTIONS_H_
