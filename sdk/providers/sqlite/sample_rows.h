// Rows of the sample class with every edge of every type, twice: as a table in SQLite, and in memory.
#ifndef SDK_PROVIDERS_SQLITE_SAMPLE_ROWS_H_
#define SDK_PROVIDERS_SQLITE_SAMPLE_ROWS_H_

#include <sqlite3.h>

#include "testing/memory_provider/store.h"

namespace fdo_sqlite {

// Makes the table of the sample class in the database and in memory, with the same rows in the same order;
// the identities count from 1. Dates stand in the database in every form that programs write.
memory_provider::Table MakeSampleRows(sqlite3* database, int count);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SAMPLE_ROWS_H_
