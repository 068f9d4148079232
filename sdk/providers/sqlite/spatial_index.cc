#include "sdk/providers/sqlite/spatial_index.h"

#include <algorithm>
#include <string>

#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {

namespace {

// Loose rows up to this many are looked through, more become a tree.
constexpr std::size_t kFewKept = 1000;
// The index in the file is brought up to date by a query when this many rows are loose, and this part of all.
constexpr std::int64_t kManyLoose = 5000;
constexpr std::int64_t kLooseShare = 8;
// A box that reaches more than one in so many of the leaves is answered faster by looking at every row.
constexpr std::int64_t kUsefulShare = 2;

}  // namespace

SpatialIndex::SpatialIndex(Database& database, IndexedColumn const& column)
    : database_(database), column_(column), stored_(database, column), geometry_(column.format) {}

// None within a transaction that has written: what it shows may be undone without a trace.
std::optional<SpatialIndex::Stamp> SpatialIndex::Now() const {
  sqlite3* const handle = database_.Handle();
  if (sqlite3_txn_state(handle, "main") == SQLITE_TXN_WRITE) return std::nullopt;
  Stamp stamp;
  if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_DATA_VERSION, &stamp.dataVersion) != SQLITE_OK) {
    return std::nullopt;
  }
  stamp.changes = sqlite3_total_changes64(handle);
  return stamp;
}

// Requires: a ReadHold.
void SpatialIndex::Refresh() {
  std::optional<Stamp> const now = Now();
  if (now && now == seen_) return;
  seen_.reset();
  kept_.reset();
  state_ = stored_.Look();
  touched_.clear();
  if (state_ == StoredIndex::State::kSound) touched_ = stored_.Touched();
  seen_ = now;
}

bool SpatialIndex::IsTouched(std::int64_t row) const {
  return std::binary_search(touched_.begin(), touched_.end(), row);
}

// visit(row, box) is called for each row that a statement gives with its geometry and that has a box.
template <class Visit>
void SpatialIndex::EachBox(Statement& rows, Visit visit) {
  FgfBox box;
  while (rows.Step()) {
    if (geometry_.Box(sqlite3_column_value(rows.Handle(), 1), box)) visit(rows.Int64(0), box);
  }
}

template <class Visit>
void SpatialIndex::EachLoose(Visit visit) {
  std::string const rowId = QuotedName(column_.rowId);
  std::string const select =
      "SELECT " + rowId + ", " + QuotedName(column_.column) + " FROM " + QuotedName(column_.table);
  if (state_ != StoredIndex::State::kSound) {
    Statement all = database_.Prepare(select);
    return EachBox(all, visit);
  }
  Statement tail = database_.Prepare(select + " WHERE " + rowId + " > ?1");
  tail.Bind(1, stored_.IndexedTo());
  EachBox(tail, visit);
  Statement touched = database_.Prepare(select + " WHERE " + rowId + " = ?1");
  for (std::int64_t row : touched_) {
    touched.Bind(1, row);
    EachBox(touched, visit);
    touched.Reset();
  }
}

bool SpatialIndex::FindStored(FgfBox const& box, std::vector<std::int64_t>& rows) {
  if (state_ != StoredIndex::State::kSound) return true;
  if (!stored_.Find(box, rows)) return false;
  if (!touched_.empty()) std::erase_if(rows, [this](std::int64_t row) { return IsTouched(row); });
  return true;
}

// A file that changes from query to query is not worth a tree each time.
bool SpatialIndex::IsWorthKeeping() {
  bool const worth = seen_ && !tooMany_ && (!everQueried_ || queried_ == seen_);
  everQueried_ = true;
  queried_ = seen_;
  return worth;
}

void SpatialIndex::FindLoose(FgfBox const& box, std::vector<std::int64_t>& rows) {
  if (!kept_ && IsWorthKeeping()) {
    Kept kept;
    EachLoose([&](std::int64_t row, FgfBox const& of) {
      if (static_cast<std::int64_t>(kept.few.size()) <= kMostBoxesInMemory)
        kept.few.push_back(ToRowBox(row, of));
    });
    tooMany_ = static_cast<std::int64_t>(kept.few.size()) > kMostBoxesInMemory;
    if (!tooMany_) {
      if (kept.few.size() > kFewKept) {
        kept.many = std::make_unique<MemoryTree>(kept.few);
        std::vector<RowBox>().swap(kept.few);
      }
      kept_ = std::move(kept);
    }
  }
  if (!kept_) {
    EachLoose([&](std::int64_t row, FgfBox const& of) {
      if (of.Intersects(box)) rows.push_back(row);
    });
    return;
  }
  if (kept_->many != nullptr) FindRows(*kept_->many, box, rows);
  for (RowBox const& each : kept_->few) {
    if (each.Intersects(box)) rows.push_back(each.row);
  }
}

void SpatialIndex::Rows(FgfBox const& box, std::vector<std::int64_t>& rows) {
  Database::ReadHold const hold(database_);
  Refresh();
  rows.clear();
  if (box.IsEmpty()) return;
  if (!FindStored(box, rows)) {
    // Broken nodes: what they said does not count, and all rows are loose until the file changes.
    rows.clear();
    state_ = StoredIndex::State::kStale;
    kept_.reset();
  }
  FindLoose(box, rows);
  std::sort(rows.begin(), rows.end());
}

bool SpatialIndex::HasAtLeast(std::int64_t rows) {
  return database_.Number("SELECT count(*) FROM (SELECT 1 FROM " + QuotedName(column_.table) + " LIMIT " +
                          std::to_string(rows) + ")") >= rows;
}

bool SpatialIndex::Helps(FgfBox const& box) {
  {
    Database::ReadHold const hold(database_);
    Refresh();
    bool const fold = !(considered_ && considered_ == seen_) && IsFarBehind();
    considered_ = seen_;
    if (!fold) return IsReached(box);
  }
  // Nobody is kept waiting for another program's lock just for this.
  int const wait = database_.BusyWait();
  database_.SetBusyWait(0);
  {
    Database::HoldBreak const pause(database_);
    Fold();
  }
  database_.SetBusyWait(wait);
  Database::ReadHold const hold(database_);
  Refresh();
  considered_ = seen_;
  return IsReached(box);
}

// Requires: a ReadHold, and Refresh.
bool SpatialIndex::IsReached(FgfBox const& box) {
  if (box.IsEmpty()) return true;
  TreeShare share;
  if (state_ == StoredIndex::State::kSound) {
    if (!stored_.Share(box, share)) return false;
  } else if (!kept_) {
    return IsWorthKeeping() && HasAtLeast(kFewRows);
  }
  if (kept_ && kept_->many != nullptr) ReachedLeaves(*kept_->many, box, share);
  return share.all > 0 && share.reached * kUsefulShare <= share.all;
}

bool SpatialIndex::Extent(FgfBox& box) {
  Database::ReadHold const hold(database_);
  Refresh();
  box = FgfBox();
  if (state_ == StoredIndex::State::kSound) {
    Statement look = database_.Prepare("SELECT 1 FROM " + QuotedName(column_.table) + " WHERE " +
                                       QuotedName(column_.rowId) + " = ?1");
    auto const isPresent = [&](std::int64_t row) {
      if (IsTouched(row)) return false;
      look.Reset();
      look.Bind(1, row);
      return look.Step();
    };
    if (!stored_.Extent(isPresent, box)) {
      box = FgfBox();
      state_ = StoredIndex::State::kStale;
      kept_.reset();
    }
  }
  if (kept_ && kept_->many != nullptr) {
    GrowByExtent(
        *kept_->many, [](std::int64_t) { return true; }, box);
  } else {
    EachLoose([&](std::int64_t, FgfBox const& of) { box.Join(of); });
  }
  return !box.IsEmpty();
}

bool SpatialIndex::HasActiveStatements() const {
  sqlite3* const handle = database_.Handle();
  for (sqlite3_stmt* each = sqlite3_next_stmt(handle, nullptr); each != nullptr;
       each = sqlite3_next_stmt(handle, each)) {
    if (sqlite3_stmt_busy(each)) return true;
  }
  return false;
}

void SpatialIndex::Fold() noexcept {
  if (database_.IsReadOnly() || database_.InTransaction() || HasActiveStatements()) return;
  try {
    stored_.Fold();
  } catch (FdoException* raised) {
    // An index is a help, not a part of the data; see the header.
    FdoPtr<FdoException> released(raised);
  } catch (std::bad_alloc const&) {
    // Likewise.
  }
  seen_.reset();
}

// Whether a query should bring the index in the file up to date. Requires: a ReadHold, and Refresh.
bool SpatialIndex::IsFarBehind() {
  if (!seen_ || database_.IsReadOnly() || database_.InTransaction()) return false;
  // A program that only reads is not to make an index in a file that has none.
  if (!stored_.MayBeStored() || (state_ == StoredIndex::State::kNone && !isWritten_)) return false;
  if (state_ != StoredIndex::State::kSound) return HasAtLeast(kFewRows);
  std::int64_t const least = std::max(kManyLoose, stored_.BoxCount() / kLooseShare);
  Statement tail = database_.Prepare("SELECT count(*) FROM (SELECT 1 FROM " + QuotedName(column_.table) +
                                     " WHERE " + QuotedName(column_.rowId) + " > ?1 LIMIT ?2)");
  tail.Bind(1, stored_.IndexedTo());
  tail.Bind(2, least);
  tail.Step();
  return tail.Int64(0) + static_cast<std::int64_t>(touched_.size()) >= least;
}

bool SpatialIndex::IsStored() {
  Database::ReadHold const hold(database_);
  Refresh();
  return state_ == StoredIndex::State::kSound;
}

std::int64_t SpatialIndex::LooseCount() {
  Database::ReadHold const hold(database_);
  Refresh();
  std::int64_t count = 0;
  EachLoose([&](std::int64_t, FgfBox const&) { ++count; });
  return count;
}

}  // namespace fdo_sqlite
