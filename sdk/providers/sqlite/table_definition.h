// New tables and columns, from the definitions of classes: the SQL that makes them, and their metadata.
#ifndef SDK_PROVIDERS_SQLITE_TABLE_DEFINITION_H_
#define SDK_PROVIDERS_SQLITE_TABLE_DEFINITION_H_

#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/providers/sqlite/metadata_tables.h"
#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// Errors: FdoSchemaException*, naming the element and the reason, for what a table cannot be. The database
// may then be half changed: callers undo it.
class TableDefinition {
 public:
  // Borrowed: all three, which outlive this. The schema's contexts are those that geometry can be in.
  TableDefinition(Database& database, StoreSchema& schema, GeometryFormat newFormat)
      : database_(database),
        useFdoMetadata_(schema.UsesFdoMetadata()),
        contexts_(schema.SpatialContexts()),
        newFormat_(newFormat) {}

  // Makes the table of a class, and registers it.
  void Create(FdoClassDefinition& definition);

  // Adds a column to the table of a class that exists.
  void AddColumn(StoreClass const& storeClass, FdoClassDefinition& definition,
                 FdoPropertyDefinition& property);

  // Remove a table or column, and what describes it.
  void Drop(StoreClass const& storeClass);
  void DropColumn(StoreClass const& storeClass, StoreColumn const& column);

  // Changes what the metadata says of a column that exists; a change to anything else is refused.
  void Describe(StoreClass const& storeClass, StoreColumn const& column, FdoPropertyDefinition& property);

 private:
  std::string ColumnSql(FdoPropertyDefinition& property, bool isRowId);
  std::string DataColumnSql(FdoDataPropertyDefinition& property, bool isRowId);
  GeometryFormat FormatFor(FdoClassDefinition& definition, FdoGeometricPropertyDefinition& property);
  void Register(std::string const& table, FdoClassDefinition& definition, FdoPropertyDefinition& property);
  void RegisterData(std::string const& table, FdoDataPropertyDefinition& property);
  void RegisterGeometry(std::string const& table, FdoClassDefinition& definition,
                        FdoGeometricPropertyDefinition& property);
  // What geometry_columns says of a property, but for its name and format.
  MetadataValues GeometryValues(FdoGeometricPropertyDefinition& property);

  Database& database_;
  bool useFdoMetadata_;
  std::vector<SpatialContext> contexts_;
  GeometryFormat newFormat_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_TABLE_DEFINITION_H_
