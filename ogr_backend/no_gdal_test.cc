// What is left where GDAL is not installed. The program runs with QUILLON_GDAL_LIBRARY naming a file that
// is not there.
#include <fdo/database_ogr.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "ogr_backend/gdal_binding.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

TEST(WithoutGdal, NothingIsBound) {
  ASSERT_NE(std::getenv("QUILLON_GDAL_LIBRARY"), nullptr) << "run through ctest";
  EXPECT_EQ(internal::Gdal(), nullptr);
}

TEST(WithoutGdal, ConnectAndCreateAreFalseAndSayWhy) {
  ::testing::internal::CaptureStderr();
  DatabaseOgr database;
  EXPECT_FALSE(database.Connect(L"a.shp", nullptr, nullptr, true, true));
  EXPECT_EQ(std::wstring(database.LastError()), L"GDAL is not installed");
  DatabaseDef def;
  SetTables(def, L"s", {MakeTableDef(L"s", L"t", L"id:Int64 shape:Geometry")});
  EXPECT_FALSE(database.Create(L"a.shp", nullptr, def));
  EXPECT_EQ(std::wstring(database.LastError()), L"GDAL is not installed");
  EXPECT_EQ(DatabaseOgr::DriverForPath(L"a.shp"), L"");
  database.Disconnect();
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace fdo
