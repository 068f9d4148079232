// The index against a full scan, while several programs change the file at random.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "port/child_process.h"
#include "port/file.h"
#include "sdk/providers/sqlite/spatial_indexes.h"
#include "sdk/providers/sqlite/stored_geometry.h"
#include "sdk/runtime/core/utf8.h"
#include "testing/scratch_directory.h"

namespace fdo_sqlite {
namespace {

typedef std::vector<std::int64_t> Rows;

IndexedColumn const kColumn{"parcels", "geom", "id", GeometryFormat::kWkb};
constexpr char kMakeTable[] = "CREATE TABLE parcels (id INTEGER PRIMARY KEY, geom BLOB, name TEXT UNIQUE)";

class Model {
 public:
  explicit Model(unsigned seed) : random_(seed), file_(directory_.File("model.sqlite")) {
    database_.Create(file_, 5000);
    database_.Execute("PRAGMA synchronous = OFF");
    database_.Execute(kMakeTable);
    database_.BeginWriting();
    for (; highest_ < 2 * kFewRows; ++highest_) {
      database_.Execute("INSERT INTO parcels (geom) VALUES (" + GeometrySql() + ")");
    }
    database_.Commit();
    other_.Open(file_, 5000);
    other_.Execute("PRAGMA synchronous = OFF");
    indexes_ = std::make_unique<SpatialIndexes>(database_);
  }
  ~Model() {
    database_.Close();
    indexes_ = nullptr;
  }

  void Change() {
    std::string const sql = RandomSql();
    switch (random_() % 8) {
      case 0:
      case 1:
      case 2:
        database_.Execute(sql);
        break;
      case 3:
      case 4:
      case 5:
        other_.Execute(sql);
        break;
      case 6:
        RunShell(sql);
        break;
      default:
        RunUndone(sql);
        break;
    }
    switch (random_() % 12) {
      case 0:
      case 1:
        Index().Fold();
        break;
      case 2:
        other_.Execute("VACUUM");
        break;
      default:
        break;
    }
  }

  void Check(std::string const& what) {
    for (int query = 0; query < 3; ++query) {
      FgfBox const box = RandomBox();
      if (random_() % 2 == 0) Index().Helps(box);
      Rows rows, expected;
      Index().Rows(box, rows);
      FgfBox extent, expectedExtent;
      bool const any = Index().Extent(extent);
      Scan(box, expected, expectedExtent);
      // Rows that were replaced without a trigger may be named, but they are not in the table.
      std::erase_if(rows, [this](std::int64_t row) { return !IsPresent(row); });
      ASSERT_EQ(rows, expected) << what;
      ASSERT_EQ(any, !expectedExtent.IsEmpty()) << what;
      if (!any) continue;
      ASSERT_EQ(extent.minX, expectedExtent.minX) << what;
      ASSERT_EQ(extent.minY, expectedExtent.minY) << what;
      ASSERT_EQ(extent.maxX, expectedExtent.maxX) << what;
      ASSERT_EQ(extent.maxY, expectedExtent.maxY) << what;
    }
  }

  SpatialIndex& Index() { return indexes_->Of(kColumn); }

 private:
  std::int64_t Number(std::int64_t most) {
    return static_cast<std::int64_t>(random_() % static_cast<unsigned>(most));
  }
  double Place() { return static_cast<double>(Number(2000)) / 10 - 100; }

  // A line across a small box, a point, or no geometry.
  std::string GeometrySql() {
    if (random_() % 20 == 0) return random_() % 2 == 0 ? "NULL" : "x'0102'";
    double const x = Place(), y = Place();
    double const ordinates[] = {x, y, x + static_cast<double>(Number(50)) / 10,
                                y + static_cast<double>(Number(50)) / 10};
    bool const point = random_() % 2 == 0;
    std::string sql = point ? "x'0101000000" : "x'010200000002000000";
    for (int i = 0; i < (point ? 2 : 4); ++i) {
      unsigned char bytes[8];
      std::memcpy(bytes, &ordinates[i], 8);
      for (unsigned char byte : bytes) {
        sql += "0123456789abcdef"[byte >> 4];
        sql += "0123456789abcdef"[byte & 15];
      }
    }
    return sql + "'";
  }

  std::string Row() { return std::to_string(Number(highest_ + 50) - 20); }

  std::string RandomSql() {
    std::string sql = "BEGIN;";
    auto const count = 1 + Number(random_() % 4 == 0 ? 700 : 20);
    auto const kind = random_() % 10;
    for (std::int64_t i = 0; i < count; ++i) {
      switch (kind) {
        case 0:
        case 1:
        case 2:
        case 3:
          sql += "INSERT INTO parcels (geom) VALUES (" + GeometrySql() + ");";
          ++highest_;
          break;
        case 4:
          sql += "INSERT OR REPLACE INTO parcels (id, geom, name) VALUES (" + Row() + "," + GeometrySql() +
                 ",'n" + std::to_string(Number(300)) + "');";
          break;
        case 5:
          sql += "UPDATE parcels SET geom = " + GeometrySql() + " WHERE id = " + Row() + ";";
          break;
        case 6:
          sql += "UPDATE OR REPLACE parcels SET rowid = " + Row() + " WHERE id = " + Row() + ";";
          break;
        case 7:
          sql += "DELETE FROM parcels WHERE id = " + Row() + ";";
          break;
        case 8:
          sql += "INSERT INTO parcels (id, geom) VALUES (" + Row() + "," + GeometrySql() +
                 ") ON CONFLICT (id) DO UPDATE SET geom = excluded.geom;";
          break;
        default:
          sql += "UPDATE OR IGNORE parcels SET name = 'n" + std::to_string(Number(300)) +
                 "' WHERE id = " + Row() + ";";
          break;
      }
    }
    if (random_() % 60 == 0) sql += std::string("DROP TABLE parcels;") + kMakeTable + ";";
    if (random_() % 60 == 0) sql += "DELETE FROM parcels WHERE id % 3 = 0;";
    return sql + "COMMIT;";
  }

  // Where there is no shell a connection that comes and goes stands for it.
  void RunShell(std::string const& sql) {
    if (std::string_view(QUILLON_SQLITE3_SHELL).empty()) {
      Database visitor;
      visitor.Open(file_, 5000);
      visitor.Execute("PRAGMA synchronous = OFF;" + sql);
      return;
    }
    std::string const script = (directory_.Path() / "script.sql").string();
    std::ofstream(script) << "PRAGMA synchronous = OFF;" << sql;
    std::string const name = fdo_sdk::Utf8FromWide(file_);
    fdo::port::ChildResult const result =
        fdo::port::RunChild(QUILLON_SQLITE3_SHELL, {"-bail", name, ".read " + script});
    ASSERT_EQ(result.exitCode, 0) << result.output;
  }

  // Looks in the midst of a transaction that is then undone.
  void RunUndone(std::string const& sql) {
    database_.BeginWriting();
    std::string const inner = sql.substr(6, sql.size() - 13);
    database_.Execute(inner);
    Check("in a transaction");
    database_.Rollback();
  }

  FgfBox RandomBox() {
    FgfBox box;
    box.Expand(Place(), Place());
    if (random_() % 4 == 0) box.Expand(Place(), Place());
    box.maxX += 3;
    box.maxY += 3;
    return box;
  }

  bool IsPresent(std::int64_t row) {
    return database_.Number("SELECT count(*) FROM parcels WHERE id = " + std::to_string(row)) == 1;
  }

  void Scan(FgfBox const& box, Rows& rows, FgfBox& extent) {
    StoredGeometry geometry(kColumn.format);
    Statement read = database_.Prepare("SELECT id, geom FROM parcels ORDER BY id");
    FgfBox each;
    while (read.Step()) {
      if (!geometry.Box(sqlite3_column_value(read.Handle(), 1), each)) continue;
      extent.Join(each);
      if (each.Intersects(box)) rows.push_back(read.Int64(0));
    }
  }

  std::mt19937 random_;
  fdo::ScratchDirectory directory_;
  std::wstring file_;
  Database database_;
  Database other_;
  std::unique_ptr<SpatialIndexes> indexes_;
  std::int64_t highest_ = 0;
};

constexpr int kChanges = 80;

// QUILLON_INDEX_MODEL_SEEDS runs as many seeds, each of kChanges changes.
TEST(SpatialIndexModel, AgreesWithAScanWhateverProgramsDo) {
  std::string const wanted = fdo::port::EnvironmentVariable("QUILLON_INDEX_MODEL_SEEDS");
  unsigned const seeds = wanted.empty() ? 2 : static_cast<unsigned>(std::atoi(wanted.c_str()));
  int stored = 0, checks = 0;
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    Model model(seed);
    for (int change = 0; change < kChanges; ++change) {
      ASSERT_NO_FATAL_FAILURE(model.Change()) << "seed " << seed << " change " << change;
      ASSERT_NO_FATAL_FAILURE(
          model.Check("seed " + std::to_string(seed) + " change " + std::to_string(change)));
      stored += model.Index().IsStored();
      ++checks;
    }
  }
  EXPECT_GT(stored, checks / 2) << "the index in the file was hardly in use";
}

// A file as the other programs know them, with an index, changed and listed by GDAL.
TEST(SpatialIndexPrograms, GdalAppendsDeletesAndListsNoTableOfTheIndex) {
  if (std::string_view(QUILLON_OGR2OGR).empty()) GTEST_SKIP() << "there is no ogr2ogr for this platform";
  fdo::ScratchDirectory directory;
  std::wstring const file = directory.File("gdal.sqlite");
  std::string const name = fdo_sdk::Utf8FromWide(file);
  Database database;
  database.Create(file, 5000);
  database.Execute(
      "CREATE TABLE geometry_columns (f_table_name VARCHAR, f_geometry_column VARCHAR, geometry_type INTEGER,"
      " coord_dimension INTEGER, srid INTEGER, geometry_format VARCHAR);"
      "CREATE TABLE spatial_ref_sys (srid INTEGER UNIQUE, auth_name TEXT, auth_srid TEXT, srtext TEXT);"
      "INSERT INTO geometry_columns VALUES ('parcels', 'geom', 1, 2, NULL, 'WKB');");
  database.Execute(kMakeTable);
  database.Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) INSERT INTO parcels "
      "(geom)"
      " SELECT x'010100000000000000000000000000000000000000' FROM n");
  SpatialIndexes indexes(database);
  SpatialIndex& index = indexes.Of(kColumn);
  index.Fold();
  ASSERT_TRUE(index.IsStored());

  std::string const features = (directory.Path() / "more.geojson").string();
  std::ofstream(features) << R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"name":"a"},"geometry":{"type":"Point","coordinates":[7,8]}},
    {"type":"Feature","properties":{"name":"b"},"geometry":{"type":"Point","coordinates":[70,8]}}]})";
  ASSERT_EQ(fdo::port::RunChild(QUILLON_OGR2OGR,
                                {"-f", "SQLite", "-append", "-update", name, features, "-nln", "parcels"})
                .exitCode,
            0);
  FgfBox box;
  box.Expand(6, 7);
  box.Expand(8, 9);
  Rows rows;
  index.Rows(box, rows);
  EXPECT_EQ(rows, (Rows{2001}));

  fdo::port::ChildResult const change = fdo::port::RunChild(
      QUILLON_OGRINFO,
      {name, "-sql", "UPDATE parcels SET geom = (SELECT geom FROM parcels WHERE id = 2001) WHERE id = 5"});
  ASSERT_EQ(change.exitCode, 0);
  ASSERT_EQ(
      fdo::port::RunChild(QUILLON_OGRINFO, {name, "-sql", "DELETE FROM parcels WHERE id = 2001"}).exitCode,
      0);
  index.Rows(box, rows);
  EXPECT_EQ(rows, (Rows{5}));

  fdo::port::ChildResult const listed = fdo::port::RunChild(QUILLON_OGRINFO, {"-ro", name});
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_THAT(listed.output, testing::HasSubstr("1: parcels"));
  EXPECT_THAT(listed.output, testing::Not(testing::HasSubstr("fdo_spatial_index")));

  // The table is dropped and made again.
  ASSERT_EQ(
      fdo::port::RunChild(QUILLON_OGR2OGR, {"-f", "SQLite", "-update", "-overwrite", name, features, "-nln",
                                            "parcels", "-lco", "FID=id", "-lco", "GEOMETRY_NAME=geom"})
          .exitCode,
      0);
  index.Rows(box, rows);
  EXPECT_EQ(rows, (Rows{1}));
  EXPECT_FALSE(index.IsStored());
}

}  // namespace
}  // namespace fdo_sqlite
