// Makes fdo_box_rows known to a database; spatial_indexes.h tells what it gives.
#ifndef SDK_PROVIDERS_SQLITE_BOX_ROWS_FUNCTION_H_
#define SDK_PROVIDERS_SQLITE_BOX_ROWS_FUNCTION_H_

struct sqlite3;

namespace fdo_sqlite {

class SpatialIndexes;

// Borrowed: the indexes, for as long as statements of the database run.
// Gives: a result code of SQLite.
int RegisterBoxRows(sqlite3* handle, SpatialIndexes& indexes);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_BOX_ROWS_FUNCTION_H_
