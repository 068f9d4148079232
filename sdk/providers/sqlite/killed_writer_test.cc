// A store whose writer is killed at random moments.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "port/child_process.h"
#include "port/file.h"
#include "sdk/providers/sqlite/spatial_indexes.h"
#include "sdk/providers/sqlite/stored_geometry.h"
#include "sdk/runtime/core/utf8.h"
#include "testing/scratch_directory.h"

namespace fdo_sqlite {
namespace {

IndexedColumn const kColumn{"parcels", "geom", "id", GeometryFormat::kWkb};

std::string Text(Database& database, std::string const& sql) {
  Statement read = database.Prepare(sql);
  return read.Step() ? std::string(read.Text(0)) : std::string();
}

void ExpectSound(std::wstring const& file, std::mt19937& random, int& stored) {
  Database database;
  database.Open(file, 5000);
  ASSERT_EQ(Text(database, "PRAGMA integrity_check"), "ok");
  ASSERT_EQ(database.Number(
                "SELECT count(*) FROM (SELECT 1 FROM parcels GROUP BY batch HAVING count(*) <> max(size)"
                " OR min(size) <> max(size) OR count(DISTINCT version) > 1)"),
            0)
      << "batches that are there in part";
  SpatialIndexes indexes(database);
  SpatialIndex& index = indexes.Of(kColumn);
  stored += index.IsStored();
  StoredGeometry geometry(kColumn.format);
  for (int query = 0; query < 5; ++query) {
    FgfBox box;
    box.Expand(static_cast<double>(random() % 1000), static_cast<double>(random() % 1000));
    box.Expand(static_cast<double>(random() % 1000), static_cast<double>(random() % 1000));
    std::vector<std::int64_t> rows, expected;
    index.Rows(box, rows);
    Statement read = database.Prepare("SELECT id, geom FROM parcels ORDER BY id");
    FgfBox each;
    while (read.Step()) {
      if (geometry.Box(sqlite3_column_value(read.Handle(), 1), each) && each.Intersects(box)) {
        expected.push_back(read.Int64(0));
      }
    }
    ASSERT_EQ(rows, expected);
  }
}

// QUILLON_KILLS is how often; the slow set of tests asks for 200.
TEST(KilledWriter, LeavesEveryBatchWholeOrAbsentAndTheIndexInAgreement) {
  std::string const wanted = fdo::port::EnvironmentVariable("QUILLON_KILLS");
  int const kills = wanted.empty() ? 10 : std::atoi(wanted.c_str());
  constexpr unsigned kSeed = 7;
  std::mt19937 random(kSeed);
  fdo::ScratchDirectory directory;
  std::wstring const file = directory.File("killed.sqlite");
  {
    Database database;
    database.Create(file, 5000);
    database.Execute(
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('parcels', 'geom', 1, 2, NULL, 'WKB');"
        "CREATE TABLE parcels (id INTEGER PRIMARY KEY AUTOINCREMENT, batch INT, size INT, version INT, geom "
        "BLOB)");
  }
  int stored = 0, killed = 0;
  std::int64_t rows = 0;
  for (int kill = 0; kill < kills; ++kill) {
    fdo::port::BesideChild writer(QUILLON_KILLED_WRITER,
                                  {fdo_sdk::Utf8FromWide(file), std::to_string(kSeed + unsigned(kill))});
    ASSERT_TRUE(writer.Started());
    std::this_thread::sleep_for(std::chrono::milliseconds(20 + random() % 250));
    killed += writer.Kill();
    ASSERT_NO_FATAL_FAILURE(ExpectSound(file, random, stored)) << "seed " << kSeed << " kill " << kill;
  }
  {
    Database database;
    database.Open(file, 5000);
    rows = database.Number("SELECT count(*) FROM parcels");
  }
  RecordProperty("rows", std::to_string(rows));
  EXPECT_EQ(killed, kills) << "a writer ended by itself";
  EXPECT_GT(rows, 0);
  EXPECT_GT(stored, 0) << "no index was ever in use";
}

}  // namespace
}  // namespace fdo_sqlite
