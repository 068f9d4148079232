#include "sdk/providers/sqlite/metadata_tables.h"

#include <charconv>

#include "Fdo.h"
#include "sdk/providers/sqlite/spatial_index_names.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

// The masks that a single number stands for. The first row of a mask is what is written for it.
struct TypeOfMask {
  int geometryType;
  std::int32_t mask;
};
constexpr TypeOfMask kTypesOfMasks[] = {
    {1, FdoGeometricType_Point},    {4, FdoGeometricType_Point},    {2, FdoGeometricType_Curve},
    {5, FdoGeometricType_Curve},    {8, FdoGeometricType_Curve},    {9, FdoGeometricType_Curve},
    {11, FdoGeometricType_Curve},   {3, FdoGeometricType_Surface},  {6, FdoGeometricType_Surface},
    {10, FdoGeometricType_Surface}, {12, FdoGeometricType_Surface},
};

// Numbers become numbers by the affinity of their columns.
std::string SqlOf(MetadataText const& value) { return value ? QuotedText(*value) : "NULL"; }

}  // namespace

bool IsMetadataTable(std::string const& sqlName) {
  std::string const name = UpperAscii(sqlName);
  if (name.compare(0, 7, "SQLITE_") == 0) return true;
  for (char const* table : {kGeometryColumns, kSpatialRefSys, kFdoColumns}) {
    if (name == UpperAscii(table)) return true;
  }
  for (char const* table : kSpatialIndexTables) {
    if (name == UpperAscii(table)) return true;
  }
  return false;
}

std::optional<std::string> MetadataRow::Text(char const* column) const {
  auto const found = values_.find(column);
  if (found == values_.end() || found->second.empty()) return std::nullopt;
  return found->second;
}

std::optional<std::int64_t> MetadataRow::Number(char const* column) const {
  std::optional<std::string> const text = Text(column);
  if (!text) return std::nullopt;
  std::int64_t number = 0;
  auto const [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  if (error != std::errc() || end != text->data() + text->size()) return std::nullopt;
  return number;
}

std::vector<MetadataRow> ReadMetadata(Database& database, char const* table) {
  std::vector<MetadataRow> rows;
  if (ColumnsOf(database, table).empty()) return rows;
  Statement all = database.Prepare("SELECT * FROM " + QuotedName(table));
  while (all.Step()) {
    MetadataRow& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(all.Handle()); ++i) {
      if (!all.IsNull(i)) row.Set(sqlite3_column_name(all.Handle(), i), std::string(all.Text(i)));
    }
  }
  return rows;
}

std::vector<std::string> ColumnsOf(Database& database, std::string const& table) {
  std::vector<std::string> names;
  Statement columns = database.Prepare("SELECT name FROM pragma_table_info(?1)");
  columns.BindText(1, std::string_view(table));
  while (columns.Step()) names.emplace_back(columns.Text(0));
  return names;
}

bool HasColumn(Database& database, std::string const& table, std::string const& column) {
  for (std::string const& name : ColumnsOf(database, table)) {
    if (UpperAscii(name) == UpperAscii(column)) return true;
  }
  return false;
}

GeometryTypeMeaning MeaningOfGeometryType(std::optional<std::int64_t> geometryType) {
  std::int64_t const number = geometryType.value_or(0);
  std::int64_t const ordinates = number / 1000;
  GeometryTypeMeaning meaning = {FdoGeometricType_All, ordinates == 1 || ordinates == 3,
                                 ordinates == 2 || ordinates == 3};
  for (TypeOfMask const& row : kTypesOfMasks) {
    if (row.geometryType == number % 1000) meaning.geometricTypes = row.mask;
  }
  return meaning;
}

int GeometryTypeOfMask(std::int32_t geometricTypes) {
  for (TypeOfMask const& row : kTypesOfMasks) {
    if (row.mask == geometricTypes) return row.geometryType;
  }
  return 0;
}

void CreateMetadataTables(Database& database, bool useFdoMetadata) {
  // Programs recognise the tables by these columns; what is added stands behind them.
  std::string const mask = useFdoMetadata ? std::string(", ") + kGeometricTypesColumn + " INTEGER" : "";
  std::string const name = useFdoMetadata ? std::string(", ") + kContextNameColumn + " TEXT" : "";
  database.Execute(
      "CREATE TABLE IF NOT EXISTS geometry_columns (f_table_name TEXT, f_geometry_column TEXT,"
      " geometry_type INTEGER, coord_dimension INTEGER, srid INTEGER, geometry_format TEXT" +
      mask + ")");
  database.Execute(
      "CREATE TABLE IF NOT EXISTS spatial_ref_sys (srid INTEGER UNIQUE, auth_name TEXT, auth_srid TEXT,"
      " srtext TEXT" +
      name + ")");
  if (!useFdoMetadata) return;
  database.Execute(
      "CREATE TABLE IF NOT EXISTS fdo_columns (f_table_name TEXT NOT NULL, f_column_name TEXT NOT NULL,"
      " f_column_desc TEXT, fdo_data_type INTEGER, fdo_data_length INTEGER, fdo_data_precision INTEGER,"
      " fdo_data_scale INTEGER)");
}

void InsertMetadata(Database& database, char const* table, MetadataValues const& values) {
  std::string columns, texts;
  for (auto const& [column, value] : values) {
    if (!HasColumn(database, table, column)) continue;
    columns += (columns.empty() ? "" : ", ") + QuotedName(column);
    texts += (texts.empty() ? "" : ", ") + SqlOf(value);
  }
  database.Execute("INSERT INTO " + QuotedName(table) + " (" + columns + ") VALUES (" + texts + ")");
}

void UpdateMetadata(Database& database, char const* table, MetadataValues const& values,
                    std::string const& where) {
  std::string changes;
  for (auto const& [column, value] : values) {
    if (!HasColumn(database, table, column)) continue;
    changes += (changes.empty() ? "" : ", ") + QuotedName(column) + " = " + SqlOf(value);
  }
  database.Execute("UPDATE " + QuotedName(table) + " SET " + changes + " WHERE " + where);
}

std::string RowsOfTable(std::string const& featureTable) {
  return "f_table_name COLLATE NOCASE = " + QuotedText(featureTable);
}

std::string RowsOfColumn(std::string const& featureTable, char const* columnName, std::string const& column) {
  return RowsOfTable(featureTable) + " AND " + columnName + " COLLATE NOCASE = " + QuotedText(column);
}

void DeleteMetadata(Database& database, char const* table, std::string const& where) {
  if (!HasColumn(database, table, "f_table_name")) return;
  database.Execute("DELETE FROM " + QuotedName(table) + " WHERE " + where);
}

}  // namespace fdo_sqlite
