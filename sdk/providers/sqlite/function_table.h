// The functions of the interface that a filter or expression may call here, in one table: what they are
// called, what they take, and what they are in SQL.
#ifndef SDK_PROVIDERS_SQLITE_FUNCTION_TABLE_H_
#define SDK_PROVIDERS_SQLITE_FUNCTION_TABLE_H_

#include <string_view>
#include <vector>

#include "sdk/providers/sqlite/sql_value.h"

namespace fdo_sqlite {

struct FunctionRow {
  wchar_t const* name;
  int least, most;  // arguments
  // A letter for each argument, the last for all that follow: n a number, i the same, s a text, d a date,
  // v a number, Boolean or text, g a geometry, p a geometry or its text, a anything else than a geometry,
  // * anything.
  char const* takes;
  SqlKind kind;
  FdoDataType type;
  char const* sqlName;  // the SQL function, or null where write makes it
  // Writes what is no plain call. Requires: the counts of arguments are right.
  void (*write)(FunctionRow const& row, std::vector<SqlValue>& arguments, SqlValue& result);
  bool isAggregate;
};

// By name, whatever the case, and by the number of arguments where a name stands for two functions.
// Errors: FdoCommandException* for a name that is not there, and for a wrong number of arguments.
FunctionRow const& FindFunction(std::wstring_view name, std::size_t arguments);

// Every row, for the capabilities. Borrowed: as long as the program runs.
std::vector<FunctionRow> const& Functions();

// Writes the call.
// Errors: FdoCommandException* for an argument of another kind than the function takes.
SqlValue CallFunction(FunctionRow const& row, std::vector<SqlValue>& arguments);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FUNCTION_TABLE_H_
