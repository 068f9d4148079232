// Filters as the SQL conditions that GDAL's layers take.
#ifndef OGR_BACKEND_FILTER_SQL_H_
#define OGR_BACKEND_FILTER_SQL_H_

#include <fdo/schema.h>

#include <string>
#include <vector>

class FdoFilter;

namespace fdo::internal {

// What a layer's conditions are written in, and what its two fixed columns are called there.
struct FilterTarget {
  // The condition is run by the store's own SQL; otherwise by GDAL's dialect.
  bool ownSql;
  // Empty where a condition cannot name the column.
  std::string idName;
  std::string geometryName;
};

struct FilterSql {
  bool refused = false;
  std::wstring refusal;       // why
  bool holdsForRows = false;  // of a refused one: it can be computed for each row, see row_filter.h
  std::string text;           // UTF-8
  std::vector<bool> columns;  // one flag for each column of the table: the condition needs it
};

// Writes a filter over the columns of a table as a condition that has the same meaning in both kinds of
// SQL: a comparison with a null column is never true, under NOT as well; text is equal when all its
// characters are, upper and lower case included. The order of text (<, >) and LIKE's view of upper and
// lower case are the store's.
//
// Refused is what the target does not have, or would take for something else: dates; spatial and distance
// conditions; comparison with NULL; brackets in LIKE; functions; division by anything but a number other than
// 0; for GDAL's dialect also LIKE with an underscore, text with a backslash before a quote or at its end, and
// equality of two text columns. These hold for rows. Nobody computes names that are no column, text compared
// with numbers, geometry compared, parameters, sub-selects, and filters nested deeper than kMaxFilterDepth.
// Errors: throws what the filter's nodes throw.
// Requires: filter is not null
FilterSql TranslateFilter(FdoFilter* filter, TableDef const& def, FilterTarget const& target);

inline constexpr int kMaxFilterDepth = 1000;

}  // namespace fdo::internal

#endif  // OGR_BACKEND_FILTER_SQL_H_
