// SqlValue is a value expression on its way into SQL: its text, and what kind of value it has.
//
// SQLite decides by the types of single values, and by the declarations of columns, how two of them compare.
// Here the kinds decide, which are known before any row is read: As gives the text of a value as one kind,
// and two texts of one kind compare in SQLite as values of that kind do.
#ifndef SDK_PROVIDERS_SQLITE_SQL_VALUE_H_
#define SDK_PROVIDERS_SQLITE_SQL_VALUE_H_

#include <optional>
#include <string>
#include <string_view>

#include "Fdo.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// Booleans are the numbers 0 and 1 to SQLite. A null literal goes with every other kind.
enum class SqlKind { kNull, kBoolean, kInteger, kReal, kText, kDate, kBytes, kGeometry };

struct SqlValue {
  SqlFragment sql;
  SqlKind kind = SqlKind::kNull;
  // As a property of a result; of geometry it means nothing.
  FdoDataType type = FdoDataType_String;
  StoreColumn const* column = nullptr;  // when it is one, as it stands in the file
  FdoPtr<FdoDataValue> literal;         // when it is one that is not null
  bool isAggregate = false;             // whether it summarises rows
  bool readsRow = false;                // whether it is different from row to row
};

inline bool IsNumber(SqlKind kind) {
  return kind == SqlKind::kBoolean || kind == SqlKind::kInteger || kind == SqlKind::kReal;
}

SqlKind KindOf(FdoDataType type);

// The words for a kind in messages.
wchar_t const* NameOf(SqlKind kind);

SqlValue ColumnValue(StoreColumn const& column, std::string const& sqlName);
// Errors: FdoCommandException* for a date that is none.
SqlValue LiteralValue(FdoDataValue& literal);

// Errors: FdoCommandException* for a value of all rows and of single ones at once, of which SQLite would take
// any one.
void RequireOneSort(SqlValue const& value);

// The number, for arithmetic and functions.
// Errors: FdoCommandException* when the value is of another kind; `of` says in the message what wants it.
SqlFragment AsNumber(SqlValue const& value, std::wstring_view of);
// The text, for functions.
SqlFragment AsText(SqlValue const& value, std::wstring_view of);
// The date as text in the form of date_text.h, for functions; a text is read as one.
SqlFragment AsDate(SqlValue const& value, std::wstring_view of);

// The kind as which two values compare; null when both are null literals.
// Errors: FdoCommandException* when they cannot be compared.
SqlKind ComparedAs(SqlValue const& left, SqlValue const& right);

// What to compare of a value that is compared as that kind. With two such texts SQLite compares numbers as
// numbers, texts by their code points, dates as date_key.h says, and bytes as bytes.
// Errors: FdoCommandException* for a text literal that is no number, or no date, where that is compared.
SqlFragment Comparable(SqlValue const& value, SqlKind as);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SQL_VALUE_H_
