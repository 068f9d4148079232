// Filters as the conditions that GDAL's layers take.
#ifndef OGR_BACKEND_FILTER_SQL_H_
#define OGR_BACKEND_FILTER_SQL_H_

#include <fdo/schema.h>

#include <string>
#include <vector>

#include "ogr_backend/filter_language.h"

class FdoFilter;

namespace fdo::internal {

// What a layer's conditions are written in, and what its two fixed columns are called there.
struct FilterTarget {
  FilterLanguage language;
  // Empty where a condition cannot name the column.
  std::string idName;
  std::string geometryName;
};

struct FilterSql {
  // Nobody computes the filter.
  bool refused = false;
  // The condition selects what the filter does. Otherwise it may select more, and each row must be looked at.
  bool isExact = true;
  std::wstring reason;        // why it is refused, or not exact
  std::string text;           // UTF-8; empty for no condition
  std::vector<bool> columns;  // one flag for each column of the table: the filter looks at it
};

// Writes a filter over the columns of a table as a condition. What the filter means is what it means to an
// ExprEval with ExprOptions::AsInSql, whatever the language: a part that the language would take for
// something else, or does not have, is left to the rows, and so is what is joined to it by OR; what is joined
// by AND still narrows. Left to the rows are
// - everywhere: dates, spatial and distance conditions, functions but what they are given, text columns
// beside
//   numbers, numbers that are not finite, characters beyond U+FFFF;
// - in GDAL's dialect: all comparisons of text, of which = and a LIKE with a beginning still narrow; text
// with
//   a backslash before a quote or at its end; division by anything but a number other than 0; integers that
//   may leave 64 bits, and 64-bit integers beside doubles beyond 2^53;
// - in PostgreSQL's: the same but for the first, order of text and LIKE, and all calculations;
// - in an unknown language: everything.
// Refused are names that are no column, texts that are no number beside numbers or no date beside dates,
// dates beside numbers, geometry and bytes compared, calculations with texts, functions of what they are not
// made for, parameters, sub-selects, and filters nested deeper than kMaxFilterDepth. Errors: throws what the
// filter's nodes throw. Requires: filter is not null
FilterSql TranslateFilter(FdoFilter* filter, TableDef const& def, FilterTarget const& target);

inline constexpr int kMaxFilterDepth = 1000;

}  // namespace fdo::internal

#endif  // OGR_BACKEND_FILTER_SQL_H_
