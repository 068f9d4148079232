#include "sdk/providers/sqlite/foreign_layout.h"

#include <sqlite3.h>

namespace fdo_sqlite {
namespace {

struct ForeignLayout {
  wchar_t const* name;
  char const* test;  // a query that has a row in such a file
};

constexpr ForeignLayout kLayouts[] = {
    {L"a GeoPackage", "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND lower(name) = 'gpkg_contents'"},
    {L"a SpatiaLite database",
     "SELECT 1 FROM pragma_table_info('geometry_columns') WHERE lower(name) = 'spatial_index_enabled'"
     " AND NOT EXISTS (SELECT 1 FROM pragma_table_info('geometry_columns')"
     " WHERE lower(name) IN ('geometry_format', 'g_geometry_format'))"},
};

}  // namespace

int FindForeignLayout(sqlite3* database, wchar_t const*& layout) {
  layout = nullptr;
  for (ForeignLayout const& each : kLayouts) {
    sqlite3_stmt* test = nullptr;
    int code = sqlite3_prepare_v2(database, each.test, -1, &test, nullptr);
    if (code == SQLITE_OK) code = sqlite3_step(test);
    sqlite3_finalize(test);
    if (code == SQLITE_ROW) layout = each.name;
    if (code != SQLITE_DONE) return code == SQLITE_ROW ? SQLITE_OK : code;
  }
  return SQLITE_OK;
}

}  // namespace fdo_sqlite
