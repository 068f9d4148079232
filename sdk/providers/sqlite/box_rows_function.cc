#include "sdk/providers/sqlite/box_rows_function.h"

#include <sqlite3.h>

#include <new>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/spatial_indexes.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {

namespace {

// The arguments of the function are hidden columns of its table.
enum Column { kRowId, kIndex, kMinX, kMinY, kMaxX, kMaxY, kColumnCount };
constexpr char kDeclaration[] =
    "CREATE TABLE x(row_id INTEGER, index_number HIDDEN, min_x HIDDEN, min_y HIDDEN, max_x HIDDEN, max_y "
    "HIDDEN)";

// SQLite's C structures come first, for it hands out pointers to them.
struct Table : sqlite3_vtab {
  SpatialIndexes* indexes = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
  std::vector<std::int64_t> rows;
  std::size_t at = 0;
};

int Fail(sqlite3_vtab* table, std::wstring const& message) {
  sqlite3_free(table->zErrMsg);
  table->zErrMsg = sqlite3_mprintf("%s", fdo_sdk::Utf8FromWide(message).c_str());
  return SQLITE_ERROR;
}

int Connect(sqlite3* handle, void* indexes, int, char const* const*, sqlite3_vtab** made, char**) {
  int const code = sqlite3_declare_vtab(handle, kDeclaration);
  if (code != SQLITE_OK) return code;
  auto* const table = new (std::nothrow) Table();
  if (table == nullptr) return SQLITE_NOMEM;
  table->indexes = static_cast<SpatialIndexes*>(indexes);
  *made = table;
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete static_cast<Table*>(table);
  return SQLITE_OK;
}

int BestIndex(sqlite3_vtab*, sqlite3_index_info* plan) {
  int given = 0;
  for (int i = 0; i < plan->nConstraint; ++i) {
    auto const& constraint = plan->aConstraint[i];
    if (constraint.iColumn < kIndex || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (!constraint.usable) return SQLITE_CONSTRAINT;
    plan->aConstraintUsage[i].argvIndex = constraint.iColumn;
    plan->aConstraintUsage[i].omit = 1;
    given |= 1 << constraint.iColumn;
  }
  constexpr int kAll = (1 << kColumnCount) - (1 << kIndex);
  // Without all its arguments the function has no rows.
  plan->idxNum = given == kAll;
  if (given != kAll) {
    for (int i = 0; i < plan->nConstraint; ++i) plan->aConstraintUsage[i].argvIndex = 0;
  }
  plan->estimatedCost = 100;
  plan->estimatedRows = 100;
  if (plan->nOrderBy == 1 && plan->aOrderBy[0].iColumn <= kRowId && !plan->aOrderBy[0].desc) {
    plan->orderByConsumed = 1;
  }
  return SQLITE_OK;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** made) {
  *made = new (std::nothrow) Cursor();
  return *made == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete static_cast<Cursor*>(cursor);
  return SQLITE_OK;
}

// No exception may pass through SQLite.
int Filter(sqlite3_vtab_cursor* base, int hasArguments, char const*, int, sqlite3_value** arguments) {
  auto* const cursor = static_cast<Cursor*>(base);
  SpatialIndexes& indexes = *static_cast<Table*>(base->pVtab)->indexes;
  cursor->rows.clear();
  cursor->at = 0;
  if (!hasArguments) return SQLITE_OK;
  for (int i = 0; i < kMaxY; ++i) {
    if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return SQLITE_OK;
  }
  std::int64_t const number = sqlite3_value_int64(arguments[0]);
  if (!indexes.Has(number)) return Fail(base->pVtab, L"There is no spatial index of that number.");
  auto const ordinate = [&](Column column) { return sqlite3_value_double(arguments[column - kIndex]); };
  FgfBox box;
  box.minX = ordinate(kMinX);
  box.minY = ordinate(kMinY);
  box.maxX = ordinate(kMaxX);
  box.maxY = ordinate(kMaxY);
  try {
    indexes.Index(static_cast<int>(number)).Rows(box, cursor->rows);
  } catch (FdoException* raised) {
    FdoPtr<FdoException> failure(raised);
    FdoString* const message = failure->GetExceptionMessage();
    return Fail(base->pVtab, message == nullptr ? L"" : message);
  } catch (std::bad_alloc const&) {
    return SQLITE_NOMEM;
  }
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
  ++static_cast<Cursor*>(cursor)->at;
  return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor* base) {
  auto const* const cursor = static_cast<Cursor*>(base);
  return cursor->at >= cursor->rows.size();
}

int RowId(sqlite3_vtab_cursor* base, sqlite3_int64* row) {
  auto const* const cursor = static_cast<Cursor*>(base);
  *row = cursor->rows[cursor->at];
  return SQLITE_OK;
}

int ColumnValue(sqlite3_vtab_cursor* base, sqlite3_context* result, int column) {
  auto const* const cursor = static_cast<Cursor*>(base);
  if (column == kRowId) sqlite3_result_int64(result, cursor->rows[cursor->at]);
  return SQLITE_OK;
}

constexpr sqlite3_module BoxRowsModule() {
  sqlite3_module module{};
  // No xCreate: the table is there without being made, and cannot be made under another name.
  module.xConnect = Connect;
  module.xBestIndex = BestIndex;
  module.xDisconnect = Disconnect;
  module.xDestroy = Disconnect;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Filter;
  module.xNext = Next;
  module.xEof = Eof;
  module.xColumn = ColumnValue;
  module.xRowid = RowId;
  return module;
}

constexpr sqlite3_module kModule = BoxRowsModule();

}  // namespace

int RegisterBoxRows(sqlite3* handle, SpatialIndexes& indexes) {
  return sqlite3_create_module_v2(handle, "fdo_box_rows", &kModule, &indexes, nullptr);
}

}  // namespace fdo_sqlite
