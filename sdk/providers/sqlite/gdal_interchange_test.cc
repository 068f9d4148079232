// The same file for GDAL and for the provider: each reads what the other has written.
#include <gtest/gtest.h>

#include <fstream>
#include <string_view>

#include "port/child_process.h"
#include "sdk/providers/sqlite/row_commands.h"

namespace fdo_sqlite {
namespace {

constexpr wchar_t kWgs84[] =
    L"GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
    L"PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433],AUTHORITY[\"EPSG\",\"4326\"]]";

std::string Output(char const* program, std::vector<std::string> const& arguments) {
  fdo::port::ChildResult const result = fdo::port::RunChild(program, arguments);
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitCode, 0) << result.output;
  return result.output;
}

// A layer as comma-separated values, geometry first.
std::string Csv(TestStore const& store, std::string const& layer) {
  return Output(QUILLON_OGR2OGR,
                {"-f", "CSV", "/vsistdout/", store.Utf8File(), layer, "-lco", "GEOMETRY=AS_WKT", "-lco",
                 "LINEFORMAT=LF", "-lco", "STRING_QUOTING=IF_NEEDED"});
}

struct Shape {
  wchar_t const* text;
  char const* csv;  // as GDAL shows it
};
constexpr Shape kShapes[] = {
    {L"POINT (1 2)", "\"POINT (1 2)\""},
    {L"POINT XYZ (1 2 3)", "\"POINT Z (1 2 3)\""},
    {L"LINESTRING (0 0, 1 1, 2 0)", "\"LINESTRING (0 0,1 1,2 0)\""},
    {L"POLYGON ((0 0, 4 0, 4 4, 0 0), (1 0.5, 2 0.5, 2 1, 1 0.5))",
     "\"POLYGON ((0 0,4 0,4 4,0 0),(1.0 0.5,2.0 0.5,2 1,1.0 0.5))\""},
    {L"MULTIPOINT (1 2, 3 4)", "\"MULTIPOINT ((1 2),(3 4))\""},
    {L"MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))", "\"MULTILINESTRING ((0 0,1 1),(2 2,3 3))\""},
    {L"MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)))", "\"MULTIPOLYGON (((0 0,1 0,1 1,0 0)))\""},
    {L"GEOMETRYCOLLECTION (POINT (1 2), LINESTRING (0 0, 1 1))",
     "\"GEOMETRYCOLLECTION (POINT (1 2),LINESTRING (0 0,1 1))\""},
};

class GdalInterchange : public testing::Test {
 protected:
  void SetUp() override {
    if (std::string_view(QUILLON_OGR2OGR).empty()) GTEST_SKIP() << "there is no ogr2ogr for this platform";
  }
  // A table of every shape, written by the provider.
  void WriteShapes(FdoString* settings) {
    store_.Run("");
    FdoPtr<Connection> connection = store_.Open(settings);
    CreateContext(connection, L"World", L"EPSG:4326", kWgs84);
    Apply(connection,
          SchemaOf({ClassOf(L"Shapes", {Data(L"Id", FdoDataType_Int64), Data(L"Number", FdoDataType_Int32),
                                        Geometry(L"Shape", FdoGeometricType_All, L"World")})}));
    int number = 0;
    for (Shape const& shape : kShapes) {
      FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Shapes");
      GiveText(insert, L"Number", std::to_wstring(++number).c_str());
      GiveText(insert, L"Shape", (L"GeomFromText('" + std::wstring(shape.text) + L"')").c_str());
      FdoPtr<FdoIFeatureReader> reader = insert->Execute();
    }
  }

  static std::string ExpectedCsv() {
    std::string csv = "WKT,Number\n";
    int number = 0;
    for (Shape const& shape : kShapes) csv += std::string(shape.csv) + "," + std::to_string(++number) + "\n";
    return csv;
  }

  TestStore store_;
};

TEST_F(GdalInterchange, GdalReadsFgf) {
  WriteShapes(L"UseFdoMetadata=TRUE");
  EXPECT_EQ(Csv(store_, "Shapes"), ExpectedCsv());
}

TEST_F(GdalInterchange, GdalReadsWkb) {
  WriteShapes(L"UseFdoMetadata=TRUE;GeometryFormat=WKB");
  EXPECT_EQ(Csv(store_, "Shapes"), ExpectedCsv());
}

TEST_F(GdalInterchange, GdalKnowsTypesKeyAndCoordinateSystem) {
  store_.Run("");
  FdoPtr<Connection> connection = store_.Open();
  CreateContext(connection, L"World", L"EPSG:4326", kWgs84);
  Apply(
      connection,
      SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int32), Data(L"flag", FdoDataType_Boolean),
                                    Data(L"small", FdoDataType_Int16), Data(L"whole", FdoDataType_Int32),
                                    Data(L"big", FdoDataType_Int64), Data(L"real", FdoDataType_Double),
                                    Data(L"single", FdoDataType_Single), Data(L"exact", FdoDataType_Decimal),
                                    Data(L"name", FdoDataType_String), Data(L"at", FdoDataType_DateTime),
                                    Data(L"bytes", FdoDataType_BLOB), Data(L"long", FdoDataType_CLOB),
                                    Geometry(L"Shape", FdoGeometricType_Surface, L"World")})}));
  std::string const info = Output(QUILLON_OGRINFO, {"-ro", "-so", store_.Utf8File(), "Places"});
  for (char const* line :
       {"Geometry: Polygon\n", "FID Column = Id\n", "Geometry Column = Shape\n", "ID[\"EPSG\",4326]",
        "flag: Integer(Boolean) ", "small: Integer ", "whole: Integer ", "big: Integer64 ", "real: Real ",
        "single: Real ", "exact: Real ", "name: String ", "at: DateTime ", "bytes: Binary ",
        "long: String "}) {
    EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
  }
}

TEST_F(GdalInterchange, GdalReadsValues) {
  store_.Run("");
  {
    FdoPtr<Connection> connection = store_.Open();
    Apply(connection,
          SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int64), Data(L"flag", FdoDataType_Boolean),
                                        Data(L"big", FdoDataType_Int64), Data(L"real", FdoDataType_Double),
                                        Data(L"name", FdoDataType_String), Data(L"at", FdoDataType_DateTime),
                                        Geometry(L"Shape")})}));
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
    GiveText(insert, L"flag", L"TRUE");
    GiveText(insert, L"big", L"9007199254740993");
    GiveText(insert, L"real", L"0.25");
    GiveText(insert, L"name", L"'\u00e4 \U0001F600'");
    GiveText(insert, L"at", L"TIMESTAMP '2024-03-01 14:30:05.5'");
    FdoPtr<FdoIFeatureReader> reader = insert->Execute();
  }
  EXPECT_EQ(Csv(store_, "Places"),
            "WKT,flag,big,real,name,at\n,1,9007199254740993,0.25,\xC3\xA4 \xF0\x9F\x98\x80,"
            "2024/03/01 14:30:05.500\n");
}

// What GDAL writes, from a text of its own choice.
class GdalWrites : public GdalInterchange {
 protected:
  GdalWrites() {
    source_ = fdo_sdk::Utf8FromWide(store_.Directory().File("source.geojson"));
    std::ofstream(store_.Directory().Path() / "source.geojson")
        << R"({"type": "FeatureCollection", "features": [
      {"type": "Feature", "properties": {"name": "one", "size": 1.5, "count": 7},
       "geometry": {"type": "Polygon", "coordinates": [[[0, 0], [4, 0], [4, 4], [0, 0]]]}},
      {"type": "Feature", "properties": {"name": null, "size": 2, "count": 8589934592},
       "geometry": {"type": "Polygon", "coordinates": [[[10, 10], [14, 10], [14, 14], [10, 10]]]}}]})";
  }

  // The name of each row's geometry, by way of its text.
  static std::string ShapeTexts(Connection* connection, FdoString* className, FdoString* property) {
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection, className)->Execute();
    std::string texts;
    while (reader->ReadNext()) {
      FdoPtr<FdoByteArray> bytes = reader->GetGeometry(property);
      FdoPtr<FdoIGeometry> geometry = factory->CreateGeometryFromFgf(bytes);
      texts += fdo_sdk::Utf8FromWide(geometry->GetText()) + ";";
    }
    return texts;
  }

  std::string source_;
};

constexpr char kTwoTriangles[] = "POLYGON ((0 0, 4 0, 4 4, 0 0));POLYGON ((10 10, 14 10, 14 14, 10 10));";

TEST_F(GdalWrites, APlainFileIsAStore) {
  Output(QUILLON_OGR2OGR, {"-f", "SQLite", store_.Utf8File(), source_, "-nln", "parcels"});
  FdoPtr<Connection> connection = store_.Open();
  StoreClassPtr const parcels = connection->Schema().Class(L"parcels");
  EXPECT_EQ(parcels->RowIdColumn()->name, L"ogc_fid");
  EXPECT_EQ(parcels->Column(L"name")->type, FdoDataType_String);
  EXPECT_EQ(parcels->Column(L"size")->type, FdoDataType_Double);
  EXPECT_EQ(parcels->Column(L"count")->type, FdoDataType_Int64);
  StoreColumn const& geometry = parcels->columns[static_cast<std::size_t>(parcels->geometry)];
  EXPECT_EQ(geometry.spatialContext, L"EPSG:4326");
  EXPECT_EQ(geometry.geometricTypes, FdoGeometricType_Surface);
  EXPECT_EQ(ShapeTexts(connection, L"parcels", geometry.name.c_str()), kTwoTriangles);
  FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection, L"parcels", L"count > 8000000000")->Execute();
  EXPECT_EQ(Texts(reader, L"name"), L"NULL");
}

TEST_F(GdalWrites, WktIsReadToo) {
  Output(QUILLON_OGR2OGR,
         {"-f", "SQLite", store_.Utf8File(), source_, "-nln", "parcels", "-lco", "FORMAT=WKT"});
  FdoPtr<Connection> connection = store_.Open();
  StoreClassPtr const parcels = connection->Schema().Class(L"parcels");
  StoreColumn const& geometry = parcels->columns[static_cast<std::size_t>(parcels->geometry)];
  EXPECT_EQ(geometry.format, GeometryFormat::kWkt);
  EXPECT_EQ(ShapeTexts(connection, L"parcels", geometry.name.c_str()), kTwoTriangles);
}

TEST_F(GdalWrites, BothAppendToOneTable) {
  WriteShapes(L"UseFdoMetadata=TRUE;GeometryFormat=WKB");
  Output(QUILLON_OGR2OGR, {"-append", store_.Utf8File(), source_, "-nln", "Shapes"});
  FdoPtr<Connection> connection = store_.Open();
  FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection, L"Shapes")->Execute();
  EXPECT_EQ(Numbers(reader, L"Id"), "1,2,3,4,5,6,7,8,9,10");
  reader->Close();
  std::string const all = ShapeTexts(connection, L"Shapes", L"Shape");
  EXPECT_NE(all.find(kTwoTriangles), std::string::npos) << all;
  // A new layer beside it, as well.
  Output(QUILLON_OGR2OGR, {"-update", store_.Utf8File(), source_, "-nln", "more"});
  EXPECT_EQ(connection->Schema().Class(L"more")->columns.size(), 5u);
}

}  // namespace
}  // namespace fdo_sqlite
