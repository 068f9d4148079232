// SQLite files in which other programs keep geometry in a layout of their own.
#ifndef SDK_PROVIDERS_SQLITE_FOREIGN_LAYOUT_H_
#define SDK_PROVIDERS_SQLITE_FOREIGN_LAYOUT_H_

struct sqlite3;

namespace fdo_sqlite {

// What the file is, to complete "it is ..."; null for any other file.
// Read as a store such a file would be one without its geometries, and what is written to it would be missing
// in the tables that its own programs keep.
// Errors: SQLite's code; layout is then null.
int FindForeignLayout(sqlite3* database, wchar_t const*& layout);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FOREIGN_LAYOUT_H_
