// Reads what the tables of a file are as feature classes, and its spatial contexts.
#ifndef SDK_PROVIDERS_SQLITE_STORE_READING_H_
#define SDK_PROVIDERS_SQLITE_STORE_READING_H_

#include <vector>

#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

struct StoreContents {
  std::vector<StoreClassPtr> classes;
  std::vector<SpatialContext> spatialContexts;
};

// What the tables of metadata say of tables and columns that do not exist does not count; what they do not
// say is taken from the tables' own definitions.
// Errors: FdoCommandException* of the database.
StoreContents ReadStore(Database& database, bool useFdoMetadata);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STORE_READING_H_
