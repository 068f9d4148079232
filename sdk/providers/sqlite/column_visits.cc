#include "sdk/providers/sqlite/column_visits.h"

#include <exception>
#include <utility>
#include <vector>

#include "sdk/providers/sqlite/sql_functions.h"

namespace fdo_sqlite {
namespace {

// One run of a statement.
struct Visits {
  LentRow& row;
  FdoInt32 type;
  bool isOfReals;  // Double or Decimal
  fdo_sdk::ColumnVisitor& visitor;
  std::exception_ptr failure;  // what the visitor has thrown, which must not pass through SQLite
};

// Those whose statement is about to come to its first row on this thread. A parameter of the function could
// tell, but SQLite would copy that for every row.
thread_local Visits* awaited = nullptr;

// Nobody takes them where there are no rows, or where the statement fails before the first.
class Awaiting {
 public:
  explicit Awaiting(Visits& visits) { awaited = &visits; }
  ~Awaiting() { awaited = nullptr; }
  Awaiting(Awaiting const&) = delete;
  Awaiting& operator=(Awaiting const&) = delete;
};

// SQLite keeps so many bytes of 0 for each run, here an address. Errors: null, which SQLite has been told of.
Visits* VisitsOf(sqlite3_context* context) {
  auto** const place = static_cast<Visits**>(sqlite3_aggregate_context(context, sizeof(Visits*)));
  if (place == nullptr) {
    sqlite3_result_error_nomem(context);
    return nullptr;
  }
  if (*place == nullptr) {
    *place = std::exchange(awaited, nullptr);
    if (*place == nullptr) sqlite3_result_error(context, "fdo_visit has nobody to show its values to", -1);
  }
  return *place;
}

void Step(sqlite3_context* context, int, sqlite3_value** arguments) {
  Visits* const visits = VisitsOf(context);
  if (visits == nullptr) return;
  try {
    fdo_sdk::DirectCell cell;
    auto kind = fdo_sdk::DirectKind::kReal;
    // Reals are what is calculated with most: theirs is the shortest way.
    if (visits->isOfReals && sqlite3_value_type(arguments[0]) == SQLITE_FLOAT) {
      cell.real = sqlite3_value_double(arguments[0]);
    } else {
      kind = visits->row.Read(arguments[0], visits->type, cell);
    }
    visits->visitor.VisitCell(kind, cell, visits->row.Reader());
  } catch (...) {
    visits->failure = std::current_exception();
    sqlite3_result_error(context, "the visits of fdo_visit have failed", -1);
  }
}

void Finish(sqlite3_context*) {}

}  // namespace

std::vector<SqlFunction> const& VisitFunctions() {
  static std::vector<SqlFunction> const kFunctions = {{kVisitFunction, 1, false, nullptr, Step, Finish}};
  return kFunctions;
}

void VisitValues(Statement& statement, LentRow& row, FdoInt32 type, fdo_sdk::ColumnVisitor& visitor) {
  bool const isOfReals = type == FdoDataType_Double || type == FdoDataType_Decimal;
  Visits visits{row, type, isOfReals, visitor, nullptr};
  Awaiting const awaiting(visits);
  try {
    statement.Run();
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    if (visits.failure != nullptr) std::rethrow_exception(visits.failure);
    throw failure.Detach();
  }
}

}  // namespace fdo_sqlite
