// Selects of values over all features, or over groups of them.
#include <gtest/gtest.h>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

class Aggregates : public testing::Test {
 protected:
  Aggregates() {
    store_.Run(
        "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
        "  coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
        "INSERT INTO geometry_columns VALUES ('town', 'shape', 1, 2, NULL, 'WKT');"
        "CREATE TABLE town (id INTEGER PRIMARY KEY, land TEXT, people INT, height DOUBLE, founded DATE, "
        "shape TEXT);"
        "INSERT INTO town VALUES (1, 'DE', 10, 1.5, '1200-01-01', 'POINT (1 2)'),"
        "  (2, 'CH', 20, 2.5, '1100-01-01', 'POINT (-3 7)'), (3, 'AT', NULL, NULL, NULL, NULL),"
        "  (4, 'DE', 30, 4.0, '1300-01-01', 'POINT (5 0)');"
        "CREATE TABLE hamlet (id INTEGER PRIMARY KEY, n INT)");
    connection_ = OpenQuickly(store_);
    select_ = Make<FdoISelectAggregates>(connection_, FdoCommandType_SelectAggregates);
    select_->SetFeatureClassName(L"town");
  }

  void Compute(FdoString* name, FdoString* expression) {
    FdoPtr<FdoExpression> parsed = FdoExpression::Parse(expression);
    FdoPtr<FdoIdentifierCollection>(select_->GetPropertyNames())
        ->Add(FdoPtr<FdoIdentifier>(FdoComputedIdentifier::Create(name, parsed)));
  }
  void Add(FdoIdentifierCollection* names, FdoString* name) {
    names->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
  }

  // The only row's values, each as its type says.
  std::wstring Row() {
    FdoPtr<FdoIDataReader> reader = select_->Execute();
    std::wstring const row = reader->ReadNext() ? Values(reader) : L"no row";
    EXPECT_FALSE(reader->ReadNext());
    return row;
  }
  std::wstring RowsOf() {
    FdoPtr<FdoIDataReader> reader = select_->Execute();
    std::wstring rows;
    while (reader->ReadNext()) rows += (rows.empty() ? L"" : L";") + Values(reader);
    return rows;
  }

  static std::wstring Values(FdoIDataReader* reader) {
    std::wstring values;
    for (FdoInt32 i = 0; i < reader->GetPropertyCount(); ++i) {
      if (i > 0) values += L"|";
      if (reader->IsNull(i)) {
        values += L"NULL";
        continue;
      }
      if (reader->GetPropertyType(i) == FdoPropertyType_GeometricProperty) {
        FdoPtr<FdoByteArray> fgf = reader->GetGeometry(i);
        FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
        values += FdoPtr<FdoIGeometry>(factory->CreateGeometryFromFgf(fgf))->GetText();
        continue;
      }
      switch (reader->GetDataType(i)) {
        case FdoDataType_Int64:
          values += std::to_wstring(reader->GetInt64(i)) + L"L";
          break;
        case FdoDataType_Int32:
          values += std::to_wstring(reader->GetInt32(i)) + L"i";
          break;
        case FdoDataType_Double:
          values += std::to_wstring(reader->GetDouble(i));
          break;
        case FdoDataType_String:
          values += reader->GetString(i);
          break;
        case FdoDataType_DateTime:
          values += std::to_wstring(reader->GetDateTime(i).year);
          break;
        default:
          values += L"?";
      }
    }
    return values;
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
  FdoPtr<FdoISelectAggregates> select_;
};

TEST_F(Aggregates, CountsAreInt64) {
  Compute(L"TheCount", L"Count()");
  EXPECT_EQ(Row(), L"4L");
  FdoPtr<FdoIDataReader> reader = select_->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"TheCount"), 4);
  EXPECT_EQ(reader->GetDataType(L"TheCount"), FdoDataType_Int64);
  EXPECT_EQ(reader->GetPropertyIndex(L"TheCount"), 0);
  Compute(L"WithPeople", L"Count(people)");
  Compute(L"Quoted", L"Count(\"people\")");
  EXPECT_EQ(Row(), L"4L|3L|3L");
  select_->SetFilter(L"people > 10");
  EXPECT_EQ(Row(), L"2L|2L|2L");
  select_->SetFilter(L"1=1");
  EXPECT_EQ(Row(), L"4L|3L|3L");
}

// SQLite looks at the pattern that is bound to a statement by preparing it anew, each time.
TEST_F(Aggregates, OfWhatIsLikeAPattern) {
  Compute(L"TheCount", L"Count()");
  for (int time = 0; time < 3; ++time) {
    select_->SetFilter(L"land LIKE 'D%'");
    EXPECT_EQ(Row(), L"2L");
    select_->SetFilter(L"land LIKE 'C%'");
    EXPECT_EQ(Row(), L"1L");
  }
}

TEST_F(Aggregates, SpatialExtentsAreARectangleFromTheLeastCorner) {
  Compute(L"Extents", L"SpatialExtents(shape)");
  Compute(L"TheCount", L"Count()");
  EXPECT_EQ(Row(), L"POLYGON ((-3 0, 5 0, 5 7, -3 7, -3 0))|4L");
  select_->SetFilter(L"id = 3");
  EXPECT_EQ(Row(), L"NULL|1L");
}

TEST_F(Aggregates, MinAndMaxHaveTheTypeOfWhatTheyAreOf) {
  Compute(L"a", L"Min(people)");
  Compute(L"b", L"Max(height)");
  Compute(L"c", L"Min(land)");
  Compute(L"d", L"Max(founded)");
  Compute(L"e", L"Max(id)");
  EXPECT_EQ(Row(), L"10i|4.000000|AT|1300|4L");
  select_->SetFilter(L"id < 3");
  EXPECT_EQ(Row(), L"10i|2.500000|CH|1200|2L");
}

TEST_F(Aggregates, SumsAveragesMediansAndDeviations) {
  Compute(L"a", L"Sum(people)");
  Compute(L"b", L"Avg(people)");
  Compute(L"c", L"Median(height)");
  Compute(L"d", L"StdDev(people)");
  EXPECT_EQ(Row(), L"60.000000|20.000000|2.500000|10.000000");
}

TEST_F(Aggregates, OfNoFeaturesThereIsARowAllTheSame) {
  select_->SetFeatureClassName(L"hamlet");
  Compute(L"a", L"Count()");
  Compute(L"b", L"Max(n)");
  EXPECT_EQ(Row(), L"0L|NULL");
  Compute(L"c", L"Avg(n)");
  EXPECT_EQ(Row(), L"0L|NULL|NULL");
}

TEST_F(Aggregates, Groups) {
  FdoPtr<FdoIdentifierCollection> grouping = select_->GetGrouping();
  Add(FdoPtr<FdoIdentifierCollection>(select_->GetPropertyNames()), L"land");
  Compute(L"n", L"Count()");
  Compute(L"s", L"Sum(people)");
  Add(grouping, L"land");
  Add(FdoPtr<FdoIdentifierCollection>(select_->GetOrdering()), L"land");
  EXPECT_EQ(RowsOf(), L"AT|1L|NULL;CH|1L|20.000000;DE|2L|40.000000");
  FdoPtr<FdoFilter> several = FdoFilter::Parse(L"Count(id) > 1");
  select_->SetGroupingFilter(several);
  EXPECT_EQ(FdoPtr<FdoFilter>(select_->GetGroupingFilter()).p, several.p);
  EXPECT_EQ(RowsOf(), L"DE|2L|40.000000");
  select_->SetGroupingFilter(nullptr);
  select_->SetOrderingOption(FdoOrderingOption_Descending);
  select_->SetFilter(L"people > 10");
  EXPECT_EQ(RowsOf(), L"DE|1L|30.000000;CH|1L|20.000000");
}

TEST_F(Aggregates, Distinct) {
  Add(FdoPtr<FdoIdentifierCollection>(select_->GetPropertyNames()), L"land");
  Add(FdoPtr<FdoIdentifierCollection>(select_->GetOrdering()), L"land");
  select_->SetDistinct(true);
  EXPECT_TRUE(select_->GetDistinct());
  EXPECT_EQ(RowsOf(), L"AT;CH;DE");
  select_->SetDistinct(false);
  EXPECT_EQ(RowsOf(), L"AT;CH;DE;DE");
}

TEST_F(Aggregates, WhatThereIsNotIsRefused) {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(L"Count() > 1");
  select_->SetGroupingFilter(filter);
  Compute(L"n", L"Count()");
  MessageThrownBy<FdoCommandException>([&] { select_->Execute(); });
  select_->SetGroupingFilter(nullptr);
  Compute(L"m", L"Max(mayor)");
  MessageThrownBy<FdoCommandException>([&] { select_->Execute(); });
}

}  // namespace
}  // namespace fdo_sqlite
