// The single conditions of filters in SQL.
#ifndef SDK_PROVIDERS_SQLITE_CONDITION_SQL_H_
#define SDK_PROVIDERS_SQLITE_CONDITION_SQL_H_

#include "sdk/providers/sqlite/filter_sql.h"

namespace fdo_sqlite {

// Errors of each: FdoCommandException* with the reason.
SqlFragment ComparisonSql(FdoComparisonCondition& condition, SqlScope const& scope);
SqlFragment InSql(FdoInCondition& condition, SqlScope const& scope);
SqlFragment NullSql(FdoNullCondition& condition, SqlScope const& scope);
SqlCondition SpatialSql(FdoSpatialCondition& condition, SqlScope const& scope);
SqlCondition DistanceSql(FdoDistanceCondition& condition, SqlScope const& scope);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CONDITION_SQL_H_
