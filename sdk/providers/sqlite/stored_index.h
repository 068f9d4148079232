// The spatial index of one column as it is kept in the file, beside its table and changed in the same
// transactions.
#ifndef SDK_PROVIDERS_SQLITE_STORED_INDEX_H_
#define SDK_PROVIDERS_SQLITE_STORED_INDEX_H_

#include <cstdint>
#include <optional>
#include <vector>

#include "sdk/providers/sqlite/database.h"
#include "sdk/providers/sqlite/indexed_column.h"
#include "sdk/providers/sqlite/packed_tree.h"

namespace fdo_sqlite {

// Fewer rows than this are as soon scanned, and are given no index.
inline constexpr std::int64_t kFewRows = 1000;
// More than this go into several trees, so that building takes bounded memory (64 bytes each).
inline constexpr std::int64_t kMostBoxesOfTree = 2'000'000;

// Threads: one at a time, with its database. Errors: FdoCommandException*.
class StoredIndex {
 public:
  enum class State {
    kNone,   // the file has no index of this column, or one that cannot be told from another program's table
    kStale,  // there is one, but its table was made anew, lost a trigger or changed its format: not to be
             // used
    kSound,
  };

  // Borrowed: the database, which outlives this.
  StoredIndex(Database& database, IndexedColumn const& column) : database_(database), column_(column) {}

  // Reads how things stand in the file. What the schema says is looked at only where it may have changed.
  // Requires: a read transaction, for what is said below to hold.
  State Look();

  // The table's rowids are its key and stay what they are, and no other program's tables are in the way.
  // Requires: Look().
  bool MayBeStored() const { return mayBeStored_; }

  // The rest requires Look() == State::kSound.

  // Rows up to this one are in the trees, or touched, or have no box; those above are in neither.
  std::int64_t IndexedTo() const { return indexedTo_; }
  std::int64_t BoxCount() const;
  // The touched rows up to IndexedTo(), ascending; some may be gone.
  std::vector<std::int64_t> Touched();

  // As the functions of packed_tree.h, over all trees. Rows may be among them that are touched or gone.
  // Errors: false also for a broken tree.
  bool Find(FgfBox const& box, std::vector<std::int64_t>& rows);
  bool Share(FgfBox const& box, TreeShare& share);
  bool Extent(std::function<bool(std::int64_t row)> const& isPresent, FgfBox& box);

  // Brings the index up to date, if that is worth its while: makes one for a table of at least kFewRows,
  // takes in rows above IndexedTo(), together with trees that are not much larger, and starts afresh when too
  // much is touched. Each row is read about as often as the logarithm of the number of calls. always: takes
  // in whatever there is. It is one transaction. Errors: nothing is changed. Requires: a file that can be
  // written, and no open transaction.
  void Fold(bool always = false);

 private:
  struct Segment {
    std::int64_t fromRow, toRow, boxCount, firstNode, nodeCount;
  };
  class Nodes;

  bool Break();
  void LookAtSchema();
  void FoldNow(bool always);
  std::optional<std::int64_t> FirstRowToRead(bool always);
  void Make();
  void Remove(std::int64_t index);
  void Build(std::int64_t fromRow);
  void WriteSegment(std::vector<RowBox>& boxes, std::int64_t fromRow, std::int64_t toRow);

  Database& database_;
  IndexedColumn column_;
  std::int64_t schemaVersion_ = -1;  // at the last look at the schema; -1 to look again
  bool mayBeStored_ = false;
  bool tablesExist_ = false;
  std::int64_t index_ = 0;  // its number in the file; 0 for none
  State state_ = State::kNone;
  std::int64_t indexedTo_ = 0;
  std::vector<Segment> segments_;  // ascending
  bool broken_ = false;            // a tree could not be read: the next Fold makes all anew
};

// The name under which an index keeps the format of its column.
char const* FormatName(GeometryFormat format);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STORED_INDEX_H_
