// Real files, compared cell by cell with what GDAL's C interface says of them.
#include <fdo/database_ogr.h>
#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ogr_backend/gdal_binding.h"
#include "testing/captured_diagnostics.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using internal::Gdal;
using internal::GdalApi;

struct RealFile {
  char const* name;
  char const* layer;
  int rows;
  int geometryMask;  // 1 points, 4 surfaces
  double box[4];     // minX, minY, maxX, maxY, as the layer says
  double roundedTo;  // what the layer says is not more exact than that
};

// Counts and extents as GDAL's own tools print them, to six decimals.
constexpr RealFile kRealFiles[] = {
    {"NY8_utm18.shp",
     "NY8_utm18",
     281,
     4,
     {358241.917158, 4649755.395748, 480393.111655, 4808545.206170},
     1e-6},
    {"auckland.shp", "auckland", 167, 4, {7.6, -4.3, 91.5, 99.3}, 1e-6},
    {"baltim.shp", "baltim", 211, 1, {860.0, 505.5, 987.5, 581.0}, 1e-6},
    {"boston_tracts.shp", "boston_tracts", 506, 4, {-71.523109, 42.003048, -70.638229, 42.673073}, 1e-6},
    {"columbus.shp", "columbus", 49, 4, {5.874907, 10.788630, 11.287420, 14.742450}, 1e-6},
    {"eire.shp", "eire", 26, 4, {-4.12, 5768.0, 300.82, 6119.25}, 1e-6},
    {"sids.shp", "sids", 100, 4, {-84.323853, 33.881992, -75.456978, 36.589649}, 1e-6},
    {"wheat.shp", "wheat", 500, 4, {1.255, 1.35, 64.005, 67.35}, 1e-6},
    {"world.shp", "world", 177, 4, {-180.0, -89.9, 179.99999, 83.64513}, 1e-6},
    {"NY8_bna_utm18.gpkg", "sf_bna2_utm18", 281, 4, {357628.0, 4649540.0, 480360.0, 4808320.0}, 3},
    {"world.gpkg", "world", 177, 4, {-180.0, -89.9, 179.99999, 83.64513}, 1e-6},
    {"cycle_hire.geojson", "cycle_hire", 742, 1, {-0.236770, 51.454753, -0.002275, 51.542138}, 1e-6},
    {"cycle_hire_osm.geojson", "cycle_hire_osm", 532, 1, {-0.229123, 51.459267, -0.007984, 51.546825}, 1e-6},
};

std::string PathOf(RealFile const& file) { return std::string(QUILLON_TEST_DATA) + "/" + file.name; }

class RealFiles : public ::testing::TestWithParam<RealFile> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(std::filesystem::exists(PathOf(GetParam()))) << "run scripts/fetch-test-data";
    ASSERT_TRUE(database_.Connect(ToWide(PathOf(GetParam()).c_str()).c_str(), nullptr, nullptr, true, true))
        << ToUtf8(database_.LastError());
    ASSERT_EQ(database_.Count(), 1);
  }
  DatabaseOgr database_;
};

TEST_P(RealFiles, SchemaCountAndExtent) {
  TableDef const& def = *database_[0].Def();
  EXPECT_EQ(ToUtf8(def.Name()), GetParam().layer);
  EXPECT_EQ(def.Geom().GeomTypes(), GetParam().geometryMask);
  EXPECT_EQ(database_[0].GetRowCount(nullptr, true), GetParam().rows);
  double asked[4];
  database_[0].GetExtent(asked, nullptr);
  double scanned[4];
  database_[0].Table::GetExtent(scanned, nullptr);
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(asked[i], GetParam().box[i], 1e-6) << i;
    EXPECT_NEAR(scanned[i], GetParam().box[i], GetParam().roundedTo) << i;
  }
}

// The peer reads with other calls than the library does.
TEST_P(RealFiles, EveryCellIsWhatGdalSays) {
  GdalApi const& gdal = *Gdal();
  auto const dataset =
      gdal.GDALOpenEx(PathOf(GetParam()).c_str(), internal::kGdalOpenVector, nullptr, nullptr, nullptr);
  ASSERT_NE(dataset, nullptr);
  auto const layer = gdal.GDALDatasetGetLayer(dataset, 0);
  auto const definition = gdal.OGR_L_GetLayerDefn(layer);
  int const fieldCount = gdal.OGR_FD_GetFieldCount(definition);
  ASSERT_EQ(database_[0].Def()->ColumnCount(), fieldCount + 2);
  database_[0].Query();
  int rows = 0;
  std::vector<unsigned char> wkb;
  std::vector<unsigned char> written;
  while (auto const feature = gdal.OGR_L_GetNextFeature(layer)) {
    Row const* const row = database_[0].Next();
    ASSERT_NE(row, nullptr);
    ++rows;
    EXPECT_EQ(row->ID(), gdal.OGR_F_GetFID(feature));
    for (int i = 0; i < fieldCount; ++i) {
      Value const& cell = (*row)[i + 2];
      std::string const text = gdal.OGR_F_GetFieldAsString(feature, i);
      if (gdal.OGR_F_IsFieldSetAndNotNull(feature, i) == 0) {
        EXPECT_TRUE(cell.IsNull());
      } else if (cell.Type() == Value::kDouble) {
        EXPECT_EQ(static_cast<double>(cell), gdal.OGR_F_GetFieldAsDouble(feature, i));
      } else if (cell.Type() == Value::kInt) {
        EXPECT_EQ(std::to_string(static_cast<__int64>(cell)), text);
      } else {
        EXPECT_EQ(ToUtf8(cell), text);
      }
    }
    auto const geometry = gdal.OGR_F_GetGeometryRef(feature);
    if (geometry == nullptr) {
      EXPECT_EQ(row->Geom(), nullptr);
    } else {
      wkb.resize(static_cast<std::size_t>(gdal.OGR_G_WkbSize(geometry)));
      gdal.OGR_G_ExportToIsoWkb(geometry, internal::kWkbLittleEndian, wkb.data());
      auto const length = static_cast<std::size_t>(row->GeomLen());
      written.resize(FgfToIsoWkbBound(length));
      written.resize(FgfToIsoWkb(static_cast<unsigned char const*>(row->Geom()), length, written.data()));
      EXPECT_EQ(written, wkb);
    }
    gdal.OGR_F_Destroy(feature);
  }
  EXPECT_EQ(rows, GetParam().rows);
  EXPECT_EQ(database_[0].Next(), nullptr);
  gdal.GDALClose(dataset);
}

// To a GeoPackage and back: the definition goes as it is, and so does every row.
TEST_P(RealFiles, CopiesReadBackEqual) {
  ScratchDirectory scratch;
  std::wstring const path = scratch.File("copy.gpkg");
  Table& source = database_[0];
  int const columns = source.Def()->ColumnCount();
  CapturedDiagnostics diagnostics;
  {
    DatabaseOgr target;
    ASSERT_TRUE(target.Create(path.c_str(), nullptr, *database_.Def())) << ToUtf8(target.LastError());
    ASSERT_EQ(target[0].Def()->ColumnCount(), columns);
    Row row(target[0].Def());
    source.Query();
    target[0].BeginWrite();
    while (Row const* read = source.Next()) {
      for (int i = 0; i < columns; ++i) row[i] = (*read)[i];
      ASSERT_TRUE(target[0].Insert(row, nullptr, true)) << ToUtf8(target.LastError());
    }
    target[0].CommitWrite();
  }
  DatabaseOgr copy;
  ASSERT_TRUE(copy.Connect(path.c_str(), nullptr, nullptr, true, true)) << ToUtf8(copy.LastError());
  EXPECT_EQ(copy[0].GetRowCount(nullptr, true), GetParam().rows);
  source.Query();
  copy[0].Query();
  while (Row const* read = source.Next()) {
    Row const* const copied = copy[0].Next();
    ASSERT_NE(copied, nullptr);
    for (int i = 1; i < columns; ++i) {
      Value const& cell = (*read)[i];
      // A null number is written as 0.
      bool const isNumber = (*source.Def())[i].Type() == ColumnDef::kDouble ||
                            (*source.Def())[i].Type() == ColumnDef::kInt32 ||
                            (*source.Def())[i].Type() == ColumnDef::kInt64;
      if (cell.IsNull() && isNumber) {
        EXPECT_EQ(static_cast<double>((*copied)[i]), 0.0);
      } else {
        EXPECT_TRUE(cell == (*copied)[i]) << ToUtf8((*source.Def())[i].Name());
      }
    }
  }
  EXPECT_EQ(copy[0].Next(), nullptr);
  EXPECT_TRUE(diagnostics.Lines().empty());
}

INSTANTIATE_TEST_SUITE_P(SpData, RealFiles, ::testing::ValuesIn(kRealFiles), [](auto const& info) {
  std::string name = info.param.name;
  for (char& unit : name) unit = unit == '.' ? '_' : unit;
  return name;
});

}  // namespace
}  // namespace fdo
