// The rows that a command works on, as SQL: a table, what narrows it, and what must hold of a row.
#ifndef SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_
#define SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_

#include <string>

#include "sdk/providers/sqlite/connection.h"
#include "sdk/providers/sqlite/expression_sql.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// " FROM ... WHERE ..." for a filter, which may be null.
// Errors: FdoCommandException* for a filter that cannot be translated.
SqlFragment SourceOf(FdoFilter* filter, SqlScope const& scope);

// " WHERE ..." of the same rows, for a statement that names its table itself; empty for all rows.
SqlFragment ConditionOf(FdoFilter* filter, SqlScope const& scope);

// The statement of an SQL text with its parameters bound.
Statement PrepareBound(Database& database, SqlFragment const& sql, wchar_t const* doing,
                       int firstParameter = 1);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_
