// Value expressions become SQL.
#ifndef SDK_PROVIDERS_SQLITE_EXPRESSION_SQL_H_
#define SDK_PROVIDERS_SQLITE_EXPRESSION_SQL_H_

#include <string>

#include "sdk/providers/sqlite/sql_value.h"

namespace fdo_sqlite {

// Where the names in a filter or expression are looked up. Borrowed: all of it, while the translation is made
// and while its result is used.
struct SqlScope {
  StoreClass const& ofClass;
  FdoParameterValueCollection* parameters = nullptr;  // null for none
  std::string tablePrefix = {};  // stands before each column, quoted and with its period: "\"t\"."
  bool aggregates = false;       // whether functions of all rows are allowed
};

// The property that an identifier names: by its name alone, or behind the name of the class.
// Errors: FdoCommandException*, naming it.
StoreColumn const& ColumnNamed(FdoIdentifier& name, SqlScope const& scope);
std::string SqlNameOf(StoreColumn const& column, SqlScope const& scope);

// Functions are those of function_table.h, which RegisterSqlFunctions gives to the database; docs tell what
// the operators compute.
// Errors: FdoCommandException* with the reason for what is not translated: unknown names and functions,
//   parameters without a value, operands of the wrong kind, sub-selects, and trees of more than 255 levels.
SqlValue TranslateExpression(FdoExpression& expression, SqlScope const& scope);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_EXPRESSION_SQL_H_
