#include "sdk/providers/sqlite/stored_index.h"

#include <limits>
#include <string>

#include "sdk/providers/sqlite/index_schema.h"
#include "sdk/providers/sqlite/sql_names.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {

namespace {

constexpr std::int64_t kLowestRow = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kHighestRow = std::numeric_limits<std::int64_t>::max();

// A tree is built again together with new rows when it is at most this many times as large.
constexpr std::int64_t kMergeFactor = 3;
// Touched rows are looked at one by one in each query: so many, and one in so many, before all is built anew.
constexpr std::int64_t kFewTouched = 256;
constexpr std::int64_t kTouchedShare = 64;

// The highest node number that a new tree may begin with.
constexpr std::int64_t kLastFirstNode = std::int64_t{1} << 62;

// A transaction that is undone unless it is kept.
class Unit {
 public:
  explicit Unit(Database& database) : database_(database) { database_.BeginWriting(); }
  ~Unit() {
    if (!kept_) database_.Rollback();
  }
  Unit(Unit const&) = delete;
  Unit& operator=(Unit const&) = delete;

  void Keep() {
    database_.Commit();
    kept_ = true;
  }

 private:
  Database& database_;
  bool kept_ = false;
};

}  // namespace

char const* FormatName(GeometryFormat format) {
  switch (format) {
    case GeometryFormat::kFgf:
      return "FGF";
    case GeometryFormat::kWkb:
      return "WKB";
    case GeometryFormat::kWkt:
      return "WKT";
    case GeometryFormat::kUnsupported:
      break;
  }
  return "";
}

// The nodes of one tree in the file.
class StoredIndex::Nodes : public TreeNodes {
 public:
  Nodes(Database& database, Segment const& segment)
      : segment_(segment),
        read_(database.Prepare("SELECT bytes FROM fdo_spatial_index_node WHERE node_id = ?1")) {}

  std::int64_t NodeCount() const override { return segment_.nodeCount; }

  bool Node(std::int64_t number, NodeView& node) override {
    read_.Reset();
    read_.Bind(1, segment_.firstNode + number);
    if (!read_.Step()) return false;
    void const* const bytes = sqlite3_column_blob(read_.Handle(), 0);
    return node.Read(bytes, static_cast<std::size_t>(sqlite3_column_bytes(read_.Handle(), 0)));
  }

 private:
  Segment segment_;
  Statement read_;
};

void StoredIndex::LookAtSchema() {
  std::int64_t const version = database_.Number("PRAGMA schema_version");
  if (version == schemaVersion_) return;
  schemaVersion_ = -1;
  IndexSchema const schema(database_, column_);
  tablesExist_ = schema.Tables() == IndexTables::kOurs;
  mayBeStored_ = schema.HasStableRowIds() && schema.Tables() != IndexTables::kForeign;
  index_ = 0;
  state_ = State::kNone;
  if (tablesExist_) {
    Statement read = database_.Prepare(
        "SELECT index_id, table_root, geometry_format, table_name, column_name FROM fdo_spatial_index"
        " WHERE table_name = ?1 COLLATE NOCASE AND column_name = ?2 COLLATE NOCASE");
    read.BindText(1, std::string_view(column_.table));
    read.BindText(2, std::string_view(column_.column));
    while (state_ != State::kSound && read.Step()) {
      index_ = read.Int64(0);
      bool const same = read.Int64(1) == schema.TableRoot() && read.Text(2) == FormatName(column_.format) &&
                        read.Text(3) == column_.table && read.Text(4) == column_.column;
      state_ = same && schema.HasTriggers(index_) ? State::kSound : State::kStale;
    }
  }
  // A change of the schema that is not committed may be undone, and its version given to another one.
  if (sqlite3_txn_state(database_.Handle(), "main") != SQLITE_TXN_WRITE) schemaVersion_ = version;
}

StoredIndex::State StoredIndex::Look() {
  LookAtSchema();
  segments_.clear();
  if (state_ != State::kSound) return state_;
  Statement index = database_.Prepare("SELECT indexed_to FROM fdo_spatial_index WHERE index_id = ?1");
  index.Bind(1, index_);
  if (!index.Step()) return State::kStale;
  indexedTo_ = index.Int64(0);
  Statement read = database_.Prepare(
      "SELECT from_row, to_row, box_count, first_node, node_count FROM fdo_spatial_index_segment"
      " WHERE index_id = ?1 ORDER BY from_row");
  read.Bind(1, index_);
  while (read.Step()) {
    Segment const segment{read.Int64(0), read.Int64(1), read.Int64(2), read.Int64(3), read.Int64(4)};
    bool const possible = segment.boxCount >= 0 && segment.nodeCount >= 0 && segment.firstNode >= 0 &&
                          segment.firstNode <= kHighestRow - segment.nodeCount;
    if (!possible) return State::kStale;
    segments_.push_back(segment);
  }
  return State::kSound;
}

std::int64_t StoredIndex::BoxCount() const {
  std::int64_t count = 0;
  for (Segment const& segment : segments_) count += segment.boxCount;
  return count;
}

std::vector<std::int64_t> StoredIndex::Touched() {
  Statement read = database_.Prepare(
      "SELECT row_id FROM fdo_spatial_index_touched WHERE index_id = ?1 AND row_id <= ?2 ORDER BY row_id");
  read.Bind(1, index_);
  read.Bind(2, indexedTo_);
  std::vector<std::int64_t> rows;
  while (read.Step()) rows.push_back(read.Int64(0));
  return rows;
}

bool StoredIndex::Find(FgfBox const& box, std::vector<std::int64_t>& rows) {
  for (Segment const& segment : segments_) {
    Nodes nodes(database_, segment);
    if (!FindRows(nodes, box, rows)) return Break();
  }
  return true;
}

bool StoredIndex::Share(FgfBox const& box, TreeShare& share) {
  for (Segment const& segment : segments_) {
    Nodes nodes(database_, segment);
    if (!ReachedLeaves(nodes, box, share)) return Break();
  }
  return true;
}

bool StoredIndex::Extent(std::function<bool(std::int64_t row)> const& isPresent, FgfBox& box) {
  for (Segment const& segment : segments_) {
    Nodes nodes(database_, segment);
    if (!GrowByExtent(nodes, isPresent, box)) return Break();
  }
  return true;
}

bool StoredIndex::Break() {
  broken_ = true;
  return false;
}

void StoredIndex::Fold(bool always) {
  Unit unit(database_);
  // What is learnt of the schema meanwhile is of no use where the transaction is undone.
  schemaVersion_ = -1;
  FoldNow(always);
  unit.Keep();
}

void StoredIndex::FoldNow(bool always) {
  State const state = Look();
  if (!mayBeStored_) return;
  if (state != State::kSound || broken_) {
    std::int64_t const least = always ? 1 : kFewRows;
    std::string const few = "SELECT count(*) FROM (SELECT 1 FROM " + QuotedName(column_.table) + " LIMIT " +
                            std::to_string(least) + ")";
    if (database_.Number(few) < least) return;
    Make();
    return Build(kLowestRow);
  }
  std::optional<std::int64_t> const fromRow = FirstRowToRead(always);
  if (fromRow) Build(*fromRow);
}

// Nothing where the index can stay as it is.
std::optional<std::int64_t> StoredIndex::FirstRowToRead(bool always) {
  auto const touched = static_cast<std::int64_t>(Touched().size());
  if (touched > kFewTouched + BoxCount() / kTouchedShare || (always && touched > 0)) return kLowestRow;
  if (indexedTo_ == kHighestRow) return std::nullopt;
  Statement count = database_.Prepare("SELECT count(*) FROM " + QuotedName(column_.table) + " WHERE " +
                                      QuotedName(column_.rowId) + " > ?1");
  count.Bind(1, indexedTo_);
  count.Step();
  std::int64_t rows = count.Int64(0);
  if (rows < (always ? 1 : kFewRows)) return std::nullopt;
  std::int64_t fromRow = indexedTo_ + 1;
  for (auto segment = segments_.rbegin(); segment != segments_.rend(); ++segment) {
    if (segment->boxCount > kMergeFactor * rows || segment->boxCount + rows > kMostBoxesOfTree) break;
    rows += segment->boxCount;
    fromRow = segment->fromRow;
  }
  return fromRow;
}

// An index without rows, in place of what there is.
void StoredIndex::Make() {
  if (!tablesExist_) IndexSchema::CreateTables(database_);
  std::vector<std::int64_t> old;
  {
    // Also those of tables that are gone.
    Statement read = database_.Prepare(
        "SELECT index_id FROM fdo_spatial_index WHERE (table_name = ?1 COLLATE NOCASE AND column_name = ?2"
        " COLLATE NOCASE) OR table_name NOT IN (SELECT name FROM sqlite_schema WHERE type = 'table')");
    read.BindText(1, std::string_view(column_.table));
    read.BindText(2, std::string_view(column_.column));
    while (read.Step()) old.push_back(read.Int64(0));
  }
  for (std::int64_t index : old) Remove(index);
  index_ = IndexSchema::FreeIndex(database_);
  IndexSchema const schema(database_, column_);
  Statement add = database_.Prepare(
      "INSERT INTO fdo_spatial_index (index_id, table_name, column_name, geometry_format, table_root,"
      " indexed_to) VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  add.Bind(1, index_);
  add.BindText(2, std::string_view(column_.table));
  add.BindText(3, std::string_view(column_.column));
  add.BindText(4, std::string_view(FormatName(column_.format)));
  add.Bind(5, schema.TableRoot());
  add.Bind(6, kLowestRow);
  add.Run();
  schema.CreateTriggers(database_, index_);
  segments_.clear();
  broken_ = false;
}

void StoredIndex::Remove(std::int64_t index) {
  IndexSchema::DropTriggers(database_, index);
  std::string const number = std::to_string(index);
  database_.Execute(
      "DELETE FROM fdo_spatial_index_node WHERE node_id IN (SELECT n.node_id FROM fdo_spatial_index_segment "
      "AS s"
      " CROSS JOIN fdo_spatial_index_node AS n ON n.node_id >= s.first_node AND n.node_id < s.first_node +"
      " s.node_count WHERE s.index_id = " +
      number +
      ");"
      "DELETE FROM fdo_spatial_index_segment WHERE index_id = " +
      number + ";DELETE FROM fdo_spatial_index_touched WHERE index_id = " + number +
      ";DELETE FROM fdo_spatial_index WHERE index_id = " + number);
}

// Reads the rows from that one on into new trees, in place of what the index had from there on.
// Requires: fromRow is where a tree begins, or behind the last one.
void StoredIndex::Build(std::int64_t fromRow) {
  for (Segment const& segment : segments_) {
    if (segment.fromRow < fromRow) continue;
    Statement remove =
        database_.Prepare("DELETE FROM fdo_spatial_index_node WHERE node_id >= ?1 AND node_id < ?2");
    remove.Bind(1, segment.firstNode);
    remove.Bind(2, segment.firstNode + segment.nodeCount);
    remove.Run();
  }
  for (char const* sql : {"DELETE FROM fdo_spatial_index_segment WHERE index_id = ?1 AND from_row >= ?2",
                          "DELETE FROM fdo_spatial_index_touched WHERE index_id = ?1 AND row_id >= ?2"}) {
    Statement remove = database_.Prepare(sql);
    remove.Bind(1, index_);
    remove.Bind(2, fromRow);
    remove.Run();
  }

  std::int64_t indexedTo = fromRow == kLowestRow ? kLowestRow : fromRow - 1;
  {
    std::string const rowId = QuotedName(column_.rowId);
    Statement read =
        database_.Prepare("SELECT " + rowId + ", " + QuotedName(column_.column) + " FROM " +
                          QuotedName(column_.table) + " WHERE " + rowId + " >= ?1 ORDER BY " + rowId);
    read.Bind(1, fromRow);
    StoredGeometry geometry(column_.format);
    std::vector<RowBox> boxes;
    FgfBox box;
    while (read.Step()) {
      indexedTo = read.Int64(0);
      if (!geometry.Box(sqlite3_column_value(read.Handle(), 1), box)) continue;
      boxes.push_back(ToRowBox(indexedTo, box));
      if (static_cast<std::int64_t>(boxes.size()) < kMostBoxesOfTree) continue;
      WriteSegment(boxes, fromRow, indexedTo);
      boxes.clear();
      if (indexedTo == kHighestRow) break;
      fromRow = indexedTo + 1;
    }
    if (!boxes.empty()) WriteSegment(boxes, fromRow, indexedTo);
  }
  Statement update = database_.Prepare("UPDATE fdo_spatial_index SET indexed_to = ?2 WHERE index_id = ?1");
  update.Bind(1, index_);
  update.Bind(2, indexedTo);
  update.Run();
}

void StoredIndex::WriteSegment(std::vector<RowBox>& boxes, std::int64_t fromRow, std::int64_t toRow) {
  std::int64_t const firstNode =
      database_.Number("SELECT coalesce(max(node_id), 0) + 1 FROM fdo_spatial_index_node");
  if (firstNode < 1 || firstNode > kLastFirstNode) {
    throw FdoCommandException::Create(L"The tables of the spatial indexes are damaged.");
  }
  std::int64_t node = firstNode;
  Statement add = database_.Prepare("INSERT INTO fdo_spatial_index_node (node_id, bytes) VALUES (?1, ?2)");
  std::int64_t const nodes = BuildPackedTree(boxes, [&](void const* bytes, std::size_t size) {
    add.Bind(1, node++);
    add.BindBlob(2, bytes, size);
    add.Run();
  });
  Statement segment = database_.Prepare(
      "INSERT INTO fdo_spatial_index_segment (index_id, from_row, to_row, box_count, first_node, node_count)"
      " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  segment.Bind(1, index_);
  segment.Bind(2, fromRow);
  segment.Bind(3, toRow);
  segment.Bind(4, static_cast<std::int64_t>(boxes.size()));
  segment.Bind(5, firstNode);
  segment.Bind(6, nodes);
  segment.Run();
}

}  // namespace fdo_sqlite
