// Filters become SQL conditions.
//
// A row is selected when its filter is true; SQL's three values apply throughout, so a condition on a null is
// neither true nor false, and neither is its negation. What cannot be translated is refused with the reason:
// a filter never selects more or fewer rows than it says.
#ifndef SDK_PROVIDERS_SQLITE_FILTER_SQL_H_
#define SDK_PROVIDERS_SQLITE_FILTER_SQL_H_

#include <optional>
#include <vector>

#include "sdk/providers/sqlite/expression_sql.h"
#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sqlite {

// What an index on boxes can do for a condition.
struct BoxCondition {
  int column;           // the place of the geometry in StoreClass::columns
  fdo_sdk::FgfBox box;  // not empty; a row whose geometry's box does not meet it is not selected
  // A row is selected by this condition when the boxes meet, without a look at the geometry.
  bool decides;
};

// One of the conditions that must all hold.
struct SqlCondition {
  SqlFragment sql;
  std::optional<BoxCondition> box;
};

struct FilterSql {
  std::vector<SqlCondition> conditions;  // empty: every row is selected

  // All conditions joined, without the one at that place; what WHERE takes. Empty when there is none.
  SqlFragment Where(int without = -1) const;
};

// Null selects every row.
// Errors: FdoCommandException* with the reason; FdoException* for a geometry literal that is none.
FilterSql TranslateFilter(FdoFilter* filter, SqlScope const& scope);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FILTER_SQL_H_
