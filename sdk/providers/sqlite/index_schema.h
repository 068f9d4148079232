// The tables and triggers that an index is made of in the file, and how to tell whether they are all there.
#ifndef SDK_PROVIDERS_SQLITE_INDEX_SCHEMA_H_
#define SDK_PROVIDERS_SQLITE_INDEX_SCHEMA_H_

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "sdk/providers/sqlite/database.h"
#include "sdk/providers/sqlite/indexed_column.h"

namespace fdo_sqlite {

// The four tables, which all indexes of a file share:
//
//   fdo_spatial_index           a row for each indexed column. table_root is the table's first page: a table
//   that
//                               was made anew under its old name has another. indexed_to is the highest rowid
//                               that the index knows of
//   fdo_spatial_index_segment   the trees of an index: each holds the rows from from_row to to_row that have
//   a
//                               box, in node_count nodes from first_node on
//   fdo_spatial_index_node      the nodes, as packed_tree.h describes them
//   fdo_spatial_index_touched   the rowids up to indexed_to that have been inserted, updated or deleted
//   since, of
//                               which the trees know nothing
//
// The triggers on the feature table note what is touched. They use nothing but plain SQL, so that every
// program can write the table. A statement's own conflict clause would take the place of theirs, so they
// cannot rely on one.
enum class IndexTables { kAbsent, kOurs, kForeign };

// What the schema of the file says of one feature table and of the tables of indexes.
// Errors: FdoCommandException*.
class IndexSchema {
 public:
  IndexSchema(Database& database, IndexedColumn const& column);

  IndexTables Tables() const { return tables_; }
  // The first page of the feature table; 0 where there is no such table, or it is a view.
  std::int64_t TableRoot() const { return tableRoot_; }
  // Whether the rowids stay what they are: they are a declared key.
  bool HasStableRowIds() const { return !keyColumn_.empty(); }
  // Whether the triggers of that index are on the table, word for word.
  bool HasTriggers(std::int64_t index) const;

  static void CreateTables(Database& database);
  // Requires: HasStableRowIds().
  void CreateTriggers(Database& database, std::int64_t index) const;
  // Wherever they are now.
  static void DropTriggers(Database& database, std::int64_t index);
  // More than any index has or its triggers still name. Requires: the tables are ours.
  static std::int64_t FreeIndex(Database& database);

 private:
  static constexpr std::size_t kTriggers = 3;
  std::array<std::string, kTriggers> TriggerSql(std::int64_t index) const;

  IndexedColumn column_;
  IndexTables tables_ = IndexTables::kAbsent;
  std::int64_t tableRoot_ = 0;
  std::string keyColumn_;
  std::map<std::string, std::string> triggers_;  // of the feature table: SQL by name
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_INDEX_SCHEMA_H_
