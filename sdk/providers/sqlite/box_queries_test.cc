// Commands whose filters have spatial conditions, on a table that is large enough for an index.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/row_commands.h"

namespace fdo_sqlite {
namespace {

// 4,000 points (i, i mod 50), i counting from 1, and one feature without a geometry.
class BoxQueries : public testing::Test {
 protected:
  BoxQueries() {
    store_.Run(
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('point', 'shape', 1, 2, NULL, 'WKT');"
        "CREATE TABLE point (id INTEGER PRIMARY KEY, n INT, shape TEXT);"
        "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 4000)"
        "  INSERT INTO point SELECT i, i % 7, 'POINT (' || i || ' ' || (i % 50) || ')' FROM c;"
        "INSERT INTO point VALUES (5000, 0, NULL)");
    connection_ = OpenQuickly(store_);
  }

  std::string Ids(FdoString* filter) {
    FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"point", filter);
    return Numbers(FdoPtr<FdoIFeatureReader>(select->Execute()), L"id");
  }

  static constexpr wchar_t kBox[] =
      L"shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((100 0, 103 0, 103 60, 100 60, 100 0))')";
  static constexpr wchar_t kTriangle[] =
      L"shape INTERSECTS GeomFromText('POLYGON ((100 0, 103 0, 103 3, 100 0))')";

  TestStore store_;
  FdoPtr<Connection> connection_;
};

TEST_F(BoxQueries, SelectWhatIsInTheBoxAndNothingElse) {
  EXPECT_EQ(Ids(kBox), "100,101,102,103");
  EXPECT_EQ(Ids(kTriangle), "100,101,102,103");
  EXPECT_EQ(Ids((std::wstring(kBox) + L" AND n = 4").c_str()), "102");
  EXPECT_EQ(Ids((std::wstring(L"n = 4 AND id > 102 AND ") + kBox).c_str()), "");
  EXPECT_EQ(Ids((std::wstring(kBox) + L" OR id = 7").c_str()), "7,100,101,102,103");
  EXPECT_EQ(Ids((std::wstring(L"NOT (id < 5000) AND NOT ") + kBox).c_str()), "");
}

TEST_F(BoxQueries, FollowWhatAnybodyChanges) {
  EXPECT_EQ(Ids(kBox), "100,101,102,103");
  store_.Run("DELETE FROM point WHERE id = 101; UPDATE point SET shape = 'POINT (101 5)' WHERE id = 3000");
  EXPECT_EQ(Ids(kBox), "100,102,103,3000");
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"point");
  GiveText(insert, L"shape", L"GeomFromText('POINT (102 2)')");
  FdoPtr<FdoIFeatureReader>(insert->Execute());
  EXPECT_EQ(Ids(kBox), "100,102,103,3000,5001");
  insert = nullptr;
  connection_->Flush();
  EXPECT_EQ(Ids(kBox), "100,102,103,3000,5001");
}

TEST_F(BoxQueries, MakeTheIndexOfAConnectionThatWrites) {
  constexpr char kIndexes[] = "SELECT count(*) FROM sqlite_schema WHERE name = 'fdo_spatial_index'";
  EXPECT_EQ(Ids(kBox), "100,101,102,103");
  EXPECT_EQ(store_.Rows(kIndexes), "0");
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"point");
  GiveText(insert, L"shape", L"GeomFromText('POINT (102 2)')");
  FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
  insert = nullptr;
  EXPECT_EQ(Ids(kBox), "100,101,102,103,5001");
  EXPECT_EQ(store_.Rows(kIndexes), "1");
  // Nothing is held after the query: another program can write.
  store_.Run("DELETE FROM point WHERE id = 101");
  EXPECT_EQ(Ids(kBox), "100,102,103,5001");
}

// Counted in pages of the file, of which a scan would read all.
TEST_F(BoxQueries, NeitherOpeningAFileNorABoxScansIt) {
  connection_->Close();
  store_.Run("ALTER TABLE point ADD COLUMN padding; UPDATE point SET padding = zeroblob(500)");
  connection_ = OpenQuickly(store_);
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"point");
  GiveText(insert, L"shape", L"GeomFromText('POINT (9000 2)')");
  FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
  insert = nullptr;
  connection_->Close();  // makes the index
  int const pages = std::stoi(store_.Rows("PRAGMA page_count"));
  ASSERT_GT(pages, 500);

  connection_ = OpenQuickly(store_);
  auto const pagesRead = [&] {
    int read = 0;
    int highest = 0;
    sqlite3_db_status(connection_.p->OpenedDatabase().Handle(), SQLITE_DBSTATUS_CACHE_MISS, &read, &highest,
                      0);
    return read;
  };
  EXPECT_LT(pagesRead(), 10);
  EXPECT_EQ(Ids(kBox), "100,101,102,103");
  EXPECT_LT(pagesRead(), 40) << "of " << pages;
  EXPECT_EQ(Ids(L"n = 99"), "");
  EXPECT_GT(pagesRead(), 400) << "a scan shows in the count";
}

TEST_F(BoxQueries, UpdateAndDeleteCountWhatIsInTheBox) {
  FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection_, FdoCommandType_Update);
  update->SetFeatureClassName(L"point");
  update->SetFilter((std::wstring(kBox) + L" AND n < 4").c_str());
  GiveText(update, L"n", L"9");
  EXPECT_EQ(update->Execute(), 2);
  EXPECT_EQ(store_.Rows("SELECT group_concat(id) FROM point WHERE n = 9"), "100,101");
  FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection_, FdoCommandType_Delete);
  remove->SetFeatureClassName(L"point");
  remove->SetFilter(kBox);
  EXPECT_EQ(remove->Execute(), 4);
  EXPECT_EQ(Ids(kBox), "");
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM point"), "3997");
}

TEST_F(BoxQueries, ExtentsAreThoseOfAllFeaturesAtThatMoment) {
  FdoPtr<FdoISelectAggregates> select =
      Make<FdoISelectAggregates>(connection_, FdoCommandType_SelectAggregates);
  select->SetFeatureClassName(L"point");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  FdoPtr<FdoExpression> extents = FdoExpression::Parse(L"SpatialExtents(shape)");
  FdoPtr<FdoExpression> count = FdoExpression::Parse(L"Count()");
  names->Add(FdoPtr<FdoIdentifier>(FdoComputedIdentifier::Create(L"Extents", extents)));
  names->Add(FdoPtr<FdoIdentifier>(FdoComputedIdentifier::Create(L"TheCount", count)));
  auto const shown = [&] {
    FdoPtr<FdoIDataReader> reader = select->Execute();
    EXPECT_TRUE(reader->ReadNext());
    std::wstring text = std::to_wstring(reader->GetInt64(L"TheCount"));
    if (reader->IsNull(L"Extents")) return text;
    FdoPtr<FdoByteArray> fgf = reader->GetGeometry(L"Extents");
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    return text + L" " + FdoPtr<FdoIGeometry>(factory->CreateGeometryFromFgf(fgf))->GetText();
  };
  EXPECT_EQ(shown(), L"4001 POLYGON ((1 0, 4000 0, 4000 49, 1 49, 1 0))");
  store_.Run("DELETE FROM point WHERE id = 4000; UPDATE point SET shape = 'POINT (7 99)' WHERE id = 1");
  EXPECT_EQ(shown(), L"4000 POLYGON ((2 0, 3999 0, 3999 99, 2 99, 2 0))");
  store_.Run("DELETE FROM point");
  EXPECT_EQ(shown(), L"0");
}

}  // namespace
}  // namespace fdo_sqlite
