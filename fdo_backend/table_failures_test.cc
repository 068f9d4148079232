// Every public operation with every call of the provider failing in turn.
#include <gmock/gmock.h>

#include <cfloat>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "fdo_backend/recorded_table.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"

namespace fdo {
namespace {

using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Id;
using recording_provider::Recorder;

constexpr wchar_t kColumns[] = L"id:Int64 n:Int32 name:String shape:Geometry";
constexpr double kBox[] = {0, 0, 10, 5};

// How an operation ends when a call fails.
enum class End {
  kLine,    // one line and the operation's result for a failure
  kThrows,  // the exception reaches the caller
  kSilent,  // another way is taken without a line, and the result may be any but wrong
};

std::string RestText(Table& table) {
  std::string text;
  while (Row const* row = table.Next()) {
    text += std::to_string(row->ID()) + ((*row)[1].IsValid() ? "," : "?,");
  }
  return text;
}

std::string BoxText(double const* box) {
  if (box[0] == DBL_MAX) return "inverted";
  return std::to_string(box[0]) + " to " + std::to_string(box[2]);
}

struct Operation {
  char const* name;
  // Gives the result as text.
  std::function<std::string(TableFdo&, Row const&)> run;
  std::string whole;                 // the result when nothing fails
  std::vector<std::string> failing;  // what else it may be when a call fails
  std::vector<End> ends;
  Access access = Access::kByPosition;
  bool aggregates = true;  // the provider answers those
};

// Parts of what a scan gives when a call in the midst of it fails: the failing call may be a fetch,
// which loses one value, or a move, which gives null for that one call of Next.
std::vector<Operation> Operations() {
  std::vector<Operation> const operations = {
      {"Query()",
       [](TableFdo& table, Row const&) {
         table.Query();
         return RestText(table);
       },
       "1,2,3,",
       {"", "1,", "1,2,", "1,2,3,", "0,2,3,", "1,0,3,", "1,2,0,", "1?,2,3,", "1,2?,3,", "1,2,3?,"},
       {End::kLine, End::kThrows}},
      {"Query() by name",
       [](TableFdo& table, Row const&) {
         table.Query();
         return RestText(table);
       },
       "1,2,3,",
       {"", "1,", "1,2,", "1,2,3,", "0,2,3,", "1,0,3,", "1,2,0,", "1?,2,3,", "1,2?,3,", "1,2,3?,"},
       {End::kLine, End::kThrows},
       Access::kByName},
      {"Query(filter, order)",
       [](TableFdo& table, Row const&) {
         table.Query(Filter(L"n > 1"), L"n", false);
         return RestText(table);
       },
       "1,2,3,",
       {"", "1,", "1,2,", "1,2,3,", "0,2,3,", "1,0,3,", "1,2,0,", "1?,2,3,", "1,2?,3,", "1,2,3?,"},
       {End::kLine}},
      {"Query() with desired fields",
       [](TableFdo& table, Row const&) {
         int const columns[] = {0, 1};
         table.SetDesiredFields(columns, 2);
         table.Query();
         return RestText(table);
       },
       "1,2,3,",
       // A field that failed at once is fetched when it is asked for.
       {"", "1,", "1,2,", "1,2,3,"},
       {End::kLine, End::kThrows}},
      {"Query(id)",
       [](TableFdo& table, Row const&) {
         Row const* const row = table.Query(1);
         return std::string(row == nullptr ? "null" : "row");
       },
       "row",
       {"null"},
       {End::kLine}},
      {"QueryRange",
       [](TableFdo& table, Row const&) {
         table.QueryRange(1, 9);
         return std::string("started");
       },
       "started",
       {},
       {End::kThrows}},
      {"Query(box)",
       [](TableFdo& table, Row const&) {
         table.Query(kBox, nullptr);
         return std::string("started");
       },
       "started",
       {},
       {End::kThrows}},
      {"EndQuery",
       [](TableFdo& table, Row const&) {
         table.Query(nullptr, nullptr, true);
         table.EndQuery();
         return std::string(table.Next() == nullptr ? "ended" : "runs");
       },
       "ended",
       {"ended"},
       {End::kLine}},
      {"a query in place of a running one",
       [](TableFdo& table, Row const&) {
         table.Query(nullptr, nullptr, true);
         table.Query(nullptr, nullptr, true);
         return std::string(table.Next() == nullptr ? "empty" : "rows");
       },
       "rows",
       {"empty", "rows"},
       {End::kLine}},
      {"GetRowCount",
       [](TableFdo& table, Row const&) { return std::to_string(table.GetRowCount(nullptr, false)); },
       "42",
       {"42", "-1"},
       {End::kSilent}},
      {"GetRowCount by scan",
       [](TableFdo& table, Row const&) { return std::to_string(table.GetRowCount(Filter(L"n > 1"), true)); },
       "3",
       {"3", "-1"},
       {End::kSilent, End::kLine},
       Access::kByPosition,
       /*aggregates=*/false},
      {"GetExtent",
       [](TableFdo& table, Row const&) {
         double box[4];
         table.GetExtent(box, nullptr);
         return BoxText(box);
       },
       "-1.000000 to 30.000000",
       {"-1.000000 to 30.000000", "1.000000 to 5.000000"},
       {End::kSilent}},
      {"GetExtent by scan",
       [](TableFdo& table, Row const&) {
         double box[4];
         table.GetExtent(box, nullptr);
         return BoxText(box);
       },
       "1.000000 to 5.000000",
       // Without a geometry that could not be fetched, or those after it.
       {"1.000000 to 5.000000", "inverted", "1.000000 to 1.000000", "1.000000 to 2.000000",
        "2.000000 to 5.000000"},
       {End::kSilent, End::kLine},
       Access::kByPosition,
       /*aggregates=*/false},
      {"IsEmpty",
       [](TableFdo& table, Row const&) { return std::string(table.IsEmpty(nullptr) ? "empty" : "rows"); },
       "rows",
       {"rows", "empty"},
       {End::kLine}},
      {"GetMinMax",
       [](TableFdo& table, Row const&) {
         Value min;
         Value max;
         table.GetMinMax(min, max, L"n", nullptr);
         return std::string("done");
       },
       "done",
       {"done"},
       {End::kLine}},
      {"GetStats",
       [](TableFdo& table, Row const&) {
         double variance = 0;
         double mean = 0;
         table.GetStats(variance, mean, L"n", nullptr);
         return std::string("done");
       },
       "done",
       {"done"},
       {End::kLine}},
      {"GetMedian and GetDistinctValues",
       [](TableFdo& table, Row const&) {
         Value median;
         table.GetMedian(median, L"n", nullptr);
         std::set<Value> values;
         table.GetDistinctValues(values, L"n", true, nullptr);
         return std::string("done");
       },
       "done",
       {"done"},
       {End::kLine}},
      {"Insert",
       [](TableFdo& table, Row const& row) {
         __int64 id = 0;
         return std::string(table.Insert(row, &id, true) ? "inserted" : "not inserted");
       },
       "inserted",
       {"not inserted"},
       {End::kLine, End::kThrows}},
      {"Update",
       [](TableFdo& table, Row const& row) { return std::to_string(table.Update(row, Filter(L"n > 1"))); },
       "1",
       {"-1"},
       {End::kLine, End::kThrows}},
      {"Update by id",
       [](TableFdo& table, Row const& row) {
         return std::string(table.Update(row, std::int64_t{7}) ? "updated" : "not updated");
       },
       "updated",
       {"not updated"},
       {End::kLine, End::kThrows}},
      {"Delete",
       [](TableFdo& table, Row const&) { return std::to_string(table.Delete(Filter(L"n > 1"))); },
       "5",
       {"0"},
       {End::kLine, End::kThrows}},
      {"Delete by id",
       [](TableFdo& table, Row const&) {
         return std::string(table.Delete(std::int64_t{7}) ? "deleted" : "not deleted");
       },
       "deleted",
       {"not deleted"},
       {End::kLine, End::kThrows}},
      {"a batch of writes",
       [](TableFdo& table, Row const& row) {
         table.BeginWrite();
         std::string results;
         for (int i = 0; i < 3; ++i) results += table.Insert(row, nullptr, true) ? "i" : "-";
         for (int i = 0; i < 2; ++i) results += table.Update(row, std::int64_t{7}) ? "u" : "-";
         table.CommitWrite();
         return results;
       },
       "iiiuu",
       {"-iiuu", "i-iuu", "ii-uu", "iii-u", "iiiu-"},
       {End::kLine, End::kThrows}},
  };
  return operations;
}

class TableFdoFailures : public RecordedTable {
 protected:
  TableFdoFailures() {
    Rows() = recording_provider::Rows(
        {Id(L"id"), Data(L"n", FdoDataType_Int32), Data(L"name", FdoDataType_String), Geometry(L"shape")});
    Rows().Add({1, 30, L"High", Fgf("POINT (1 2)")});
    Rows().Add({2, 10, L"Low", Fgf("POINT (2 2)")});
    Rows().Add({3, 20, nullptr, Fgf("POINT (5 6)")});
    aggregates_ = recording_provider::Rows({Geometry(L"Extents"), Data(L"TheCount", FdoDataType_Int64)});
    aggregates_.Add({Fgf("POLYGON ((-1 -2, 30 -2, 30 40, -1 40, -1 -2))"), 42});
    recorder_->answers.inserted = recording_provider::Rows({Id(L"id")});
    recorder_->answers.inserted.Add({9});
    recorder_->answers.updated = 1;
    recorder_->answers.removed = 5;
  }

  // Nothing of a failure stays: the table reads and writes as a new one does.
  void ExpectUsable() {
    constexpr int const* kAllColumns = nullptr;
    lines_.Forget();
    Parcels().CommitWrite();
    Parcels().SetDesiredFields(kAllColumns, 0);
    Parcels().Query();
    EXPECT_EQ(RestText(Parcels()), "1,2,3,");
    Log();
    Row row(&def_);
    row[2].Reset(L"Side", /*copy=*/true);
    EXPECT_TRUE(Parcels().Insert(row, nullptr, true));
    EXPECT_NE(Log().find("name='Side'"), std::string::npos);
    EXPECT_EQ(Parcels().Update(row, nullptr), 1);
    EXPECT_NE(Log().find("values=[name='Side']"), std::string::npos);
    EXPECT_EQ(Parcels().Delete(nullptr), 5);
    EXPECT_TRUE(lines_.Lines().empty());
  }

  recording_provider::Rows aggregates_;
};

TEST_F(TableFdoFailures, EndEachOperationAsDocumented) {
  for (Operation const& operation : Operations()) {
    std::set<End> seen;
    int n = 0;
    for (bool threw = true; threw;) {
      ++n;
      SCOPED_TRACE(std::string(operation.name) + ", call " + std::to_string(n) + " fails");
      recorder_->answers.aggregates = operation.aggregates ? aggregates_ : recording_provider::Rows();
      Open(kColumns, operation.access);
      Row row(&def_);
      row[1].Reset(8);
      lines_.Forget();

      // Only the operation's own calls count.
      recorder_->ThrowAt(n);
      std::string result;
      std::wstring const thrown = CaughtMessage([&] { result = operation.run(Parcels(), row); });
      threw = recorder_->Threw();
      recorder_->ThrowAt(0);

      std::wstring const message = Recorder::MessageOfCall(n);
      if (!threw) {
        EXPECT_EQ(result, operation.whole);
        EXPECT_THAT(lines_.Lines(), ::testing::IsEmpty());
      } else if (!thrown.empty()) {
        EXPECT_EQ(thrown, message);
        EXPECT_THAT(lines_.Lines(), ::testing::IsEmpty());
        seen.insert(End::kThrows);
      } else {
        EXPECT_THAT(operation.failing, ::testing::Contains(result));
        if (lines_.Lines().empty()) {
          seen.insert(End::kSilent);
        } else {
          EXPECT_THAT(lines_.Lines(), ::testing::ElementsAre(message));
          seen.insert(End::kLine);
        }
      }
      ExpectUsable();
      Close();
      EXPECT_EQ(recorder_->LiveObjects(), 0);
    }
    EXPECT_GT(n, 1) << operation.name;
    EXPECT_THAT(seen, ::testing::UnorderedElementsAreArray(operation.ends)) << operation.name;
  }
}

TEST_F(TableFdoFailures, NextIsNullAndTheRowStaysAsItWas) {
  Open(kColumns);
  Parcels().Query();
  Row const* const row = Parcels().Next();
  EXPECT_EQ((*row)[1], Value(30));
  recorder_->ThrowAt(1);
  EXPECT_EQ(Parcels().Next(), nullptr);
  recorder_->ThrowAt(0);
  EXPECT_EQ(Parcels().At()[1], Value(30));
  ASSERT_NE(Parcels().Next(), nullptr) << "the query runs on";
  EXPECT_EQ(Parcels().At().ID(), 2);
}

TEST_F(TableFdoFailures, AQueryThatFailsIsEmpty) {
  Open(kColumns);
  recorder_->ThrowAt(1);
  EXPECT_TRUE(Parcels().IsEmpty(nullptr));
  EXPECT_TRUE(recorder_->Threw());
  recorder_->ThrowAt(0);
  EXPECT_EQ(lines_.Lines().size(), 1u);
}

TEST_F(TableFdoFailures, TheDestructorOfARunningQueryReportsAndReleases) {
  Open(kColumns);
  Parcels().Query();
  recorder_->ThrowAt(1);
  table_.reset();
  EXPECT_TRUE(recorder_->Threw());
  recorder_->ThrowAt(0);
  EXPECT_THAT(lines_.Lines(), ::testing::ElementsAre(Recorder::MessageOfCall(1)));
}

}  // namespace
}  // namespace fdo
