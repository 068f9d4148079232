// What the memory provider keeps: schemas, spatial contexts, and a list of rows for each class.
#ifndef TESTING_MEMORY_PROVIDER_STORE_H_
#define TESTING_MEMORY_PROVIDER_STORE_H_

#include <memory>
#include <string>
#include <vector>

#include "Fdo.h"

namespace memory_provider {

// One value for each column, null pointers for nulls. A row is never changed: an update puts another one
// in its place, so that readers keep what they selected.
typedef std::vector<FdoPtr<FdoLiteralValue>> Row;

struct Column {
  std::wstring name;
  bool isGeometry = false;
  FdoDataType type = FdoDataType_String;
  bool isIdentity = false;
};

struct Table {
  FdoPtr<FdoClassDefinition> definition;
  std::vector<Column> columns;  // those of the base classes first
  std::vector<std::shared_ptr<Row const>> rows;
  FdoInt64 lastId = 0;  // the greatest identity given or seen

  // Errors: -1 when absent.
  int PositionOf(std::wstring const& column) const;
  // Errors: FdoCommandException*, naming the column.
  std::size_t ExistingPositionOf(std::wstring const& column) const;
};

struct SpatialContext {
  std::wstring name;
  std::wstring description;
  std::wstring coordinateSystem;
  std::wstring wkt;
  FdoSpatialContextExtentType extentType = FdoSpatialContextExtentType_Dynamic;
  FdoPtr<FdoByteArray> extent;
  double xyTolerance = 0;
  double zTolerance = 0;
};

struct Store {
  FdoPtr<FdoFeatureSchemaCollection> schemas = FdoFeatureSchemaCollection::Create(nullptr);
  std::vector<SpatialContext> spatialContexts;
  std::vector<std::shared_ptr<Table>> tables;

  // The table of a class, by schema:class or by the class's name.
  // Errors: FdoCommandException*, naming the class.
  std::shared_ptr<Table> TableOf(FdoIdentifier* className) const;

  // Adds what the schema has beyond the store's: classes, and properties to classes that are there.
  // Errors: FdoSchemaException* for what rows in memory cannot hold; the store stays as it was.
  void Merge(FdoFeatureSchema& schema);
};

// The stores of this process by the file name in their connection string; a store without a name is the
// connection's alone. Errors: FdoException* when it is there already, or is not there.
std::shared_ptr<Store> CreateStore(std::wstring const& file);
std::shared_ptr<Store> OpenStore(std::wstring const& file);

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_STORE_H_
