// A row of a GDAL source costs no allocation in this library. What GDAL itself allocates with operator new is
// measured in a loop over the same file that calls nothing else.
#include <fdo/database_ogr.h>
#include <fdo/row.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include "ogr_backend/gdal_binding.h"
#include "ogr_backend/ogr_test_files.h"
#include "port/live_allocations.h"

namespace fdo {
namespace {

using namespace internal;

// Features are fetched in groups of 16 at most, so a multiple of it takes as many of them wherever it begins.
constexpr int kWarmRows = 160;
constexpr int kCountedRows = 1024;
constexpr int kRows = kWarmRows + kCountedRows + 16;

// next() reads a row, and everything in it. Gives: how often that allocates once it is warm.
template <class Next>
long long AllocationsOf(Next next) {
  for (int i = 0; i < kWarmRows; ++i) next();
  long long const before = fdo::port::AllocationsSoFar();
  for (int i = 0; i < kCountedRows; ++i) next();
  return fdo::port::AllocationsSoFar() - before;
}

long long OfGdal(std::wstring const& path) {
  GdalApi const& gdal = *Gdal();
  GdalDatasetH const dataset = gdal.GDALOpenEx(
      ToUtf8(path.c_str()).c_str(), kGdalOpenVector | kGdalOpenReadOnly, nullptr, nullptr, nullptr);
  OgrLayerH const layer = gdal.GDALDatasetGetLayer(dataset, 0);
  unsigned char wkb[256];
  long long const count = AllocationsOf([&] {
    OgrFeatureH const feature = gdal.OGR_L_GetNextFeature(layer);
    ASSERT_NE(feature, nullptr);
    OgrGeometryH const geometry = gdal.OGR_F_GetGeometryRef(feature);
    ASSERT_LE(gdal.OGR_G_WkbSize(geometry), static_cast<int>(sizeof(wkb)));
    gdal.OGR_G_ExportToIsoWkb(geometry, kWkbLittleEndian, wkb);
    gdal.OGR_F_Destroy(feature);
  });
  gdal.GDALClose(dataset);
  return count;
}

long long OfTable(std::wstring const& path) {
  DatabaseOgr database;
  EXPECT_TRUE(database.Connect(path.c_str(), nullptr, nullptr, /*readOnly=*/true, /*loadSchema=*/true));
  Table& table = database[0];
  int const columns = table.Def()->ColumnCount();
  table.Query();
  return AllocationsOf([&] {
    Row const* const row = table.Next();
    ASSERT_NE(row, nullptr);
    for (int i = 0; i < columns; ++i) ASSERT_TRUE((*row)[i].IsValid()) << "column " << i;
  });
}

class OgrScanAllocations : public ::testing::TestWithParam<OgrFormat> {};

TEST_P(OgrScanAllocations, ARowCostsNoneBesideThoseOfGdal) {
  ScratchDirectory scratch;
  std::vector<Town> const towns(kRows, Town{L"a name too long for a small string", 7, 5000000000, 0.5,
                                            L"2024-03-01", true, "POINT (1 2)"});
  std::wstring const path = WriteTowns(scratch, GetParam(), towns);
  long long const ofGdal = OfGdal(path);
  EXPECT_GE(ofGdal, kCountedRows) << "the counter works: GDAL makes a feature for each row";
  EXPECT_EQ(OfTable(path), ofGdal);
}

INSTANTIATE_TEST_SUITE_P(Formats, OgrScanAllocations, ::testing::ValuesIn(kOgrFormats),
                         [](auto const& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace fdo
