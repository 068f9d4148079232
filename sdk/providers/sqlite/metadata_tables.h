// The tables in a file that describe its feature tables: their names, their rows, and what the numbers in
// them mean.
#ifndef SDK_PROVIDERS_SQLITE_METADATA_TABLES_H_
#define SDK_PROVIDERS_SQLITE_METADATA_TABLES_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sdk/providers/sqlite/ascii.h"
#include "sdk/providers/sqlite/database.h"

namespace fdo_sqlite {

inline constexpr char kGeometryColumns[] = "geometry_columns";
inline constexpr char kSpatialRefSys[] = "spatial_ref_sys";
inline constexpr char kFdoColumns[] = "fdo_columns";

// The columns that are not of the published layout; they are read and written with metadata only.
inline constexpr char kGeometricTypesColumn[] = "fdo_geometric_types";  // of geometry_columns: the exact mask
inline constexpr char kContextNameColumn[] = "sr_name";                 // of spatial_ref_sys

// Whether a table is no feature class: one of these, or one of SQLite's own.
bool IsMetadataTable(std::string const& sqlName);

// A row by the names of its columns. A value that is null, or whose column the table lacks, is absent.
class MetadataRow {
 public:
  void Set(std::string const& column, std::string const& value) { values_[column] = value; }

  // Absent, too, for a text that is empty.
  std::optional<std::string> Text(char const* column) const;
  // Absent, too, for what is no whole number.
  std::optional<std::int64_t> Number(char const* column) const;

 private:
  std::map<std::string, std::string, SqlNameLess> values_;
};

// All rows of a table, in the order in which they stand there. None when there is no such table.
std::vector<MetadataRow> ReadMetadata(Database& database, char const* table);

// The names of a table's columns; empty when there is no such table.
std::vector<std::string> ColumnsOf(Database& database, std::string const& table);
bool HasColumn(Database& database, std::string const& table, std::string const& column);

// What `geometry_type` says of the geometric types (a mask of FdoGeometricType) and of the ordinates.
struct GeometryTypeMeaning {
  std::int32_t geometricTypes;
  bool hasElevation, hasMeasure;
};
GeometryTypeMeaning MeaningOfGeometryType(std::optional<std::int64_t> geometryType);

// The number to write for a mask: that of the simple type, 0 for a mixture.
int GeometryTypeOfMask(std::int32_t geometricTypes);

// Makes those of the tables that do not exist. Those that exist stay as they are. The extra columns, and
// fdo_columns, are made with metadata only.
void CreateMetadataTables(Database& database, bool useFdoMetadata);

// Values to write, by column. Nothing is null. Those of columns that the table lacks are left out.
typedef std::optional<std::string> MetadataText;
typedef std::vector<std::pair<char const*, MetadataText>> MetadataValues;

void InsertMetadata(Database& database, char const* table, MetadataValues const& values);
// Other columns of the rows keep what they have. where is SQL.
void UpdateMetadata(Database& database, char const* table, MetadataValues const& values,
                    std::string const& where);

// SQL for the rows of a feature table, or of one of its columns.
std::string RowsOfTable(std::string const& featureTable);
std::string RowsOfColumn(std::string const& featureTable, char const* columnName, std::string const& column);

// Removes rows from a table of metadata that may not exist.
void DeleteMetadata(Database& database, char const* table, std::string const& where);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_METADATA_TABLES_H_
