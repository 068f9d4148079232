#include "sdk/providers/sqlite/index_schema.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "sdk/providers/sqlite/ascii.h"
#include "sdk/providers/sqlite/spatial_index_names.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {

namespace {

struct TableSql {
  char const* name;
  char const* sql;
};

// As they stand in the file: an index whose tables read otherwise is of another make.
constexpr TableSql kTables[] = {
    {kIndexTable,
     "CREATE TABLE fdo_spatial_index (index_id INTEGER PRIMARY KEY, table_name TEXT NOT NULL,"
     " column_name TEXT NOT NULL, geometry_format TEXT NOT NULL, table_root INTEGER NOT NULL,"
     " indexed_to INTEGER NOT NULL)"},
    {kIndexSegmentTable,
     "CREATE TABLE fdo_spatial_index_segment (index_id INTEGER NOT NULL, from_row INTEGER NOT NULL,"
     " to_row INTEGER NOT NULL, box_count INTEGER NOT NULL, first_node INTEGER NOT NULL,"
     " node_count INTEGER NOT NULL, PRIMARY KEY (index_id, from_row)) WITHOUT ROWID"},
    {kIndexNodeTable,
     "CREATE TABLE fdo_spatial_index_node (node_id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)"},
    {kIndexTouchedTable,
     "CREATE TABLE fdo_spatial_index_touched (index_id INTEGER NOT NULL, row_id INTEGER NOT NULL,"
     " PRIMARY KEY (index_id, row_id)) WITHOUT ROWID"},
};

// fdo_spatial_index_<index>_<event>
std::string TriggerName(std::int64_t index, char const* event) {
  return std::string(kIndexTable) + "_" + std::to_string(index) + "_" + event;
}

// The number in such a name, 0 for any other.
std::int64_t IndexOfTrigger(std::string_view name) {
  std::string const prefix = std::string(kIndexTable) + "_";
  if (name.substr(0, prefix.size()) != prefix) return 0;
  std::int64_t index = 0;
  auto const read = std::from_chars(name.data() + prefix.size(), name.data() + name.size(), index);
  return read.ec == std::errc() && index > 0 ? index : 0;
}

std::string Touch(std::int64_t index, std::string const& row) {
  std::string const number = std::to_string(index);
  return " INSERT INTO fdo_spatial_index_touched SELECT " + number + ", " + row +
         " WHERE NOT EXISTS (SELECT 1 FROM fdo_spatial_index_touched WHERE index_id = " + number +
         " AND row_id = " + row + ");";
}

// The column whose other name is the rowid; empty where there is none.
std::string KeyColumn(Database& database, std::string const& table) {
  Statement columns = database.Prepare("SELECT name, type, pk FROM pragma_table_info(?1) WHERE pk > 0");
  columns.BindText(1, std::string_view(table));
  std::string key;
  int count = 0;
  while (columns.Step()) {
    ++count;
    if (UpperAscii(std::string(columns.Text(1))) == "INTEGER") key = columns.Text(0);
  }
  if (count != 1) return std::string();
  // A key that has an index of its own is not the rowid, whatever its type.
  Statement indexes = database.Prepare("SELECT 1 FROM pragma_index_list(?1) WHERE origin = 'pk'");
  indexes.BindText(1, std::string_view(table));
  return indexes.Step() ? std::string() : key;
}

}  // namespace

IndexSchema::IndexSchema(Database& database, IndexedColumn const& column) : column_(column) {
  Statement read = database.Prepare(
      "SELECT type, name, rootpage, sql FROM sqlite_schema WHERE name LIKE 'fdo\\_spatial\\_index%' ESCAPE "
      "'\\'"
      " OR tbl_name = ?1");
  read.BindText(1, std::string_view(column.table));
  std::size_t present = 0, ours = 0;
  while (read.Step()) {
    std::string_view const type = read.Text(0);
    std::string const name(read.Text(1));
    if (type == "table" && name == column.table) tableRoot_ = read.Int64(2);
    if (type == "trigger") triggers_.emplace(name, read.Text(3));
    for (TableSql const& table : kTables) {
      // SQLite's names of tables, indexes and views are one family.
      if (type == "trigger" || UpperAscii(name) != UpperAscii(table.name)) continue;
      ++present;
      if (type == "table" && read.Text(3) == table.sql) ++ours;
    }
  }
  if (present > 0) tables_ = ours == std::size(kTables) ? IndexTables::kOurs : IndexTables::kForeign;
  if (tableRoot_ != 0) keyColumn_ = KeyColumn(database, column.table);
}

std::array<std::string, IndexSchema::kTriggers> IndexSchema::TriggerSql(std::int64_t index) const {
  std::string const table = QuotedName(column_.table);
  std::string const key = QuotedName(keyColumn_);
  auto const head = [&](char const* event) {
    return "CREATE TRIGGER " + QuotedName(TriggerName(index, event)) + " AFTER ";
  };
  return {
      head("insert") + "INSERT ON " + table + " WHEN new." + key +
          " <= (SELECT indexed_to FROM fdo_spatial_index WHERE index_id = " + std::to_string(index) +
          ") BEGIN" + Touch(index, "new." + key) + " END",
      // The rowid has more names than its column, and an assignment to any of them moves the row.
      head("update") + "UPDATE OF " + QuotedName(column_.column) + ", " + key + ", rowid, _rowid_, oid ON " +
          table + " BEGIN" + Touch(index, "old." + key) + Touch(index, "new." + key) + " END",
      head("delete") + "DELETE ON " + table + " BEGIN" + Touch(index, "old." + key) + " END",
  };
}

bool IndexSchema::HasTriggers(std::int64_t index) const {
  if (!HasStableRowIds()) return false;
  std::size_t found = 0;
  for (std::string const& sql : TriggerSql(index)) {
    for (auto const& [name, present] : triggers_) found += present == sql;
  }
  return found == kTriggers;
}

void IndexSchema::CreateTables(Database& database) {
  for (TableSql const& table : kTables) database.Execute(table.sql);
}

void IndexSchema::CreateTriggers(Database& database, std::int64_t index) const {
  for (std::string const& sql : TriggerSql(index)) database.Execute(sql);
}

void IndexSchema::DropTriggers(Database& database, std::int64_t index) {
  std::vector<std::string> names;
  {
    Statement read = database.Prepare("SELECT name FROM sqlite_schema WHERE type = 'trigger'");
    while (read.Step()) {
      if (IndexOfTrigger(read.Text(0)) == index) names.emplace_back(read.Text(0));
    }
  }
  for (std::string const& name : names) database.Execute("DROP TRIGGER " + QuotedName(name));
}

std::int64_t IndexSchema::FreeIndex(Database& database) {
  std::int64_t most = database.Number("SELECT max(index_id) FROM fdo_spatial_index");
  Statement read = database.Prepare("SELECT name FROM sqlite_schema WHERE type = 'trigger'");
  while (read.Step()) most = std::max(most, IndexOfTrigger(read.Text(0)));
  return most < 1 ? 1 : most + 1;
}

}  // namespace fdo_sqlite
