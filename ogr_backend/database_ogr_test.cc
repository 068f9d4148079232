#include <Fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ogr_backend/ogr_test_files.h"
#include "testing/captured_diagnostics.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class DatabaseOgrTest : public ::testing::Test {
 protected:
  void Write(std::string const& name, std::string const& text) {
    std::ofstream(scratch_.Path() / name, std::ios::binary) << text;
  }
  bool Connect(DatabaseOgr& database, std::string const& name, bool readOnly = true) {
    return database.Connect(scratch_.File(name).c_str(), nullptr, nullptr, readOnly, /*loadSchema=*/true);
  }
  bool Create(DatabaseOgr& database, std::string const& name, std::initializer_list<TableDef> tables,
              wchar_t const* driver = nullptr) {
    DatabaseDef def;
    SetTables(def, L"s", tables);
    return database.Create(scratch_.File(name).c_str(), driver, def);
  }
  bool Exists(std::string const& name) { return std::filesystem::exists(scratch_.Path() / name); }

  ScratchDirectory scratch_;
};

TEST_F(DatabaseOgrTest, BeginsUnconnected) {
  DatabaseOgr database;
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(database.Def(), nullptr);
  EXPECT_EQ(std::wstring(database.LastError()), L"");
  database.Disconnect();
  database.Disconnect();
}

TEST_F(DatabaseOgrTest, ALayerWithoutColumnNamesForIdAndGeometryGetsThem) {
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[0]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, true, true));
  TableDef const& def = *database[0].Def();
  std::wstring const names[] = {L"OGR_FID", L"OGR_GEOMETRY", L"name", L"n", L"big", L"x", L"d", L"flag"};
  ASSERT_EQ(def.ColumnCount(), 8);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(std::wstring(def[i].Name()), names[i]);
}

TEST_F(DatabaseOgrTest, WithoutTheSchemaThereAreNoTables) {
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[1]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, true, /*loadSchema=*/false));
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(database.Def(), nullptr);
  EXPECT_EQ(std::wstring(database.ProviderName()), L"GPKG");
}

TEST_F(DatabaseOgrTest, ConnectingAgainClosesWhatWasOpen) {
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[1]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, true, true));
  EXPECT_FALSE(Connect(database, "nowhere.gpkg"));
  EXPECT_EQ(database.Count(), 0);
  EXPECT_NE(std::wstring(database.LastError()), L"");
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, true, true));
  EXPECT_EQ(database.Count(), 1);
  EXPECT_EQ(std::wstring(database.LastError()), L"");
}

TEST_F(DatabaseOgrTest, SetSchemaSaysThatItIsNotImplemented) {
  CapturedDiagnostics diagnostics;
  DatabaseOgr database;
  EXPECT_FALSE(database.SetSchema(DatabaseDef()));
  EXPECT_THAT(diagnostics.Lines(), ElementsAre(L"Ogr::SetSchema not implemented\n"));
}

TEST_F(DatabaseOgrTest, SetSchemasLineEndsWithTwoLineBreaks) {
  ::testing::internal::CaptureStderr();
  DatabaseOgr database;
  EXPECT_FALSE(database.SetSchema(DatabaseDef()));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Quillon error: Ogr::SetSchema not implemented\n\n");
}

TEST_F(DatabaseOgrTest, DeleteByFilterEndsTheProcess) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[1]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, false, true));
  EXPECT_DEATH(database[0].Delete(static_cast<FdoFilter*>(nullptr)), "");
}

// The row of such a table stands free, so only a row that is bound by hand gets here.
TEST_F(DatabaseOgrTest, ABoundRowThrowsAText) {
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[1]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, true, true));
  Row bound(static_cast<Table const*>(&database[0]));
  std::string thrown;
  try {
    static_cast<void>(bound[0]);
  } catch (char const* text) {
    thrown = text;
  }
  EXPECT_EQ(thrown, "not implemented yet");
  EXPECT_TRUE(bound[0].IsNull()) << "the cell is null now";
}

struct MaskCase {
  char const* type;
  int mask;
};

TEST_F(DatabaseOgrTest, TheMaskOfALayersType) {
  // GeoJSON with features of one type, or of several, makes layers of these types.
  constexpr MaskCase kCases[] = {
      {R"("Point","coordinates":[1,2])", 1},
      {R"("MultiPoint","coordinates":[[1,2]])", 1},
      {R"("LineString","coordinates":[[1,2],[3,4]])", 2},
      {R"("MultiLineString","coordinates":[[[1,2],[3,4]]])", 2},
      {R"("Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]])", 4},
      {R"("MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]]])", 4},
      {R"("Point","coordinates":[1,2,3])", 1},
      {R"("Polygon","coordinates":[[[0,0,5],[1,0,5],[1,1,5],[0,0,5]]])", 4},
      {R"("GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]}])", 15},
  };
  for (MaskCase const& test : kCases) {
    Write("one.geojson",
          std::string(R"({"type":"Feature","properties":{},"geometry":{"type":)") + test.type + "}}");
    DatabaseOgr database;
    ASSERT_TRUE(Connect(database, "one.geojson")) << test.type;
    EXPECT_EQ(database[0].Def()->Geom().GeomTypes(), test.mask) << test.type;
  }
  Write("one.geojson", R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2]}},
    {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[1,2],[3,4]]}}]})");
  DatabaseOgr database;
  ASSERT_TRUE(Connect(database, "one.geojson"));
  EXPECT_EQ(database[0].Def()->Geom().GeomTypes(), 0) << "unknown";
}

// Reading: null and unset, numbers of 64 bits, list fields, names that differ in case only.
TEST_F(DatabaseOgrTest, NullsListsAndNamesThatDifferInCase) {
  Write("mixed.geojson", R"({"type":"FeatureCollection","features":[
    {"type":"Feature","id":7,"properties":{"n":1,"N":2,"list":[1,2],"big":9007199254740993},"geometry":null},
    {"type":"Feature","id":9,"properties":{"n":null,"N":1,"FID":5},"geometry":{"type":"Point","coordinates":[1,2]}}]})");
  DatabaseOgr database;
  ASSERT_TRUE(Connect(database, "mixed.geojson"));
  Table& table = database[0];
  EXPECT_EQ((*table.Def())[L"list"]->Type(), ColumnDef::kUnset);
  table.Query();
  Row const* row = table.Next();
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->ID(), 7);
  EXPECT_TRUE((*row)[1].IsNull());
  EXPECT_EQ(static_cast<__int64>((*row)[L"big"]), 9007199254740993);
  EXPECT_TRUE((*row)[L"list"].IsNull()) << "carried, never read";
  EXPECT_TRUE((*row)[L"FID"].IsNull()) << "unset";
  row = table.Next();
  ASSERT_NE(row, nullptr);
  EXPECT_TRUE((*row)[L"n"].IsNull()) << "null";
  EXPECT_TRUE((*row)[L"big"].IsNull()) << "unset";
  FdoPtr<FdoFilter> lower = FdoFilter::Parse(L"n = 1");
  EXPECT_EQ(table.GetRowCount(lower, true), 1);
  FdoPtr<FdoFilter> upper = FdoFilter::Parse(L"N = 2 AND n = 1");
  EXPECT_EQ(table.GetRowCount(upper, true), 1);
  // A field named FID hides GDAL's own name for the id, which is then compared row by row.
  CapturedDiagnostics diagnostics;
  FdoPtr<FdoFilter> id = FdoFilter::Parse((std::wstring(table.Def()->ID().Name()) + L" = 7").c_str());
  EXPECT_EQ(table.GetRowCount(id, true), 1);
  EXPECT_EQ(diagnostics.Lines().size(), 0u);
  table.QueryRange(8, 10);
  row = table.Next();
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->ID(), 9);
}

TEST_F(DatabaseOgrTest, ABrokenFileFailsCleanly) {
  Write("bad.geojson", R"({"type":"FeatureCollection","features":[{"type":)");
  Write("bad.shp", "not a shapefile");
  Write("bad.gpkg", std::string(5000, 'x'));
  Write("empty.gpkg", "");
  for (char const* name : {"bad.geojson", "bad.shp", "bad.gpkg", "empty.gpkg"}) {
    ::testing::internal::CaptureStderr();
    DatabaseOgr database;
    EXPECT_FALSE(Connect(database, name)) << name;
    EXPECT_NE(std::wstring(database.LastError()), L"") << name;
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << "GDAL prints nothing";
  }
}

TEST_F(DatabaseOgrTest, DriversByExtension) {
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"a/b.shp"), L"ESRI Shapefile");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.GPKG"), L"GPKG");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.geojson"), L"GeoJSON");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.json"), L"GeoJSON");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.fgb"), L"FlatGeobuf");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.csv"), L"CSV");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.sqlite"), L"SQLite");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.tif"), L"") << "no vector data";
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b.unheardof"), L"");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"b"), L"");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L""), L"");
}

TEST_F(DatabaseOgrTest, CreateRefusesWhatItCannotMake) {
  TableDef const plain = MakeTableDef(L"s", L"t", L"id:Int64 shape:Geometry n:Int32");
  TableDef const twoGeometries = MakeTableDef(L"s", L"t", L"id:Int64 shape:Geometry other:Geometry");
  CapturedDiagnostics diagnostics;
  DatabaseOgr database;
  EXPECT_FALSE(Create(database, "a.unheardof", {plain}));
  EXPECT_FALSE(Create(database, "a.gpkg", {plain}, L"NoSuchDriver"));
  EXPECT_FALSE(Create(database, "a.gpkg", {plain}, L"GTiff"));
  EXPECT_FALSE(Create(database, "a.gpkg", {twoGeometries}));
  EXPECT_THAT(ToUtf8(database.LastError()), HasSubstr("other"));
  EXPECT_FALSE(Exists("a.gpkg"));
  EXPECT_FALSE(Create(database, "a.geojson", {plain, MakeTableDef(L"s", L"u", L"id:Int64 shape:Geometry")}))
      << "one table is all that GeoJSON takes";
  EXPECT_FALSE(Exists("a.geojson"));
  EXPECT_FALSE(Create(database, "nowhere/a.gpkg", {plain}));
  Write("t.dbf", "somebody's");
  EXPECT_FALSE(Create(database, "t.shp", {plain})) << "it would overwrite the other file";
  EXPECT_THAT(ToUtf8(database.LastError()), HasSubstr("t.dbf"));
  EXPECT_EQ(database.Count(), 0);
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

TEST_F(DatabaseOgrTest, CreateMakesEveryTableAndColumnType) {
  DatabaseOgr database;
  ASSERT_TRUE(Create(database, "many.gpkg",
                     {MakeTableDef(L"s", L"roads",
                                   L"id:Int64 shape:Geometry b:Boolean y:Byte d:DateTime c:Decimal "
                                   L"x:Double h:Int16 i:Int32 l:Int64 f:Single s:String z:Blob t:Clob"),
                      MakeTableDef(L"s", L"notes", L"id:Int32 text:String fid:Int32")}))
      << ToUtf8(database.LastError());
  ASSERT_EQ(database.Count(), 2);
  TableDef const& roads = *database[L"roads"]->Def();
  ColumnDef::DataType const expected[] = {
      ColumnDef::kInt64,  ColumnDef::kGeometry, ColumnDef::kInt32, ColumnDef::kInt32, ColumnDef::kDateTime,
      ColumnDef::kDouble, ColumnDef::kDouble,   ColumnDef::kInt32, ColumnDef::kInt32, ColumnDef::kInt64,
      ColumnDef::kDouble, ColumnDef::kString,   ColumnDef::kBlob,  ColumnDef::kString};
  ASSERT_EQ(roads.ColumnCount(), 14);
  for (int i = 0; i < 14; ++i) EXPECT_EQ(roads[i].Type(), expected[i]) << i;
  EXPECT_EQ(std::wstring(roads.ID().Name()), L"id");
  EXPECT_EQ(std::wstring(roads.Geom().Name()), L"shape");
  ASSERT_NE(database[L"notes"], nullptr);
  EXPECT_GE(database[L"notes"]->Def()->IndexOf(L"fid"), 2) << "a column of that name stays a column";
}

TEST_F(DatabaseOgrTest, AnIdThatIsNoIntegerBecomesAField) {
  ColumnDef columns[2];
  columns[0].Initialize(L"key", ColumnDef::kString, 0, Value(), nullptr);
  columns[1].Initialize(L"shape", ColumnDef::kGeometry, 15, Value(), nullptr);
  TableDef table;
  table.Initialize(L"s", L"t", columns, 2, 0, 1, 0);
  DatabaseOgr database;
  ASSERT_TRUE(Create(database, "k.gpkg", {table})) << ToUtf8(database.LastError());
  EXPECT_EQ(database[0].Def()->IndexOf(L"key"), 2);
}

TEST_F(DatabaseOgrTest, ANewSourceHasNoDuplicates) {
  DatabaseOgr database;
  ASSERT_TRUE(Create(database, "t.geojson", {MakeTableDef(L"s", L"t", L"id:Int64 shape:Geometry")}));
  EXPECT_EQ(database.DuplicateTable(&database[0]), nullptr);
  EXPECT_NE(std::wstring(database.LastError()), L"");
  EXPECT_EQ(database.DuplicateTable(nullptr), nullptr);
}

TEST_F(DatabaseOgrTest, ADuplicateSeesWhatWasWritten) {
  std::wstring const path = WriteTowns(scratch_, kOgrFormats[1]);
  DatabaseOgr database;
  ASSERT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, false, true));
  Row row(database[0].Def());
  SetTown(row, Towns()[0]);
  ASSERT_TRUE(database[0].Insert(row, nullptr, true));
  Table* const duplicate = database.DuplicateTable(&database[0]);
  ASSERT_NE(duplicate, nullptr) << ToUtf8(database.LastError());
  EXPECT_EQ(duplicate->GetRowCount(nullptr, true), 7);
  database.DestroyTable(duplicate);
}

}  // namespace
}  // namespace fdo
