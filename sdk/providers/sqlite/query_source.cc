#include "sdk/providers/sqlite/query_source.h"

#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

// What a filter comes to with the help of an index.
struct Narrowed {
  SqlFragment boxRows;  // the index's rows, as a table; empty without an index
  SqlFragment where;    // what is left to hold; empty for nothing
};

Narrowed NarrowedBy(FdoFilter* filter, SqlScope const& scope, SpatialIndexes& indexes) {
  FilterSql const translated = TranslateFilter(filter, scope);
  Narrowed narrowed;
  for (std::size_t i = 0; i < translated.conditions.size(); ++i) {
    std::optional<BoxCondition> const& box = translated.conditions[i].box;
    if (!box || scope.ofClass.rowIdName.empty() || scope.ofClass.readOnly) continue;
    StoreColumn const& column = scope.ofClass.columns[static_cast<std::size_t>(box->column)];
    int const number = indexes.NumberOf(IndexedColumnOf(scope.ofClass, column));
    if (!indexes.Index(number).Helps(box->box)) continue;
    std::vector<SqlFragment> arguments{SqlFragment::Parameter(std::int64_t{number})};
    for (double const side : {box->box.minX, box->box.minY, box->box.maxX, box->box.maxY}) {
      arguments.push_back(SqlFragment::Parameter(side));
    }
    narrowed.boxRows = SqlFragment::Call("fdo_box_rows", arguments);
    // The index gives exactly the rows whose boxes meet.
    narrowed.where = translated.Where(box->decides ? static_cast<int>(i) : -1);
    return narrowed;
  }
  narrowed.where = translated.Where();
  return narrowed;
}

void AddWhere(SqlFragment const& where, SqlFragment& sql) {
  if (where.IsEmpty()) return;
  sql.Add(" WHERE ");
  sql.Add(where, 0);
}

std::string RowIdOf(SqlScope const& scope) { return scope.tablePrefix + QuotedName(scope.ofClass.rowIdName); }

}  // namespace

SqlScope ScopeOf(StoreClass const& storeClass, FdoParameterValueCollection* parameters) {
  SqlScope scope{storeClass, parameters};
  scope.tablePrefix = QuotedName(storeClass.tableName) + ".";
  return scope;
}

SqlFragment SourceOf(FdoFilter* filter, SqlScope const& scope, SpatialIndexes& indexes) {
  Narrowed const narrowed = NarrowedBy(filter, scope, indexes);
  std::string const table = QuotedName(scope.ofClass.tableName);
  SqlFragment source(" FROM ");
  if (narrowed.boxRows.IsEmpty()) {
    source.Add(table);
  } else {
    // CROSS JOIN keeps the order of the tables: the index first.
    source.Add(narrowed.boxRows, 0);
    source.Add(" AS fdo_box CROSS JOIN " + table + " ON " + RowIdOf(scope) + "=fdo_box.row_id");
  }
  AddWhere(narrowed.where, source);
  return source;
}

SqlFragment ConditionOf(FdoFilter* filter, SqlScope const& scope, SpatialIndexes& indexes) {
  Narrowed const narrowed = NarrowedBy(filter, scope, indexes);
  SqlFragment condition;
  if (narrowed.boxRows.IsEmpty()) {
    AddWhere(narrowed.where, condition);
    return condition;
  }
  condition.Add(" WHERE " + RowIdOf(scope) + " IN (SELECT row_id FROM ");
  condition.Add(narrowed.boxRows, 1);
  condition.Add(")");
  if (narrowed.where.IsEmpty()) return condition;
  condition.Add(" AND ");
  condition.AddWithin(narrowed.where, SqlPower::kAnd, 1);
  return condition;
}

Statement PrepareBound(Database& database, SqlFragment const& sql, wchar_t const* doing) {
  Statement statement = database.Prepare(sql.Text(), doing);
  BindParameters(statement.Handle(), sql.Parameters());
  return statement;
}

IndexedColumn IndexedColumnOf(StoreClass const& storeClass, StoreColumn const& column) {
  return IndexedColumn{storeClass.tableName, column.sqlName, storeClass.rowIdName, column.format};
}

void NoteWrite(StoreClass const& storeClass, SpatialIndexes& indexes) {
  if (storeClass.rowIdName.empty()) return;
  for (StoreColumn const& column : storeClass.columns) {
    bool const isIndexed =
        column.kind == StoreColumn::Kind::kGeometry && column.format != GeometryFormat::kUnsupported;
    if (isIndexed) indexes.NoteWrite(IndexedColumnOf(storeClass, column));
  }
}

}  // namespace fdo_sqlite
