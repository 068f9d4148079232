#include "sdk/providers/sqlite/spatial_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/spatial_indexes.h"
#include "testing/caught_message.h"
#include "testing/scratch_directory.h"

namespace fdo_sqlite {
namespace {

typedef std::vector<std::int64_t> Rows;

IndexedColumn const kColumn{"parcels", "geom", "id", GeometryFormat::kWkb};

constexpr char kMakeTable[] =
    "CREATE TABLE parcels (id INTEGER PRIMARY KEY, geom BLOB, name TEXT UNIQUE, area REAL)";

FgfBox Box(double minX, double minY, double maxX, double maxY) {
  FgfBox box;
  box.Expand(minX, minY);
  box.Expand(maxX, maxY);
  return box;
}

FgfBox const kAll = Box(-1e9, -1e9, 1e9, 1e9);

// Rows lie on a line: the point of row n is (n, 0).
std::string PointSql(std::string const& x) {
  return "CAST(x'0101000000' || fdo_test_double(" + x + ") || x'0000000000000000' AS BLOB)";
}

void RegisterDouble(sqlite3* handle) {
  sqlite3_create_function(
      handle, "fdo_test_double", 1, SQLITE_UTF8, nullptr,
      [](sqlite3_context* context, int, sqlite3_value** arguments) {
        double const value = sqlite3_value_double(arguments[0]);
        sqlite3_result_blob(context, &value, sizeof(value), SQLITE_TRANSIENT);
      },
      nullptr, nullptr);
}

class SpatialIndexTest : public testing::Test {
 protected:
  SpatialIndexTest() : file_(directory_.File("store.sqlite")) {
    database_.Create(file_, 1000);
    RegisterDouble(database_.Handle());
    database_.Execute("PRAGMA synchronous = OFF");
    database_.Execute(kMakeTable);
    indexes_ = std::make_unique<SpatialIndexes>(database_);
  }
  ~SpatialIndexTest() override { indexes_ = nullptr; }

  SpatialIndex& Index() { return indexes_->Of(kColumn); }

  static void Insert(Database& database, std::int64_t from, std::int64_t to) {
    database.Execute("WITH RECURSIVE n(i) AS (SELECT " + std::to_string(from) +
                     " UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(to) +
                     ") INSERT INTO parcels (id, geom, name) SELECT i, " + PointSql("i") +
                     ", 'n' || i FROM n");
  }

  Rows Find(FgfBox const& box) {
    Rows rows;
    Index().Rows(box, rows);
    return rows;
  }
  // Of rows from x to x + 3.
  Rows Near(double x) { return Find(Box(x, -1, x + 3, 1)); }

  // Another program: a connection of its own.
  void Elsewhere(std::string const& sql) {
    Database other;
    other.Open(file_, 1000);
    RegisterDouble(other.Handle());
    other.Execute("PRAGMA synchronous = OFF");
    other.Execute(sql);
  }

  void MakeIndexed(std::int64_t rows) {
    Insert(database_, 1, rows);
    Index().Fold();
    ASSERT_TRUE(Index().IsStored());
    ASSERT_EQ(Index().LooseCount(), 0);
  }

  fdo::ScratchDirectory directory_;
  std::wstring file_;
  Database database_;
  std::unique_ptr<SpatialIndexes> indexes_;
};

TEST_F(SpatialIndexTest, AnIndexInTheFileFindsWhatThereIs) {
  MakeIndexed(5000);
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  EXPECT_EQ(Find(kAll).size(), 5000u);
  EXPECT_EQ(Find(FgfBox()), (Rows{}));
}

TEST_F(SpatialIndexTest, ATableOfFewRowsIsGivenNone) {
  Insert(database_, 1, kFewRows - 1);
  Index().Fold();
  EXPECT_FALSE(Index().IsStored());
  EXPECT_EQ(Near(10), (Rows{10, 11, 12, 13}));
  EXPECT_FALSE(Index().Helps(Box(1, 1, 1, 1)));
}

TEST_F(SpatialIndexTest, AQueryAloneMakesNoIndexInTheFile) {
  Insert(database_, 1, 5000);
  EXPECT_TRUE(Index().Helps(Box(1, -1, 2, 1)));
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  EXPECT_EQ(Near(200), (Rows{200, 201, 202, 203}));
  EXPECT_FALSE(Index().IsStored());
  EXPECT_EQ(database_.Number("SELECT count(*) FROM sqlite_schema WHERE name LIKE 'fdo%'"), 0);
}

TEST_F(SpatialIndexTest, ChangesOfTheSameConnectionAreSeen) {
  MakeIndexed(5000);
  database_.Execute("DELETE FROM parcels WHERE id = 101");
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
  database_.Execute("UPDATE parcels SET geom = " + PointSql("7000") + " WHERE id = 102");
  EXPECT_EQ(Near(100), (Rows{100, 103}));
  EXPECT_EQ(Near(6999), (Rows{102}));
  Insert(database_, 7000, 7001);
  EXPECT_EQ(Near(6999), (Rows{102, 7000, 7001}));
  Insert(database_, 101, 101);
  EXPECT_EQ(Near(100), (Rows{100, 101, 103}));
  database_.Execute("UPDATE parcels SET geom = NULL WHERE id = 103");
  EXPECT_EQ(Near(100), (Rows{100, 101}));
  EXPECT_TRUE(Index().IsStored());
}

TEST_F(SpatialIndexTest, ChangesOfAnotherConnectionAreSeen) {
  MakeIndexed(5000);
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  Elsewhere("DELETE FROM parcels WHERE id = 101");
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
  Elsewhere("UPDATE parcels SET geom = " + PointSql("100") + " WHERE id = 4000");
  EXPECT_EQ(Near(100), (Rows{100, 102, 103, 4000}));
  Elsewhere("INSERT INTO parcels (id, geom) VALUES (-5, " + PointSql("100") + "), (9000, " + PointSql("101") +
            ")");
  EXPECT_EQ(Near(100), (Rows{-5, 100, 102, 103, 4000, 9000}));
  Elsewhere("DELETE FROM parcels");
  EXPECT_EQ(Near(100), (Rows{}));
  EXPECT_TRUE(Index().IsStored());
}

// The column of the key has other names, too.
TEST_F(SpatialIndexTest, MovingARowIsSeenUnderEveryNameOfItsId) {
  MakeIndexed(5000);
  char const* const names[] = {"id", "rowid", "_rowid_", "oid", "ROWID", "\"rowid\""};
  std::int64_t row = 100;
  for (char const* name : names) {
    Elsewhere("UPDATE parcels SET " + std::string(name) + " = " + std::to_string(-row) +
              " WHERE id = " + std::to_string(row));
    EXPECT_EQ(Find(Box(double(row), -1, double(row), 1)), (Rows{-row})) << name;
    ++row;
  }
}

// SQLite runs no delete trigger for the rows that these replace.
TEST_F(SpatialIndexTest, ReplacedRowsAreSeen) {
  MakeIndexed(5000);
  Elsewhere("INSERT OR REPLACE INTO parcels (id, geom) VALUES (101, " + PointSql("8000") + ")");
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
  Elsewhere("INSERT OR REPLACE INTO parcels (id, geom, name) VALUES (9000, " + PointSql("100") + ", 'n102')");
  EXPECT_EQ(database_.Number("SELECT count(*) FROM parcels WHERE id = 102"), 0);
  std::string const join =
      "SELECT count(*) FROM fdo_box_rows(1, 100, -1, 103, 1) AS box CROSS JOIN parcels ON parcels.id = "
      "box.row_id";
  EXPECT_EQ(database_.Number(join), 3) << "100, 103 and 9000";
  Elsewhere("UPDATE OR REPLACE parcels SET id = 103 WHERE id = 100");
  EXPECT_EQ(database_.Number(join), 2) << "103 and 9000";
  FgfBox extent;
  Elsewhere("INSERT OR REPLACE INTO parcels (id, geom, name) VALUES (9001, " + PointSql("5") + ", 'n1')");
  ASSERT_TRUE(Index().Extent(extent));
  EXPECT_EQ(extent.minX, 2) << "row 1 was replaced";
}

// Their own conflict clause takes the place of a trigger's.
TEST_F(SpatialIndexTest, NoWriteOfAnyKindFailsBecauseOfTheTriggers) {
  MakeIndexed(2000);
  for (char const* clause : {"ROLLBACK", "ABORT", "FAIL", "IGNORE", "REPLACE"}) {
    std::string const update = "UPDATE OR " + std::string(clause);
    EXPECT_NO_THROW(Elsewhere(update + " parcels SET geom = x'00' WHERE id IN (5, 6)")) << clause;
    EXPECT_NO_THROW(Elsewhere(update + " parcels SET geom = x'01' WHERE id IN (5, 6)")) << clause;
  }
  EXPECT_NO_THROW(Elsewhere("ALTER TABLE parcels DROP COLUMN area"));
  EXPECT_NO_THROW(Elsewhere("ALTER TABLE parcels ADD COLUMN more TEXT"));
  EXPECT_TRUE(Index().IsStored());
  EXPECT_NO_THROW(Elsewhere("ALTER TABLE parcels DROP COLUMN geom"));
}

TEST_F(SpatialIndexTest, AnOpenTransactionIsSeenAndItsRollbackToo) {
  MakeIndexed(5000);
  database_.BeginWriting();
  database_.Execute("DELETE FROM parcels WHERE id = 101");
  Insert(database_, 6000, 6000);
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
  EXPECT_EQ(Near(6000), (Rows{6000}));
  database_.Rollback();
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  EXPECT_EQ(Near(6000), (Rows{}));
}

TEST_F(SpatialIndexTest, ATableMadeAnewIsNotTakenForTheOldOne) {
  MakeIndexed(5000);
  Elsewhere("DROP TABLE parcels");
  Elsewhere(kMakeTable);
  Elsewhere("INSERT INTO parcels (id, geom) VALUES (7, " + PointSql("100") + ")");
  EXPECT_EQ(Near(100), (Rows{7}));
  EXPECT_FALSE(Index().IsStored());
  Insert(database_, 101, 4000);
  Index().Fold();
  EXPECT_TRUE(Index().IsStored());
  EXPECT_EQ(Near(100), (Rows{7, 101, 102, 103}));
  EXPECT_EQ(database_.Number("SELECT count(*) FROM fdo_spatial_index"), 1);
  EXPECT_EQ(database_.Number("SELECT count(*) FROM fdo_spatial_index_node"),
            database_.Number("SELECT sum(node_count) FROM fdo_spatial_index_segment"));
}

// Programs that alter a table by copying it put its triggers back; the index cannot know what they copied.
TEST_F(SpatialIndexTest, ATableCopiedWithItsTriggersIsNotTakenForTheOldOne) {
  MakeIndexed(5000);
  std::vector<std::string> triggers;
  {
    Statement read = database_.Prepare("SELECT sql FROM sqlite_schema WHERE type = 'trigger'");
    while (read.Step()) triggers.emplace_back(read.Text(0));
  }
  ASSERT_EQ(triggers.size(), 3u);
  Elsewhere(
      "BEGIN; CREATE TABLE copy (id INTEGER PRIMARY KEY, geom BLOB, name TEXT UNIQUE);"
      "INSERT INTO copy SELECT id + 10, geom, name FROM parcels; DROP TABLE parcels;"
      "ALTER TABLE copy RENAME TO parcels; COMMIT");
  for (std::string const& trigger : triggers) Elsewhere(trigger);
  EXPECT_EQ(Near(100), (Rows{110, 111, 112, 113}));
  EXPECT_FALSE(Index().IsStored());
}

TEST_F(SpatialIndexTest, AMissingOrAlteredTriggerEndsTheUseOfTheIndex) {
  std::vector<std::string> names{"insert", "update", "delete"};
  MakeIndexed(5000);
  for (std::string const& event : names) {
    std::int64_t const index = database_.Number("SELECT index_id FROM fdo_spatial_index");
    Elsewhere("DROP TRIGGER fdo_spatial_index_" + std::to_string(index) + "_" + event);
    Elsewhere("DELETE FROM parcels WHERE id = 101");
    EXPECT_EQ(Near(100), (Rows{100, 102, 103})) << event;
    EXPECT_FALSE(Index().IsStored()) << event;
    Insert(database_, 101, 101);
    Index().Fold();
    EXPECT_TRUE(Index().IsStored()) << event;
    EXPECT_EQ(database_.Number("SELECT count(*) FROM sqlite_schema WHERE type = 'trigger'"), 3) << event;
  }
}

TEST_F(SpatialIndexTest, ARenamedTableOrColumnEndsTheUseOfTheIndex) {
  MakeIndexed(5000);
  Elsewhere("ALTER TABLE parcels RENAME TO plots");
  Elsewhere(kMakeTable);
  EXPECT_EQ(Near(100), (Rows{}));
  Insert(database_, 100, 3000);
  Index().Fold();
  EXPECT_TRUE(Index().IsStored());
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  EXPECT_NO_THROW(Elsewhere("DELETE FROM plots WHERE id < 500")) << "the triggers went with the table";
  Elsewhere("ALTER TABLE parcels RENAME COLUMN geom TO shape");
  IndexedColumn renamed = kColumn;
  renamed.column = "shape";
  Rows rows;
  indexes_->Of(renamed).Rows(Box(100, -1, 103, 1), rows);
  EXPECT_EQ(rows, (Rows{100, 101, 102, 103}));
}

TEST_F(SpatialIndexTest, AnotherFormatOfTheColumnIsAnotherIndex) {
  MakeIndexed(5000);
  IndexedColumn fgf = kColumn;
  fgf.format = GeometryFormat::kFgf;
  Rows rows;
  indexes_->Of(fgf).Rows(kAll, rows);
  EXPECT_EQ(rows, (Rows{})) << "WKB is no FGF";
}

TEST_F(SpatialIndexTest, VacuumLosesNothing) {
  MakeIndexed(5000);
  Elsewhere("DELETE FROM parcels WHERE id = 101");
  Elsewhere("VACUUM");
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
  EXPECT_TRUE(Index().Helps(Box(100, -1, 103, 1)));
  EXPECT_TRUE(Index().IsStored()) << "a query brings an index back that the file had";
  EXPECT_EQ(Near(100), (Rows{100, 102, 103}));
}

TEST_F(SpatialIndexTest, TablesOfThatNameByAnotherProgramAreLeftAlone) {
  Elsewhere("CREATE TABLE fdo_spatial_index (mine TEXT)");
  Elsewhere("INSERT INTO fdo_spatial_index VALUES ('x')");
  Insert(database_, 1, 5000);
  Index().Fold();
  EXPECT_FALSE(Index().IsStored());
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  EXPECT_EQ(database_.Number("SELECT count(*) FROM fdo_spatial_index WHERE mine = 'x'"), 1);
}

TEST_F(SpatialIndexTest, BrokenNodesAreNotBelievedAndAreMadeAnew) {
  MakeIndexed(5000);
  Elsewhere("UPDATE fdo_spatial_index_node SET bytes = x'01020304' WHERE node_id = 1");
  EXPECT_EQ(Find(kAll).size(), 5000u);
  Elsewhere("DELETE FROM fdo_spatial_index_node");
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  Index().Fold();
  EXPECT_EQ(Index().LooseCount(), 0);
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
}

TEST_F(SpatialIndexTest, TablesWithoutAKeyOfRowIdsGetNoneInTheFile) {
  database_.Execute("CREATE TABLE loose (geom BLOB)");
  database_.Execute(
      "INSERT INTO loose SELECT geom FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1"
      " FROM n WHERE i < 3000) SELECT " +
      PointSql("i") + " AS geom FROM n)");
  SpatialIndex& index = indexes_->Of({"loose", "geom", "rowid", GeometryFormat::kWkb});
  index.Fold();
  EXPECT_FALSE(index.IsStored());
  Rows rows;
  index.Rows(Box(100, -1, 103, 1), rows);
  EXPECT_EQ(rows, (Rows{100, 101, 102, 103}));
}

TEST_F(SpatialIndexTest, ManyBatchesAreTakenInByFewTrees) {
  for (int batch = 0; batch < 40; ++batch) {
    Insert(database_, batch * 1000 + 1, batch * 1000 + 1000);
    Index().Fold();
    ASSERT_EQ(Index().LooseCount(), 0);
    ASSERT_EQ(Find(kAll).size(), static_cast<std::size_t>(batch + 1) * 1000);
  }
  EXPECT_LE(database_.Number("SELECT count(*) FROM fdo_spatial_index_segment"), 6);
  EXPECT_EQ(database_.Number("SELECT sum(box_count) FROM fdo_spatial_index_segment"), 40000);
}

TEST_F(SpatialIndexTest, TooManyTouchedRowsMakeItAnew) {
  MakeIndexed(5000);
  Elsewhere("UPDATE parcels SET geom = " + PointSql("id + 0.5"));
  EXPECT_EQ(Index().LooseCount(), 5000);
  Index().Fold();
  EXPECT_EQ(Index().LooseCount(), 0);
  EXPECT_EQ(Near(100), (Rows{100, 101, 102}));
}

TEST_F(SpatialIndexTest, TheExtentIsExactAfterEveryChange) {
  MakeIndexed(5000);
  auto const extent = [this] {
    FgfBox box;
    EXPECT_TRUE(Index().Extent(box));
    return std::pair(box.minX, box.maxX);
  };
  EXPECT_EQ(extent(), std::pair(1.0, 5000.0));
  Elsewhere("DELETE FROM parcels WHERE id < 10 OR id > 4990");
  EXPECT_EQ(extent(), std::pair(10.0, 4990.0));
  Elsewhere("UPDATE parcels SET geom = " + PointSql("0.1") + " WHERE id = 2000");
  EXPECT_EQ(extent(), std::pair(0.1, 4990.0)) << "not rounded to 32 bits";
  Insert(database_, 6000, 6000);
  EXPECT_EQ(extent(), std::pair(0.1, 6000.0));
  Elsewhere("DELETE FROM parcels");
  FgfBox none;
  EXPECT_FALSE(Index().Extent(none));
}

TEST_F(SpatialIndexTest, ALargeBoxIsNotWorthTheIndex) {
  MakeIndexed(50000);
  EXPECT_TRUE(Index().Helps(Box(1, -1, 5000, 1)));
  EXPECT_FALSE(Index().Helps(kAll));
}

TEST_F(SpatialIndexTest, AnIndexFarBehindIsBroughtUpToDateByAQuery) {
  MakeIndexed(2000);
  Insert(database_, 3000, 13000);
  EXPECT_EQ(Index().LooseCount(), 10001);
  EXPECT_TRUE(Index().Helps(Box(1, -1, 10, 1)));
  EXPECT_EQ(Index().LooseCount(), 0);
}

TEST_F(SpatialIndexTest, SqlFindsRowsThroughTheFunction) {
  MakeIndexed(5000);
  int const number = indexes_->NumberOf(kColumn);
  EXPECT_EQ(
      database_.Number("SELECT sum(row_id) FROM fdo_box_rows(" + std::to_string(number) + ", 10, -1, 12, 1)"),
      33);
  database_.Execute("DELETE FROM parcels WHERE id IN (SELECT row_id FROM fdo_box_rows(" +
                    std::to_string(number) + ", 10, -1, 12, 1))");
  EXPECT_EQ(Near(10), (Rows{13}));
  EXPECT_EQ(database_.Number("SELECT count(*) FROM fdo_box_rows(1, NULL, -1, 12, 1)"), 0);
  EXPECT_THAT(
      fdo::CaughtMessage([&] { database_.Number("SELECT count(*) FROM fdo_box_rows(99, 10, -1, 12, 1)"); }),
      testing::HasSubstr(L"There is no spatial index of that number"));
}

TEST_F(SpatialIndexTest, ALockedFileIsQueriedAndFoldedLater) {
  MakeIndexed(2000);
  Database other;
  other.Open(file_, 0);
  Insert(database_, 3000, 13000);
  other.BeginReading();
  EXPECT_GT(other.Number("SELECT count(*) FROM parcels"), 0);
  database_.SetBusyWait(10);
  EXPECT_EQ(Near(3000), (Rows{3000, 3001, 3002, 3003}));
  Index().Helps(Box(1, -1, 10, 1));
  EXPECT_EQ(Near(3000), (Rows{3000, 3001, 3002, 3003}));
  EXPECT_EQ(database_.BusyWait(), 10);
  EXPECT_FALSE(database_.InTransaction());
  other.Rollback();
  Index().Fold();
  EXPECT_EQ(Index().LooseCount(), 0);
}

TEST_F(SpatialIndexTest, AFileWithoutRoomForAnIndexIsQueriedWithoutIt) {
  Insert(database_, 1, 5000);
  std::string const pages = std::to_string(database_.Number("PRAGMA page_count"));
  database_.Execute("PRAGMA max_page_count = " + pages);
  Index().NoteWrite();
  Index().Fold();
  EXPECT_FALSE(Index().IsStored());
  EXPECT_FALSE(database_.InTransaction());
  EXPECT_EQ(database_.Number("SELECT count(*) FROM sqlite_schema WHERE name LIKE 'fdo%'"), 0);
  EXPECT_TRUE(Index().Helps(Box(1, -1, 2, 1)));
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
  database_.Execute("PRAGMA max_page_count = 1000000");
  Index().Fold();
  EXPECT_TRUE(Index().IsStored());
  EXPECT_EQ(Near(100), (Rows{100, 101, 102, 103}));
}

TEST_F(SpatialIndexTest, AnIndexWithoutRoomToGrowStaysAndOtherRowsAreLookedAt) {
  MakeIndexed(5000);
  Insert(database_, 5001, 15000);
  std::string const pages = std::to_string(database_.Number("PRAGMA page_count"));
  database_.Execute("PRAGMA max_page_count = " + pages);
  Index().Fold();
  EXPECT_TRUE(Index().IsStored());
  EXPECT_EQ(Index().LooseCount(), 10000);
  EXPECT_EQ(Near(4999), (Rows{4999, 5000, 5001, 5002}));
  database_.Execute("PRAGMA max_page_count = 1000000");
  Index().Fold();
  EXPECT_EQ(Index().LooseCount(), 0);
  EXPECT_EQ(Near(4999), (Rows{4999, 5000, 5001, 5002}));
}

}  // namespace
}  // namespace fdo_sqlite
