// What counts, extents and statistics ask of a provider, and how they make do without an answer.
#include <gmock/gmock.h>

#include <array>
#include <cfloat>
#include <cstring>
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
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr wchar_t kColumns[] = L"id:Int64 n:Int32 shape:Geometry";
typedef std::array<double, 4> Box;
constexpr Box kInverted = {DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX};

class TableFdoCounts : public RecordedTable {
 protected:
  TableFdoCounts() {
    Rows() = recording_provider::Rows({Id(L"id"), Data(L"n", FdoDataType_Int32), Geometry(L"shape")});
    Rows().Add({1, 30, Fgf("POINT (1 2)")});
    Rows().Add({2, 10, nullptr});
    Rows().Add({3, 20, Fgf("LINESTRING (-3 4, 5 6)")});
    Open(kColumns);
  }

  void CountIs(recording_provider::Cell const& count) {
    recorder_->answers.aggregates = recording_provider::Rows({Data(L"TheCount", FdoDataType_Int64)});
    recorder_->answers.aggregates.Add({count});
  }
  void ExtentIs(recording_provider::Cell const& count, recording_provider::Cell const& polygon) {
    recorder_->answers.aggregates =
        recording_provider::Rows({Geometry(L"Extents"), Data(L"TheCount", FdoDataType_Int64)});
    recorder_->answers.aggregates.Add({polygon, count});
  }
  Box Extent(FdoFilter* filter = nullptr) {
    Box box{};
    Parcels().GetExtent(box.data(), filter);
    return box;
  }
};

// --- GetRowCount ---------------------------------------------------------------------------------

TEST_F(TableFdoCounts, TheProviderCountsRowsOfTheBareName) {
  CountIs(42);
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), 42);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount]\n"
            "close reader\n");
  EXPECT_EQ(Parcels().GetRowCount(Filter(L"n > 1"), true), 42);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount] filter=n > 1\n"
            "close reader\n");
}

TEST_F(TableFdoCounts, WithLeaveToScanNoFilterBecomesOneThatHolds) {
  CountIs(42);
  EXPECT_EQ(Parcels().GetRowCount(nullptr, true), 42);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount] filter=1 = 1\n"
            "close reader\n");
}

TEST_F(TableFdoCounts, AnAnswerWithoutRowsIsZero) {
  recorder_->answers.aggregates = recording_provider::Rows({Data(L"TheCount", FdoDataType_Int64)});
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), 0);
}

TEST_F(TableFdoCounts, WithoutACountOfRowsIdentitiesAreCounted) {
  // A count of another type than a 64-bit integer cannot be read.
  recorder_->answers.aggregates = recording_provider::Rows({Data(L"TheCount", FdoDataType_Int32)});
  recorder_->answers.aggregates.Add({42});
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), -1);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount]\n"
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count(id) AS TheCount]\n");
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

TEST_F(TableFdoCounts, TheSecondAttemptMayAnswer) {
  CountIs(42);
  recorder_->ThrowAt(1);
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), 42);
  EXPECT_TRUE(recorder_->Threw());
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count(id) AS TheCount]\n"
            "close reader\n");
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

TEST_F(TableFdoCounts, WithoutIdentityThereIsOneAttempt) {
  Open(L"n:Int32 shape:Geometry");
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), -1);
  EXPECT_EQ(Log(), "make 47\naggregate 47 class=parcels properties=[Count() AS TheCount]\n");
  EXPECT_EQ(Parcels().GetRowCount(nullptr, true), 3);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount] filter=1 = 1\n"
            "make 0\n"
            "select 0 class=parcels filter=1 = 1\n"
            "close reader\n");
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

TEST_F(TableFdoCounts, ScanningTakesTheFilterAndAPlainSelect) {
  EXPECT_EQ(Parcels().GetRowCount(Filter(L"n > 1"), true), 3);
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count() AS TheCount] filter=n > 1\n"
            "make 47\n"
            "aggregate 47 class=parcels properties=[Count(id) AS TheCount] filter=n > 1\n"
            "make 0\n"
            "select 0 class=parcels filter=n > 1\n"
            "close reader\n");
}

TEST_F(TableFdoCounts, CountingLeavesTheRunningQueryAlone) {
  CountIs(3);
  Parcels().Query();
  ASSERT_NE(Parcels().Next(), nullptr);
  Parcels().GetRowCount(nullptr, true);
  ASSERT_NE(Parcels().Next(), nullptr);
  EXPECT_EQ(Parcels().At().ID(), 2);
}

TEST_F(TableFdoCounts, NullReadersAreNoAnswer) {
  recorder_->answers.nullResults = {0, 47};
  EXPECT_EQ(Parcels().GetRowCount(nullptr, false), -1);
  EXPECT_THAT(lines_.Lines(), IsEmpty());
  EXPECT_EQ(Parcels().GetRowCount(nullptr, true), -1);
  EXPECT_THAT(lines_.Lines(), ElementsAre(L"The provider gives no reader of the rows."));
}

// --- GetExtent -----------------------------------------------------------------------------------

TEST_F(TableFdoCounts, TheProviderGivesTheExtentAsAPolygon) {
  ExtentIs(3, Fgf("POLYGON ((-1 -2, 30 -2, 30 40, -1 40, -1 -2))"));
  EXPECT_EQ(Extent(Filter(L"n > 1")), (Box{-1, -2, 30, 40}));
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[SpatialExtents(shape) AS Extents,Count() AS TheCount] "
            "filter=n > 1\n"
            "close reader\n");
}

TEST_F(TableFdoCounts, AnExtentOfNoRowsIsInverted) {
  ExtentIs(0, Fgf("POLYGON ((-1 -2, 30 -2, 30 40, -1 40, -1 -2))"));
  EXPECT_EQ(Extent(), kInverted);
  EXPECT_EQ(Log().find("select"), std::string::npos) << "a count of 0 is an answer";
}

TEST_F(TableFdoCounts, WithoutAnAnswerTheGeometriesAreRead) {
  EXPECT_EQ(Extent(Filter(L"n > 1")), (Box{-3, 2, 5, 6}));
  EXPECT_EQ(Log(),
            "make 47\n"
            "aggregate 47 class=parcels properties=[SpatialExtents(shape) AS Extents,Count() AS TheCount] "
            "filter=n > 1\n"
            "make 53\n"
            "select 53 class=Land:parcels properties=[shape] filter=n > 1\n"
            "close reader\n");
  EXPECT_THAT(lines_.Lines(), IsEmpty());
}

TEST_F(TableFdoCounts, APolygonTooShortForTheExtentIsNoAnswer) {
  ExtentIs(3, Fgf("POINT (1 2)"));
  EXPECT_EQ(Extent(), (Box{-3, 2, 5, 6}));
}

TEST_F(TableFdoCounts, AGeometryNameThatDoesNotParseIsScannedFor) {
  Open(L"id:Int64 main,shape:Geometry");
  Rows() = recording_provider::Rows({Geometry(L"main,shape")});
  Rows().Add({Fgf("POINT (1 2)")});
  EXPECT_EQ(Extent(), (Box{1, 2, 1, 2}));
}

TEST_F(TableFdoCounts, WithoutGeometryTheExtentIsInvertedAndNothingIsAsked) {
  Open(L"id:Int64 n:Int32");
  EXPECT_EQ(Extent(), kInverted);
  EXPECT_EQ(Log(), "");
}

// --- IsEmpty and the statistics ------------------------------------------------------------------

TEST_F(TableFdoCounts, IsEmptyReadsOneIdentity) {
  EXPECT_FALSE(Parcels().IsEmpty(Filter(L"n > 1")));
  EXPECT_EQ(Log(),
            "make 53\n"
            "select 53 class=Land:parcels properties=[id] filter=n > 1\n"
            "close reader\n");
  Rows() = recording_provider::Rows({Id(L"id")});
  EXPECT_TRUE(Parcels().IsEmpty(nullptr));
  EXPECT_EQ(Log(), "select 53 class=Land:parcels properties=[id]\nclose reader\n");
}

TEST_F(TableFdoCounts, IsEmptyLiftsTheRestriction) {
  int const column = 1;
  Parcels().SetDesiredFields(&column, 1);
  Parcels().IsEmpty(nullptr);
  Log();
  Parcels().Query();
  EXPECT_EQ(Log(), "select 53 class=Land:parcels properties=[id,n,shape]\n");
}

TEST_F(TableFdoCounts, WithoutIdentityIsEmptyReadsARow) {
  Open(L"n:Int32");
  EXPECT_FALSE(Parcels().IsEmpty(nullptr));
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[n]\nclose reader\n");
}

TEST_F(TableFdoCounts, StatisticsReadOneColumn) {
  Value min;
  Value max;
  Parcels().GetMinMax(min, max, L"n", nullptr);
  EXPECT_EQ(Log(), "make 53\nselect 53 class=Land:parcels properties=[n]\nclose reader\n");
  EXPECT_EQ(static_cast<__int64>(min), 10);
  EXPECT_EQ(static_cast<__int64>(max), 30);

  double variance = 0;
  double mean = 0;
  Parcels().GetStats(variance, mean, L"n", Filter(L"n > 1"));
  EXPECT_EQ(Log(), "select 53 class=Land:parcels properties=[n] filter=n > 1\nclose reader\n");
  EXPECT_EQ(mean, 20);
  EXPECT_EQ(variance, 100);

  Value median;
  Parcels().GetMedian(median, L"n", nullptr);
  EXPECT_EQ(static_cast<__int64>(median), 20);
  std::set<Value> values;
  Parcels().GetDistinctValues(values, L"n", false, nullptr);
  EXPECT_EQ(values.size(), 3u);
}

}  // namespace
}  // namespace fdo
