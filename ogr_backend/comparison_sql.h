// Single conditions as GDAL's layers take them.
#ifndef OGR_BACKEND_COMPARISON_SQL_H_
#define OGR_BACKEND_COMPARISON_SQL_H_

#include <Fdo.h>

#include <string>
#include <vector>

#include "ogr_backend/sql_operand.h"

namespace fdo::internal {

// A condition that is true of every row that it stands for, and of no other unless rowsOnly says why.
struct SqlCondition {
  std::string sql;  // empty: of every row
  std::wstring rowsOnly;
};

// True of every row.
SqlCondition ForRows(std::wstring reason);

// All of them by AND, or one of them by OR. Requires: there is one
SqlCondition Joined(bool isAnd, std::vector<SqlCondition> conditions);

// The comparison that holds where that one is false. Requires: it is not LIKE
FdoComparisonOperations Negated(FdoComparisonOperations operation);

// Each throws FilterRefused for kinds that have no comparison.
SqlCondition ComparisonSql(SqlOperand left, FdoComparisonOperations operation, SqlOperand right,
                           FilterLanguage language);
SqlCondition LikeSql(SqlOperand const& left, SqlOperand const& right, bool negated, FilterLanguage language);
SqlCondition InSql(SqlOperand const& column, std::vector<SqlOperand> const& values, bool negated,
                   FilterLanguage language);
SqlCondition NullSql(SqlOperand const& column, bool negated, FilterLanguage language);

}  // namespace fdo::internal

#endif  // OGR_BACKEND_COMPARISON_SQL_H_
