#include "sdk/providers/sqlite/query_source.h"

#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {

SqlFragment SourceOf(FdoFilter* filter, SqlScope const& scope) {
  SqlFragment source(" FROM " + QuotedName(scope.ofClass.tableName));
  source.Add(ConditionOf(filter, scope), 0);
  return source;
}

SqlFragment ConditionOf(FdoFilter* filter, SqlScope const& scope) {
  SqlFragment condition;
  SqlFragment const where = TranslateFilter(filter, scope).Where();
  if (where.IsEmpty()) return condition;
  condition.Add(" WHERE ");
  condition.Add(where, 0);
  return condition;
}

Statement PrepareBound(Database& database, SqlFragment const& sql, wchar_t const* doing, int firstParameter) {
  Statement statement = database.Prepare(sql.Text(), doing);
  BindParameters(statement.Handle(), sql.Parameters(), firstParameter);
  return statement;
}

}  // namespace fdo_sqlite
