// The spatial indexes of an open database, and the function by which SQL asks them.
#ifndef SDK_PROVIDERS_SQLITE_SPATIAL_INDEXES_H_
#define SDK_PROVIDERS_SQLITE_SPATIAL_INDEXES_H_

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/database.h"
#include "sdk/providers/sqlite/spatial_index.h"

namespace fdo_sqlite {

// SQL sees fdo_box_rows(index, minX, minY, maxX, maxY), which gives rows with one column, row_id: those of
// SpatialIndex::Rows, in ascending order, as the statement's own snapshot of the file has them.
//
//   SELECT ... FROM fdo_box_rows(1, ?1, ?2, ?3, ?4) AS box CROSS JOIN "parcels" ON "parcels".rowid =
//   box.row_id DELETE FROM "parcels" WHERE rowid IN (SELECT row_id FROM fdo_box_rows(1, ?1, ?2, ?3, ?4))
//
// CROSS JOIN keeps the planner from looking at each row of the table first.
// Threads: one at a time, with the database.
class SpatialIndexes {
 public:
  // Borrowed: the database, which outlives this. Requires: open, and this is the first of its opening; no
  // statement runs any more when this ends.
  // Errors: FdoCommandException*.
  explicit SpatialIndexes(Database& database);
  SpatialIndexes(SpatialIndexes const&) = delete;
  SpatialIndexes& operator=(SpatialIndexes const&) = delete;

  // The index of a column, by its number in SQL; made at the first use.
  // Requires: a table that has rowids.
  int NumberOf(IndexedColumn const& column);
  // Requires: a number that NumberOf gave.
  SpatialIndex& Index(int number) { return *indexes_[static_cast<std::size_t>(number - 1)]; }
  SpatialIndex& Of(IndexedColumn const& column) { return Index(NumberOf(column)); }
  bool Has(std::int64_t number) const {
    return number >= 1 && number <= static_cast<std::int64_t>(indexes_.size());
  }

  // To be called by whatever writes rows of a table with that geometry column.
  void NoteWrite(IndexedColumn const& column) { Of(column).NoteWrite(); }

  // Brings the indexes of what was written up to date, once it is on disk; at the end of a connection,
  // because one large tree is made faster than many that grow.
  void Settle() noexcept;

 private:
  Database& database_;
  std::map<IndexedColumn, int> numbers_;
  std::vector<std::unique_ptr<SpatialIndex>> indexes_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SPATIAL_INDEXES_H_
