#include "sdk/providers/sqlite/store_schema.h"

#include <gtest/gtest.h>

#include "sdk/providers/sqlite/test_store.h"

namespace fdo_sqlite {
namespace {

TEST(StoreSchema, ReadsWhatAnotherProgramWrites) {
  TestStore store;
  store.Run(
      "CREATE TABLE geometry_columns (f_table_name VARCHAR, f_geometry_column VARCHAR, geometry_type INTEGER,"
      " coord_dimension INTEGER, srid INTEGER, geometry_format VARCHAR);"
      "CREATE TABLE spatial_ref_sys (srid INTEGER UNIQUE, auth_name TEXT, auth_srid TEXT, srtext TEXT);"
      "INSERT INTO spatial_ref_sys VALUES (4326, 'EPSG', '4326', 'GEOGCS[]');"
      "CREATE TABLE 'parcels' (\"ogc_fid\" INTEGER PRIMARY KEY AUTOINCREMENT, 'GEOMETRY' BLOB, 'name' "
      "VARCHAR(20));"
      "INSERT INTO geometry_columns VALUES ('parcels', 'GEOMETRY', 3, 2, 4326, 'WKB');");
  FdoPtr<Connection> connection = store.Open();
  StoreClassPtr const parcels = connection.p->Schema().Class(L"Default:parcels");
  ASSERT_EQ(parcels->columns.size(), 3u);
  EXPECT_EQ(parcels->RowIdColumn()->name, L"ogc_fid");
  EXPECT_EQ(parcels->geometry, 1);
  EXPECT_EQ(parcels->columns[1].geometricTypes, FdoGeometricType_Surface);
  EXPECT_EQ(parcels->columns[1].spatialContext, L"EPSG:4326");
  EXPECT_EQ(parcels->columns[2].length, 20);

  EXPECT_EQ(connection.p->Schema().FindClass(L"roads"), nullptr);
  store.Run("CREATE TABLE roads (a)");
  EXPECT_NE(connection.p->Schema().FindClass(L"roads"), nullptr);
}

}  // namespace
}  // namespace fdo_sqlite
