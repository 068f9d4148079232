#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <filesystem>

#include <gtest/gtest.h>

#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

TEST(DatabaseOgr, CreatesInsertsAndReadsBack) {
  ScratchDirectory scratch;
  DatabaseDef def;
  SetTables(def, L"s",
            {MakeTableDef(L"s", L"town",
                          L"id:Int64 shape:Geometry name:String n:Int32 big:Int64 x:Double d:DateTime")});
  for (char const* name : {"a.gpkg", "a.geojson", "a.sqlite", "a.csv", "town.shp", "a.fgb"}) {
    std::wstring const path = scratch.File(name);
    SCOPED_TRACE(name);
    {
      DatabaseOgr db;
      ASSERT_TRUE(db.Create(path.c_str(), nullptr, def)) << db.LastError();
      ASSERT_EQ(db.Count(), 1);
      Row row(db[0].Def());
      std::vector<unsigned char> const point = Fgf("POINT (1 2)");
      row[1].Reset(point.data(), static_cast<int>(point.size()), true);
      row[2].Reset(L"h\u00e9llo", true);
      row[3].Reset(7);
      row[4].Reset(1234567890123LL);
      row[5].Reset(0.1);
      row[6].Reset(L"2024-03-01T14:30:05.250", true);
      __int64 id = -5;
      ASSERT_TRUE(db[0].Insert(row, &id, true)) << db.LastError();
    }
    DatabaseOgr db;
    ASSERT_TRUE(db.Connect(path.c_str(), nullptr, nullptr, true, true)) << db.LastError();
    ASSERT_EQ(db.Count(), 1);
    db[0].Query();
    Row const* row = db[0].Next();
    ASSERT_NE(row, nullptr);
    int const name = row->Def()->IndexOf(L"name");
    EXPECT_EQ(std::wstring((*row)[name]), L"h\u00e9llo");
    EXPECT_EQ(static_cast<__int64>((*row)[name + 1]), 7);
    EXPECT_EQ(static_cast<__int64>((*row)[name + 2]), 1234567890123LL);
    EXPECT_EQ(static_cast<double>((*row)[name + 3]), 0.1);
    EXPECT_EQ(row->GeomLen(), 24);
  }
}

}  // namespace
}  // namespace fdo
