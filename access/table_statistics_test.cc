// The statistics that every table computes by a scan.
#include <fdo/table.h>
#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "access/cell_visitor.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/memory_table.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

using Calls = std::vector<std::string>;
using Box = std::array<double, 4>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr Box kLargestBox = {DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX};

TableDef const& Things() {
  static TableDef const def = MakeTableDef(L"", L"thing", L"id:Int64 value:Double shape:Geometry");
  return def;
}
constexpr std::size_t kValue = 1, kShape = 2;

// A table whose column "value" holds these.
struct ThingTable : MemoryTable {
  explicit ThingTable(std::vector<Value> const& values) : MemoryTable(&Things()) {
    for (Value const& value : values) {
      records.push_back({Value(static_cast<int>(records.size())), value, Value()});
    }
  }
};

ThingTable WithShapes(std::vector<char const*> const& shapes) {
  ThingTable table{std::vector<Value>(shapes.size())};
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    if (shapes[i] == nullptr) continue;
    std::vector<unsigned char> const bytes = Fgf(shapes[i]);
    table.records[i][kShape].Reset(bytes.data(), static_cast<int>(bytes.size()), true);
  }
  return table;
}

void ExpectInteger(__int64 expected, Value const& value) {
  EXPECT_EQ(3, value.Type());
  EXPECT_EQ(expected, static_cast<__int64>(value));
}
void ExpectDouble(double expected, Value const& value) {
  EXPECT_EQ(4, value.Type());
  EXPECT_DOUBLE_EQ(expected, static_cast<double>(value));
}

Value Undefined() {
  Value value;
  value.Invalidate();
  return value;
}

// --- What all of them have in common.

Calls const kScan = {"SetDesiredFields 1", "Query", "SetDesiredFields all"};

struct NamedStatistic {
  char const* name;
  std::function<void(Table&, wchar_t const*)> run;
};
std::vector<NamedStatistic> const kColumnStatistics = {
    {"GetMinMax",
     [](Table& table, wchar_t const* column) {
       Value min, max;
       table.GetMinMax(min, max, column, nullptr);
     }},
    {"GetDistinctValues",
     [](Table& table, wchar_t const* column) {
       std::set<Value> values;
       table.GetDistinctValues(values, column, true, nullptr);
     }},
    {"GetStats",
     [](Table& table, wchar_t const* column) {
       double variance, mean;
       table.GetStats(variance, mean, column, nullptr);
     }},
    {"GetMedian",
     [](Table& table, wchar_t const* column) {
       Value median;
       table.GetMedian(median, column, nullptr);
     }},
};

TEST(TableStatistics, FetchOneColumnOnceARowAndDoNotEndTheQuery) {
  for (NamedStatistic const& statistic : kColumnStatistics) {
    SCOPED_TRACE(statistic.name);
    ThingTable table({Value(1), Value(), Value(3)});
    statistic.run(table, L"value");
    EXPECT_EQ(kScan, table.Calls());
    EXPECT_EQ(3, table.FetchCount());
  }
}

// A back end that has the first records at hand, and the rest by a query.
struct HalfShownTable : ThingTable {
  using ThingTable::ThingTable;

  std::size_t shown = 0;
  bool fails = false;

 protected:
  void QueryColumn(int column, FdoFilter* filter, internal::CellVisitor& visitor) override {
    for (std::size_t i = 0; i < shown; ++i) visitor.Visit(records[i][static_cast<std::size_t>(column)]);
    if (fails) throw std::runtime_error("enough");
    records.erase(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(shown));
    ThingTable::QueryColumn(column, filter, visitor);
  }
};

TEST(TableStatistics, TakeWhatABackEndShowsBeforeWhatItsQueryGives) {
  for (std::size_t const shown : {0u, 1u, 3u, 5u}) {
    std::vector<Value> const values{Value(7), Value(), Value(3.5), Value(9), Value(-1)};
    auto const table = [&] {
      HalfShownTable made(values);
      made.shown = shown;
      return made;
    };
    Value min, max, median;
    table().GetMinMax(min, max, L"value", nullptr);
    ExpectInteger(-1, min);
    ExpectInteger(9, max);
    double variance, mean;
    table().GetStats(variance, mean, L"value", nullptr);
    EXPECT_DOUBLE_EQ(4.625, mean);
    table().GetMedian(median, L"value", nullptr);
    ExpectDouble(5.25, median);
    std::set<Value> distinct;
    table().GetDistinctValues(distinct, L"value", true, nullptr);
    EXPECT_EQ(5u, distinct.size());
  }
}

TEST(TableStatistics, LiftTheRestrictionWhenShowingFails) {
  for (NamedStatistic const& statistic : kColumnStatistics) {
    HalfShownTable table({Value(1)});
    table.shown = 1;
    table.fails = true;
    EXPECT_THROW(statistic.run(table, L"value"), std::runtime_error) << statistic.name;
    EXPECT_EQ((Calls{"SetDesiredFields 1", "SetDesiredFields all"}), table.Calls());
  }
}

TEST(TableStatistics, AnUnknownColumnRunsNoQuery) {
  for (NamedStatistic const& statistic : kColumnStatistics) {
    ThingTable table({Value(1)});
    statistic.run(table, L"Value");
    EXPECT_TRUE(table.Calls().empty()) << statistic.name;
  }
  ThingTable table({Value(1)});
  Value min(1), max(2), median(3);
  std::set<Value> values{Value(4)};
  double variance = 5, mean = 6;
  table.GetMinMax(min, max, L"none", nullptr);
  table.GetMedian(median, L"none", nullptr);
  table.GetDistinctValues(values, L"none", true, nullptr);
  table.GetStats(variance, mean, L"none", nullptr);
  EXPECT_TRUE(min.IsNull() && max.IsNull()) << "reset";
  EXPECT_EQ(0.0, variance);
  EXPECT_EQ(0.0, mean);
  ExpectInteger(3, median);
  EXPECT_EQ(1u, values.size()) << "untouched";
}

TEST(TableStatistics, TheFilterIsTheQuerys) {
  ThingTable table({Value(1), Value(10), Value(100)});
  int tag = 0;
  auto* const filter = reinterpret_cast<FdoFilter*>(&tag);  // never looked into
  table.matches = [&](FdoFilter* asked, MemoryTable::Cells const& cells) {
    EXPECT_EQ(filter, asked);
    return cells[kValue] < Value(50);
  };
  Value min, max;
  table.GetMinMax(min, max, L"value", filter);
  ExpectInteger(10, max);
  EXPECT_EQ((Calls{"SetDesiredFields 1", "Query filter", "SetDesiredFields all"}), table.Calls());
}

// Whichever call it is, later queries fetch every column again.
TEST(TableStatistics, AFailureLiftsTheRestriction) {
  for (NamedStatistic const& statistic : kColumnStatistics) {
    for (int call = 1; call <= 6; ++call) {
      SCOPED_TRACE(std::string(statistic.name) + " fails at call " + std::to_string(call));
      ThingTable table({Value(1), Value(2)});
      table.FailAtCall(call, [] { throw std::runtime_error("store"); });
      EXPECT_THROW(statistic.run(table, L"value"), std::runtime_error);
      EXPECT_EQ("SetDesiredFields all", table.Calls().back());
    }
  }
}

// --- GetMinMax

TEST(TableStatistics, MinMaxOfNoRowsIsNull) {
  ThingTable table({});
  Value min(1), max(2);
  table.GetMinMax(min, max, L"value", nullptr);
  EXPECT_TRUE(min.IsNull() && max.IsNull());
}

TEST(TableStatistics, MinMaxSkipsLaterNulls) {
  ThingTable table({Value(5), Value(), Value(-2), Value(9.5), Value()});
  Value min, max;
  table.GetMinMax(min, max, L"value", nullptr);
  ExpectInteger(-2, min);
  ExpectDouble(9.5, max);
}

TEST(TableStatistics, ANullFirstRowKeepsMinNull) {
  ThingTable table({Value(), Value(5), Value(-2)});
  Value min, max;
  table.GetMinMax(min, max, L"value", nullptr);
  EXPECT_TRUE(min.IsNull());
  ExpectInteger(5, max);
}

TEST(TableStatistics, MinMaxFollowsTheOrderOverAllKinds) {
  ThingTable table({Value(L"9"), Value(10), Value(L"1")});
  Value min, max;
  table.GetMinMax(min, max, L"value", nullptr);
  EXPECT_STREQ(L"1", static_cast<wchar_t const*>(min));
  EXPECT_STREQ(L"9", static_cast<wchar_t const*>(max));
  ThingTable two({Value(L"9"), Value(10)});
  two.GetMinMax(min, max, L"value", nullptr);
  ExpectInteger(10, min);
}

// --- GetDistinctValues

TEST(TableStatistics, DistinctValuesAreOneOfEachEqual) {
  ThingTable table({Value(1), Value(1.0), Value(L"1"), Value(L"b"), Value(L"b"), Value(), Value()});
  std::set<Value> values;
  table.GetDistinctValues(values, L"value", false, nullptr);
  EXPECT_EQ(2u, values.size()) << "1 and b";
  std::set<Value> withNull;
  table.GetDistinctValues(withNull, L"value", true, nullptr);
  EXPECT_EQ(3u, withNull.size());
  EXPECT_TRUE(withNull.begin()->IsNull());
  ThingTable flags({Value(1), Value(true), Value(false), Value(0.0)});
  std::set<Value> numbers;
  flags.GetDistinctValues(numbers, L"value", true, nullptr);
  EXPECT_EQ(2u, numbers.size()) << "a flag is the number 0 or 1";
}

TEST(TableStatistics, DistinctValuesAreAddedAndOwned) {
  ThingTable table({Value(L"b"), Value(L"a")});
  std::set<Value> values{Value(L"a"), Value(7)};
  table.GetDistinctValues(values, L"value", true, nullptr);
  table.records.clear();
  EXPECT_EQ(3u, values.size());
  for (Value const& value : values) EXPECT_TRUE(value.Type() == 5 || value.Type() == 3);
}

TEST(TableStatistics, DistinctValuesAreThoseOfPlainInsertion) {
  std::mt19937 random(23);
  unsigned char const bytes[] = {1, 2, 3, 4};
  for (int kind = 0; kind < 5; ++kind) {
    std::vector<Value> cells;
    for (int i = 0; i < 20000; ++i) {
      auto const number = static_cast<int>(random() % 9000);
      switch (kind) {
        case 0:
          cells.emplace_back(number);
          break;
        case 1:
          cells.emplace_back(number / 8.0);
          break;
        case 2:
          cells.emplace_back(std::to_wstring(number).c_str());
          break;
        case 3:
          cells.emplace_back(bytes, number % 5);
          break;
        default:
          cells.emplace_back(number % 3 == 0);
          break;
      }
    }
    ThingTable table(cells);
    std::set<Value> values;
    table.GetDistinctValues(values, L"value", true, nullptr);
    EXPECT_EQ(std::set<Value>(cells.begin(), cells.end()), values) << "kind " << kind << ", seed 23";
  }
}

// --- GetStats

TEST(TableStatistics, StatsAreSampleVarianceAndMean) {
  unsigned char const bytes[] = {1};
  struct {
    std::vector<Value> values;
    double variance, mean;
  } const cases[] = {
      {{Value(2), Value(4), Value(4), Value(4), Value(5), Value(5), Value(7), Value(9)}, 32.0 / 7.0, 5.0},
      {{}, 0.0, 0.0},
      {{Value(), Value()}, 0.0, 0.0},
      {{Value(), Value(3.5)}, 0.0, 3.5},
      {{Value(1), Value(3.0), Value()}, 2.0, 2.0},
      {{Value(true), Value(L"2.5x"), Value(bytes, 1), Value(L"none"), Undefined()}, 1.2, 0.7},
      {{Value(1e15 + 1), Value(1e15 + 2), Value(1e15 + 3)}, 1.0, 1e15 + 2},
  };
  for (auto const& c : cases) {
    ThingTable table(c.values);
    double variance = -1, mean = -1;
    table.GetStats(variance, mean, L"value", nullptr);
    EXPECT_DOUBLE_EQ(c.variance, variance);
    EXPECT_DOUBLE_EQ(c.mean, mean);
  }
}

// --- GetMedian

Value MedianOf(std::vector<Value> const& values) {
  ThingTable table(values);
  Value median(L"untouched");
  table.GetMedian(median, L"value", nullptr);
  return median;
}

TEST(TableStatistics, MedianIsAnIntegerOnlyOfIntegers) {
  ExpectDouble(2.5, MedianOf({Value(1), Value(2), Value(3), Value(4)}));
  ExpectInteger(2, MedianOf({Value(1), Value(3)}));
  ExpectDouble(2.0, MedianOf({Value(1.0), Value(3.0)}));
  ExpectInteger(2, MedianOf({Value(3), Value(), Value(2), Value(1)}));
  ExpectDouble(1.0, MedianOf({Value(1), Value(true), Value(1)}));
  ExpectDouble(2.0, MedianOf({Value(2), Value(L"2"), Value(2)}));
  ExpectInteger(-2, MedianOf({Value(-1), Value(-3)}));
  ExpectInteger(7, MedianOf({Value(7)}));
  ExpectDouble(0.0, MedianOf({Undefined(), Value(0), Value(0)}));
}

TEST(TableStatistics, MedianOfNothingIsUntouched) {
  EXPECT_STREQ(L"untouched", static_cast<wchar_t const*>(MedianOf({})));
  EXPECT_STREQ(L"untouched", static_cast<wchar_t const*>(MedianOf({Value(), Value()})));
}

TEST(TableStatistics, MedianCountsWhatIsNoNumberAsTheLargest) {
  ExpectDouble(3.0, MedianOf({Value(kNaN), Value(1.0), Value(3.0)}));
  EXPECT_TRUE(std::isnan(static_cast<double>(MedianOf({Value(kNaN), Value(kNaN), Value(3.0)}))));
  std::vector<Value> values(100, Value(kNaN));
  for (int i = 0; i < 101; ++i) values.emplace_back(static_cast<double>(101 - i));
  ExpectDouble(101.0, MedianOf(values));
}

TEST(TableStatistics, MedianAgreesWithAFullSort) {
  std::mt19937 random(29);
  for (int n = 1; n < 200; ++n) {
    std::vector<Value> values;
    std::vector<double> sorted;
    for (int i = 0; i < n; ++i) {
      sorted.push_back(static_cast<double>(random() % 50) / 4);
      values.emplace_back(sorted.back());
    }
    std::sort(sorted.begin(), sorted.end());
    auto const k = sorted.size() / 2;
    ExpectDouble(n % 2 == 1 ? sorted[k] : (sorted[k - 1] + sorted[k]) * 0.5, MedianOf(values));
  }
}

// --- GetExtent

Box ExtentOf(Table& table) {
  Box box = {1, 2, 3, 4};
  table.GetExtent(box.data(), nullptr);
  return box;
}

TEST(TableStatistics, ExtentWithoutAGeometryColumnRunsNoQuery) {
  TableDef const def = MakeTableDef(L"", L"t", L"id:Int64");
  MemoryTable table(&def);
  EXPECT_EQ(kLargestBox, ExtentOf(table));
  EXPECT_TRUE(table.Calls().empty());
}

TEST(TableStatistics, ExtentEndsItsQuery) {
  Calls const calls = {"SetDesiredFields 2", "Query", "EndQuery", "SetDesiredFields all"};
  ThingTable table = WithShapes({"POINT (1 2)", "LINESTRING (-5 7, 3 3)"});
  EXPECT_EQ((Box{-5, 2, 3, 7}), ExtentOf(table));
  EXPECT_EQ(calls, table.Calls());
  EXPECT_EQ(2, table.FetchCount());
  ThingTable empty = WithShapes({});
  EXPECT_EQ(kLargestBox, ExtentOf(empty));
  EXPECT_EQ(calls, empty.Calls());
}

TEST(TableStatistics, ExtentSkipsWhatHasNoBox) {
  ThingTable table = WithShapes({nullptr, "POLYGON ((0 0, 4 0, 4 4, 0 0))", "MULTIPOINT EMPTY"});
  table.records.push_back({Value(9), Value(), Value(L"POINT (100 100)")});
  table.records.push_back({Value(9), Value(), Value("\x4D\0\0\0", 4)});  // no type that is known
  EXPECT_EQ((Box{0, 0, 4, 4}), ExtentOf(table));
  ThingTable nulls = WithShapes({nullptr, nullptr});
  EXPECT_EQ(kLargestBox, ExtentOf(nulls));
}

TEST(TableStatistics, ExtentThrowsForABrokenGeometryAndCleansUp) {
  ThingTable table = WithShapes({"POINT (1 2)"});
  table.records.push_back({Value(9), Value(), Value("\1\0\0\0", 4)});
  Box box = {1, 2, 3, 4};
  EXPECT_EQ(L"Invalid FGF stream!", CaughtMessage([&] { table.GetExtent(box.data(), nullptr); }));
  EXPECT_EQ((Calls{"SetDesiredFields 2", "Query", "EndQuery", "SetDesiredFields all"}), table.Calls());
  EXPECT_EQ(kLargestBox, box);
}

}  // namespace
}  // namespace fdo
