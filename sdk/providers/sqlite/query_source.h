// The rows that a command works on, as SQL: a table, what narrows it, and what must hold of a row.
#ifndef SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_
#define SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_

#include <string>

#include "sdk/providers/sqlite/connection.h"
#include "sdk/providers/sqlite/expression_sql.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// Where the names of a command on that class are looked up. Its columns are named with their table, because a
// spatial index may stand beside it in a query.
// Borrowed: the class and the parameters.
SqlScope ScopeOf(StoreClass const& storeClass, FdoParameterValueCollection* parameters);

// " FROM ... WHERE ..." for a filter, which may be null. A spatial condition goes through the index of its
// column where that is faster.
// Errors: FdoCommandException* for a filter that cannot be translated.
SqlFragment SourceOf(FdoFilter* filter, SqlScope const& scope, SpatialIndexes& indexes);

// " WHERE ..." of the same rows, for a statement that names its table itself; empty for all rows.
SqlFragment ConditionOf(FdoFilter* filter, SqlScope const& scope, SpatialIndexes& indexes);

// The statement of an SQL text with its parameters bound.
Statement PrepareBound(Database& database, SqlFragment const& sql, wchar_t const* doing);

// The column as its spatial index knows it. Requires: a geometry column of a class with rowids.
IndexedColumn IndexedColumnOf(StoreClass const& storeClass, StoreColumn const& column);

// To be called once rows of the class are about to be written.
void NoteWrite(StoreClass const& storeClass, SpatialIndexes& indexes);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_QUERY_SOURCE_H_
