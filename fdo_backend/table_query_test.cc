// What queries ask of a provider, and the cursor over what it answers.
#include <gmock/gmock.h>

#include <string>
#include <type_traits>
#include <vector>

#include "fdo_backend/recorded_table.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Id;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr wchar_t kColumns[] = L"id:Int64 name:String lanes:Int16 code:String shape:Geometry";
constexpr int const* kAllColumns = nullptr;
constexpr double kBox[] = {0, 0, 10, 5};

static_assert(!std::is_copy_constructible_v<TableFdo> && !std::is_copy_assignable_v<TableFdo>,
              "a copy would share the reader's position");

class TableFdoQuery : public RecordedTable {
 protected:
  TableFdoQuery() {
    Rows() = recording_provider::Rows({Id(L"id"), Data(L"name", FdoDataType_String),
                                       Data(L"lanes", FdoDataType_Int16), Data(L"code", FdoDataType_String),
                                       Geometry(L"shape")});
    Rows().Add({1, L"High", 4, L"H", Fgf("POINT (0 0)")});
    Rows().Add({2, L"Low", nullptr, L"L", Fgf("POINT (10 5)")});
    Rows().Add({3, L"Side", 2, nullptr, nullptr});
    Open(kColumns);
  }

  std::vector<__int64> RestIds() {
    std::vector<__int64> ids;
    while (Row const* row = Parcels().Next()) ids.push_back(row->ID());
    return ids;
  }
};

// --- Commands ------------------------------------------------------------------------------------

TEST_F(TableFdoQuery, AsksForEveryColumnByTheQualifiedName) {
  Parcels().Query();
  EXPECT_EQ(Log(),
            "make 53\n"
            "select 53 class=Land:parcels properties=[id,name,lanes,code,shape]\n");
  EXPECT_THAT(RestIds(), ElementsAre(1, 2, 3));
  EXPECT_EQ(Log(), "close reader\n");
}

TEST_F(TableFdoQuery, OneSelectCommandServesAllQueries) {
  Parcels().Query();
  Parcels().Query(Filter(L"lanes = 4"), nullptr, true);
  Log();
  Parcels().Query();
  EXPECT_EQ(Log(),
            "close reader\n"
            "select 53 class=Land:parcels properties=[id,name,lanes,code,shape]\n")
      << "without the filter of the query before";
}

TEST_F(TableFdoQuery, ByNameTheProviderGivesAllProperties) {
  Open(kColumns, Access::kByName);
  Parcels().Query();
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels\n");
  EXPECT_THAT(RestIds(), ElementsAre(1, 2, 3));
}

TEST_F(TableFdoQuery, DesiredFieldsAreAskedForInColumnOrder) {
  for (Access const access : {Access::kByPosition, Access::kByName}) {
    Open(kColumns, access);
    int const columns[] = {2, 0};
    Parcels().SetDesiredFields(columns, 2);
    Parcels().Query();
    EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[id,lanes]\n");
    Parcels().SetDesiredFields(kAllColumns, 0);
    Parcels().Query();
    EXPECT_EQ(Log(), std::string("close reader\nselect 53 class=Land:parcels") +
                         (access == Access::kByName ? "\n" : " properties=[id,name,lanes,code,shape]\n"));
  }
}

TEST_F(TableFdoQuery, ACountOfZeroLiftsTheRestriction) {
  int const column = 1;
  Parcels().SetDesiredFields(&column, 1);
  Parcels().SetDesiredFields(&column, 0);
  Parcels().Query();
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape]\n");
}

// The positions are those of the list as it was given, the properties come in column order: hence the
// rule to list columns in ascending order.
TEST_F(TableFdoQuery, ByPositionAListOutOfOrderReadsTheOtherColumn) {
  int const columns[] = {3, 1};
  Parcels().SetDesiredFields(columns, 2);
  Parcels().Query();
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[name,code]\n");
  Row const& row = *Parcels().Next();
  EXPECT_STREQ(row[1], L"H");
  EXPECT_STREQ(row[3], L"High");
}

TEST_F(TableFdoQuery, ByNameAListOutOfOrderReadsRight) {
  Open(kColumns, Access::kByName);
  int const columns[] = {3, 1};
  Parcels().SetDesiredFields(columns, 2);
  Parcels().Query();
  Row const& row = *Parcels().Next();
  EXPECT_STREQ(row[1], L"High");
  EXPECT_STREQ(row[3], L"H");
}

// --- Filters -------------------------------------------------------------------------------------

TEST_F(TableFdoQuery, ARangeExcludesItsUpperBound) {
  Parcels().QueryRange(10, 20);
  EXPECT_EQ(Log(),
            "make 53\n"
            "select 53 class=Land:parcels properties=[id,name,lanes,code,shape] "
            "filter=id >= 10 AND id < 20\n");
}

TEST_F(TableFdoQuery, ABoxAloneAndWithAFilter) {
  Parcels().Query(kBox, nullptr);
  std::string const box = "shape ENVELOPEINTERSECTS GeomFromText('POLYGON ((0 0, 10 0, 10 5, 0 5, 0 0))')";
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape] filter=" +
                       box + "\n");
  Parcels().Query(kBox, Filter(L"lanes > 2"));
  EXPECT_EQ(Log(),
            "close reader\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape] filter=" + box +
                " AND lanes > 2\n");
}

TEST_F(TableFdoQuery, ByIdIsTheFirstRowOfTheComparison) {
  Row const* const row = Parcels().Query(2);
  EXPECT_EQ(Log(),
            "make 53\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape] filter=id = 2\n");
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row, &Parcels().At());
  EXPECT_EQ(row->ID(), 1) << "the recorded provider filters nothing";
  Parcels().Query(7);
  EXPECT_EQ(
      Log(),
      "close reader\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape] filter=id = 7\n");
  recorder_->answers.selects.clear();
  EXPECT_EQ(Parcels().Query(7), nullptr);
}

TEST_F(TableFdoQuery, ByAnUnsupportedIdThereIsALineAndNoFilter) {
  for (wchar_t const* const columns : {L"id:String name:String", L"name:String"}) {
    Open(columns);
    lines_.Forget();
    Rows() = recording_provider::Rows({Id(L"id", FdoDataType_String), Data(L"name", FdoDataType_String)});
    Rows().Add({L"a", L"High"});
    EXPECT_NE(Parcels().Query(5), nullptr);
    EXPECT_EQ(Log().find("filter"), std::string::npos);
    EXPECT_THAT(lines_.Lines(), ElementsAre(L"unsupported feature ID type used"));
  }
}

TEST_F(TableFdoQuery, WhatATableLacksIsNotQueriedFor) {
  Open(L"name:String");
  EXPECT_EQ(CaughtMessage([&] { Parcels().QueryRange(1, 2); }), L"The table has no identity column.");
  EXPECT_EQ(CaughtMessage([&] { Parcels().Query(kBox, nullptr); }), L"The table has no geometry column.");
  EXPECT_EQ(Log(), "");
}

TEST_F(TableFdoQuery, WithoutAConnectionThereIsNoQuery) {
  TableFdo table(nullptr, &def_, false);
  EXPECT_EQ(CaughtMessage([&] { table.Query(); }), L"The table has no connection.");
  table.Query(nullptr, nullptr, true);
  EXPECT_EQ(table.Next(), nullptr);
  EXPECT_EQ(table.Query(1), nullptr);
  EXPECT_THAT(lines_.Lines(), ElementsAre(L"The table has no connection.", L"The table has no connection."));
}

// --- Order ---------------------------------------------------------------------------------------

TEST_F(TableFdoQuery, OrdersByOneProperty) {
  Parcels().Query(nullptr, L"name", true);
  EXPECT_EQ(Log(),
            "make 53\n"
            "select 53 class=Land:parcels properties=[id,name,lanes,code,shape] ordering=[name]\n");
  Parcels().Query(Filter(L"lanes = 4"), L"lanes", false);
  EXPECT_EQ(Log(),
            "close reader\n"
            "select 53 class=Land:parcels properties=[id,name,lanes,code,shape] filter=lanes = 4 "
            "ordering=[lanes descending]\n");
}

TEST_F(TableFdoQuery, TheOrderStaysForLaterQueries) {
  Parcels().Query(nullptr, L"name", false);
  Log();
  std::string const ordered =
      "close reader\nselect 53 class=Land:parcels properties=[id,name,lanes,code,shape] "
      "ordering=[name descending]\n";
  Parcels().Query();
  EXPECT_EQ(Log(), ordered);
  Parcels().Query(nullptr, nullptr, true);
  EXPECT_EQ(Log(), ordered);
  Parcels().Query(nullptr, L"", true);
  EXPECT_EQ(Log(), ordered);
}

TEST_F(TableFdoQuery, WithoutExtendedSelectTheOrderIsSilentlyNotApplied) {
  recorder_->answers.commands = {0, 1, 2, 3};
  Open(kColumns);
  Parcels().Query(nullptr, L"name", false);
  EXPECT_EQ(Log(), "make 0\nselect 0 class=Land:parcels properties=[id,name,lanes,code,shape]\n");
  EXPECT_THAT(RestIds(), ElementsAre(1, 2, 3));
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

// --- The cursor ----------------------------------------------------------------------------------

TEST_F(TableFdoQuery, WithoutAQueryThereIsNoRow) {
  EXPECT_EQ(Parcels().Next(), nullptr);
  Parcels().EndQuery();
  EXPECT_FALSE(Parcels().At()[1].IsValid());
  EXPECT_EQ(Log(), "");
}

TEST_F(TableFdoQuery, TheEndClosesTheReader) {
  Parcels().Query();
  Log();
  EXPECT_THAT(RestIds(), ElementsAre(1, 2, 3));
  EXPECT_EQ(Log(), "close reader\n");
  EXPECT_EQ(Parcels().Next(), nullptr);
  Parcels().EndQuery();
  EXPECT_EQ(Log(), "") << "once";
  EXPECT_FALSE(Parcels().At()[0].IsValid());
}

TEST_F(TableFdoQuery, TheDestructorClosesTheReader) {
  Parcels().Query();
  Parcels().Next();
  Log();
  table_.reset();
  EXPECT_EQ(Log(), "close reader\n");
}

TEST_F(TableFdoQuery, ANullReaderIsAQueryWithoutRows) {
  recorder_->answers.nullResults = {53};
  Parcels().Query();
  EXPECT_EQ(Parcels().Next(), nullptr);
}

// Each value is tested for null and then taken: two calls, and one for a null.
TEST_F(TableFdoQuery, ACellIsFetchedOnceWhenItIsAskedFor) {
  for (Access const access : {Access::kByPosition, Access::kByName}) {
    Open(kColumns, access);
    Parcels().Query();
    for (int const calls : {2, 1}) {
      int const before = recorder_->Calls();
      Row const& row = *Parcels().Next();
      EXPECT_EQ(recorder_->Calls() - before, 1) << "the reader moves";
      EXPECT_EQ(row[2].IsNull(), calls == 1);
      EXPECT_EQ(recorder_->Calls() - before, 1 + calls);
      EXPECT_EQ(row[2].IsNull(), calls == 1);
      EXPECT_EQ(recorder_->Calls() - before, 1 + calls) << "a null is not fetched again";
    }
  }
}

TEST_F(TableFdoQuery, DesiredFieldsAreFetchedAtOnce) {
  int const columns[] = {0, 2};
  Parcels().SetDesiredFields(columns, 2);
  Parcels().Query();
  for (int const calls : {4, 3, 4}) {
    int const before = recorder_->Calls();
    Row const& row = *Parcels().Next();
    EXPECT_EQ(recorder_->Calls() - before, 1 + calls) << "each desired field once";
    EXPECT_TRUE(row[0].IsValid());
    EXPECT_TRUE(row[2].IsValid());
    EXPECT_FALSE(row[1].IsValid()) << "outside the desired fields";
    EXPECT_FALSE(row[4].IsValid());
    EXPECT_EQ(recorder_->Calls() - before, 1 + calls) << "and the reader was not asked for those";
  }
}

TEST_F(TableFdoQuery, OutsideTheDesiredFieldsByNameTheReaderIsAsked) {
  Open(kColumns, Access::kByName);
  int const column = 0;
  Parcels().SetDesiredFields(&column, 1);
  Parcels().Query();
  Row const& row = *Parcels().Next();
  EXPECT_FALSE(row[1].IsValid());
  EXPECT_EQ(lines_.Lines().size(), 1u) << "the reader has no such property";
}

TEST_F(TableFdoQuery, OutsideTheDesiredFieldsByNameEachRowHasItsOwnCell) {
  recorder_->answers.readersHaveAllColumns = true;
  Open(kColumns, Access::kByName);
  int const column = 0;
  Parcels().SetDesiredFields(&column, 1);
  Parcels().Query();
  EXPECT_STREQ((*Parcels().Next())[1], L"High");
  EXPECT_STREQ((*Parcels().Next())[1], L"Low");
}

TEST_F(TableFdoQuery, DesiredFieldsByFlag) {
  bool const flags[] = {true, false, false, true, false};
  Parcels().SetDesiredFields(flags, 5);
  Parcels().Query();
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[id,code]\n");
}

}  // namespace
}  // namespace fdo
