// A SpatialIndex finds the rows of one table by the box of one geometry column, right whatever any program
// has done to the file.
#ifndef SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_H_
#define SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "sdk/providers/sqlite/database.h"
#include "sdk/providers/sqlite/indexed_column.h"
#include "sdk/providers/sqlite/packed_tree.h"
#include "sdk/providers/sqlite/stored_geometry.h"
#include "sdk/providers/sqlite/stored_index.h"

namespace fdo_sqlite {

// Rows in memory beyond this many would take too much of it (some 40 bytes each).
inline constexpr std::int64_t kMostBoxesInMemory = 8'000'000;

// What the trees of the file know is taken from there; the other rows are loose: those above the highest that
// the trees know, and those that were touched. Where there is no sound index in the file all rows are loose.
// Loose rows are read and tested one by one, and kept in memory, as a tree where they are many, for as long
// as nobody changes the file.
// Threads: one at a time, with its database. Errors: FdoCommandException*.
class SpatialIndex {
 public:
  // Borrowed: the database, which outlives this. Requires: a table that has rowids.
  SpatialIndex(Database& database, IndexedColumn const& column);

  IndexedColumn const& Column() const { return column_; }

  // The rows whose geometry's box intersects that box, edges included, in ascending order: exactly these,
  // with no further test needed. A null geometry, or one without positions, is in no box.
  void Rows(FgfBox const& box, std::vector<std::int64_t>& rows);

  // Whether asking Rows is likely faster than testing each row of the table. Where the file can be written
  // and has an index that is far behind, it is brought up to date first.
  bool Helps(FgfBox const& box);

  // The box of all geometries in X and Y, exactly; false when there is none. Without an index that reads each
  // row.
  bool Extent(FgfBox& box);

  // Brings the index in the file up to date, and makes one for a table that is large enough. Nothing happens
  // in an open transaction, and while statements are active on the connection, which could be disturbed.
  // Errors: none. Deliberate: what an index cannot be given is found without it, and the rows themselves are
  // not concerned (pinned by SpatialIndexTest.AFileWithoutRoomForAnIndexIsQueriedWithoutIt).
  void Fold() noexcept;

  // To be called when this connection writes rows of the table: from then on a query, too, may make an index.
  void NoteWrite() { isWritten_ = true; }
  bool IsWritten() const { return isWritten_; }

  // For tests: whether the file has an index that is in use, and how many rows it does not know.
  bool IsStored();
  std::int64_t LooseCount();

 private:
  // A point in the history of the file, as far as this connection sees it.
  struct Stamp {
    unsigned dataVersion = 0;  // changes with each commit, of anybody
    std::int64_t changes = 0;  // of this connection, committed or not
    friend bool operator==(Stamp const& left, Stamp const& right) {
      return left.dataVersion == right.dataVersion && left.changes == right.changes;
    }
  };
  // Rows that are looked up in memory.
  struct Kept {
    std::vector<RowBox> few;
    std::unique_ptr<MemoryTree> many;
  };

  std::optional<Stamp> Now() const;
  void Refresh();
  bool FindStored(FgfBox const& box, std::vector<std::int64_t>& rows);
  void FindLoose(FgfBox const& box, std::vector<std::int64_t>& rows);
  template <class Visit>
  void EachLoose(Visit visit);
  template <class Visit>
  void EachBox(Statement& rows, Visit visit);
  bool IsTouched(std::int64_t row) const;
  bool IsWorthKeeping();
  bool HasAtLeast(std::int64_t rows);
  bool IsFarBehind();
  bool IsReached(FgfBox const& box);
  bool HasActiveStatements() const;

  Database& database_;
  IndexedColumn column_;
  StoredIndex stored_;
  StoredGeometry geometry_;

  std::optional<Stamp> seen_;  // what the following is true of; none: of nothing
  StoredIndex::State state_ = StoredIndex::State::kNone;
  std::vector<std::int64_t> touched_;
  std::optional<Kept> kept_;         // the loose rows
  std::optional<Stamp> queried_;     // when loose rows were last read
  std::optional<Stamp> considered_;  // when a query last thought of bringing the index up to date
  bool everQueried_ = false;
  bool isWritten_ = false;
  bool tooMany_ = false;  // for memory
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_H_
