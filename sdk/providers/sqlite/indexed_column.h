// The geometry column that a spatial index is for.
#ifndef SDK_PROVIDERS_SQLITE_INDEXED_COLUMN_H_
#define SDK_PROVIDERS_SQLITE_INDEXED_COLUMN_H_

#include <string>
#include <tuple>

#include "sdk/providers/sqlite/geometry_format.h"

namespace fdo_sqlite {

struct IndexedColumn {
  std::string table;   // in the table's own spelling; no name is quoted
  std::string column;  // likewise
  std::string rowId;   // by which SQL finds the rowid of the table
  GeometryFormat format = GeometryFormat::kFgf;

  friend bool operator<(IndexedColumn const& left, IndexedColumn const& right) {
    return std::tie(left.table, left.column, left.rowId, left.format) <
           std::tie(right.table, right.column, right.rowId, right.format);
  }
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_INDEXED_COLUMN_H_
