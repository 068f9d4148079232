// Scans that are read ahead, and geometries that become FGF where GDAL writes them.
#include <fdo/database_ogr.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

constexpr int kRows = 40;

class OgrScan : public testing::Test {
 protected:
  void SetUp() override {
    DatabaseDef def;
    SetTables(def, L"s", {MakeTableDef(L"s", L"step", L"id:Int64 shape:Geometry number:Int32")});
    DatabaseOgr made;
    ASSERT_TRUE(made.Create(path_.c_str(), nullptr, def));
    made[0].BeginWrite();
    for (int i = 0; i < kRows; ++i) {
      Row row(made[0].Def());
      row[2].Reset(i);
      ASSERT_TRUE(made[0].Insert(row, nullptr, true));
    }
    made[0].CommitWrite();
  }

  void Open(DatabaseOgr& database, bool readOnly) {
    ASSERT_TRUE(database.Connect(path_.c_str(), nullptr, nullptr, readOnly, /*loadSchema=*/true));
  }

  // Reads on to the end, or as many rows.
  static std::vector<int> Numbers(Table& table, int most = kRows + 1) {
    std::vector<int> numbers;
    while (static_cast<int>(numbers.size()) < most) {
      Row const* const row = table.Next();
      if (row == nullptr) break;
      numbers.push_back(static_cast<int>(static_cast<__int64>((*row)[2])));
    }
    return numbers;
  }
  static std::vector<int> AllNumbers() {
    std::vector<int> numbers;
    for (int i = 0; i < kRows; ++i) numbers.push_back(i);
    return numbers;
  }

  ScratchDirectory scratch_;
  std::wstring path_ = scratch_.File("steps.gpkg");
};

TEST_F(OgrScan, ReadOnlyAndUpdateAccessGiveTheSameRows) {
  for (bool const readOnly : {true, false}) {
    DatabaseOgr database;
    Open(database, readOnly);
    database[0].Query();
    EXPECT_EQ(Numbers(database[0]), AllNumbers()) << readOnly;
    EXPECT_EQ(database[0].Next(), nullptr) << readOnly;
  }
}

TEST_F(OgrScan, AQueryBeginsAtTheFirstRowWhereverTheLastOneStood) {
  DatabaseOgr database;
  Open(database, /*readOnly=*/true);
  Table& table = database[0];
  for (int read = 0; read <= kRows + 1; ++read) {
    SCOPED_TRACE(read);
    table.Query();
    Numbers(table, read);
    table.Query();
    EXPECT_EQ(Numbers(table), AllNumbers());
  }
}

TEST_F(OgrScan, NothingComesAfterItHasEnded) {
  DatabaseOgr database;
  Open(database, /*readOnly=*/true);
  Table& table = database[0];
  double box[4];
  struct {
    char const* name;
    void (*end)(Table& table, double* box);
  } const ends[] = {
      {"EndQuery", [](Table& t, double*) { t.EndQuery(); }},
      {"Query(id)", [](Table& t, double*) { EXPECT_NE(t.Query(1), nullptr); }},
      {"GetExtent", [](Table& t, double* extent) { t.GetExtent(extent, nullptr); }},
      {"GetRowCount", [](Table& t, double*) { EXPECT_EQ(t.GetRowCount(nullptr, true), kRows); }},
  };
  for (auto const& end : ends) {
    SCOPED_TRACE(end.name);
    table.Query();
    EXPECT_EQ(Numbers(table, 5).size(), 5u);
    end.end(table, box);
    EXPECT_EQ(table.Next(), nullptr);
  }
}

TEST_F(OgrScan, ADatabaseMayCloseHalfWay) {
  DatabaseOgr database;
  Open(database, /*readOnly=*/true);
  database[0].Query();
  EXPECT_EQ(Numbers(database[0], 5).size(), 5u);
  database.Disconnect();
}

TEST(OgrScanGeometry, EveryTypeAndDimensionalityReadsBackAsItWas) {
  char const* const texts[] = {
      "POINT (1 2)",
      "POINT Z (1 2 3)",
      "POINT M (1 2 3)",
      "POINT ZM (1 2 3 4)",
      "LINESTRING (1 2, 3 4)",
      "LINESTRING Z (1 2 3, 4 5 6)",
      "LINESTRING M (1 2 3, 4 5 6)",
      "LINESTRING ZM (1 2 3 4, 5 6 7 8)",
      "POLYGON ((0 0, 4 0, 4 4, 0 0))",
      "POLYGON ((0 0, 9 0, 9 9, 0 0), (2 1, 3 1, 3 2, 2 1))",
      "POLYGON Z ((0 0 1, 4 0 2, 4 4 3, 0 0 1))",
      "POLYGON M ((0 0 1, 4 0 2, 4 4 3, 0 0 1))",
      "POLYGON ZM ((0 0 1 5, 4 0 2 6, 4 4 3 7, 0 0 1 5))",
      "MULTIPOINT (1 2, 3 4)",
      "MULTILINESTRING ((1 2, 3 4), (5 6, 7 8))",
      "MULTIPOLYGON (((0 0, 4 0, 4 4, 0 0)))",
  };
  ScratchDirectory scratch;
  std::wstring const path = scratch.File("shapes.gpkg");
  DatabaseDef def;
  SetTables(def, L"s", {MakeTableDef(L"s", L"shapes", L"id:Int64 shape:Geometry")});
  DatabaseOgr made;
  ASSERT_TRUE(made.Create(path.c_str(), nullptr, def));
  for (char const* text : texts) {
    std::vector<unsigned char> const fgf = Fgf(text);
    Row row(made[0].Def());
    row[1].Reset(fgf.data(), static_cast<int>(fgf.size()), true);
    ASSERT_TRUE(made[0].Insert(row, nullptr, true)) << text;
  }
  made.Disconnect();

  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, /*readOnly=*/true, /*loadSchema=*/true));
  database[0].Query();
  for (char const* text : texts) {
    SCOPED_TRACE(text);
    Row const* const row = database[0].Next();
    ASSERT_NE(row, nullptr);
    auto const* const bytes = static_cast<unsigned char const*>(row->Geom());
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(std::vector<unsigned char>(bytes, bytes + row->GeomLen()), Fgf(text));
  }
}

}  // namespace
}  // namespace fdo
