// The claims about counts, extents and statistics: each equals a plain computation over the rows that a
// scan gives.
#include <fdo/text_conversion.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <set>

#include "testing/table_contract.h"

namespace fdo {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// Statistics are asked for with each of these.
struct Condition {
  wchar_t const* filter;  // null: none
  bool (*accepts)(ScannedRow const&);
};
Condition const kConditions[] = {
    {nullptr, [](ScannedRow const&) { return true; }},
    {L"n >= 10", [](ScannedRow const& row) { return row.n >= 10; }},
    {L"n < -8", [](ScannedRow const& row) { return row.n < -8; }},
    {L"n = 1", [](ScannedRow const& row) { return row.n == 1; }},
    {L"n > 4711", [](ScannedRow const&) { return false; }},
};

// A column of numbers as a scan shows it.
struct NumberColumn {
  wchar_t const* name;
  bool integers;
  std::optional<double> (*of)(ScannedRow const&);
};
NumberColumn const kNumberColumns[] = {
    {L"n", true, [](ScannedRow const& row) { return std::optional<double>(static_cast<double>(row.n)); }},
    {L"x", false, [](ScannedRow const& row) { return row.x; }},
};

std::string Described(wchar_t const* column, Condition const& condition) {
  return ToUtf8(column) + " where " + (condition.filter == nullptr ? "true" : ToUtf8(condition.filter));
}

std::vector<double> NotNull(std::vector<std::optional<double>> const& cells) {
  std::vector<double> numbers;
  for (std::optional<double> const& cell : cells) {
    if (cell) numbers.push_back(*cell);
  }
  return numbers;
}

// Calls check with each column of numbers, each condition as a filter, and the cells of the rows among
// all that the condition is true for.
template <class Check>
void ForEachColumn(std::vector<ScannedRow> const& all, Check check) {
  for (Condition const& condition : kConditions) {
    for (NumberColumn const& column : kNumberColumns) {
      SCOPED_TRACE(Described(column.name, condition));
      std::vector<std::optional<double>> cells;
      for (ScannedRow const& row : all) {
        if (condition.accepts(row)) cells.push_back(column.of(row));
      }
      FdoPtr<FdoFilter> const filter = ParsedFilter(condition.filter);
      check(column, filter, cells);
    }
  }
}

TEST_P(TableContract, GetRowCountIsTheNumberOfRowsThatAScanGives) {
  Make(RandomContractRows());
  for (Condition const& condition : kConditions) {
    auto const expected = static_cast<__int64>(AllWhere(condition.accepts).size());
    FdoPtr<FdoFilter> const filter = ParsedFilter(condition.filter);
    EXPECT_EQ(Town().GetRowCount(filter, /*allowScan=*/true), expected) << Described(L"rows", condition);
    __int64 const known = Town().GetRowCount(filter, /*allowScan=*/false);
    EXPECT_TRUE(known == expected || known == -1) << known << ' ' << Described(L"rows", condition);
  }
}

TEST_P(TableContract, CountingEndsTheRunningQueryOrNot) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  Town().Query();
  ASSERT_NE(Town().Next(), nullptr);
  EXPECT_EQ(Town().GetRowCount(nullptr, true), static_cast<__int64>(all.size()));
  auto const firstLeft = GetParam().countEndsQuery ? all.end() : all.begin() + 1;
  EXPECT_THAT(Rest(), ElementsAreArray(firstLeft, all.end()));
}

TEST_P(TableContract, IsEmptyWhenNoRowMatches) {
  Make(RandomContractRows());
  for (Condition const& condition : kConditions) {
    EXPECT_EQ(Town().IsEmpty(ParsedFilter(condition.filter)), AllWhere(condition.accepts).empty())
        << Described(L"rows", condition);
  }
}

TEST_P(TableContract, ATableWithoutRows) {
  Make({});
  EXPECT_TRUE(Town().IsEmpty(nullptr));
  EXPECT_EQ(Town().GetRowCount(nullptr, true), 0);
  EXPECT_THAT(All(), IsEmpty());
  EXPECT_EQ(Town().Query(1), nullptr);
}

TEST_P(TableContract, GetExtentIsTheUnionOfTheBoxes) {
  Make(RandomContractRows());
  for (Condition const& condition : kConditions) {
    std::vector<ScannedRow> const rows = AllWhere(condition.accepts);
    if (rows.empty()) continue;
    std::array<double, 4> expected = rows[0].box;
    for (ScannedRow const& row : rows) {
      for (std::size_t i = 0; i < 2; ++i) {
        expected[i] = std::min(expected[i], row.box[i]);
        expected[i + 2] = std::max(expected[i + 2], row.box[i + 2]);
      }
    }
    std::array<double, 4> box{};
    Town().Query();
    Town().GetExtent(box.data(), ParsedFilter(condition.filter));
    EXPECT_EQ(box, expected) << Described(L"box", condition);
    EXPECT_EQ(Town().Next() == nullptr, GetParam().extentEndsQuery);
  }
}

TEST_P(TableContract, TheExtentOfNoRowsIsInverted) {
  Make(RandomContractRows());
  std::array<double, 4> box{};
  Town().GetExtent(box.data(), ParsedFilter(L"n > 4711"));
  constexpr double kMax = std::numeric_limits<double>::max();
  EXPECT_EQ(box, (std::array<double, 4>{kMax, kMax, -kMax, -kMax}));
}

TEST_P(TableContract, StatisticsLiftTheRestrictionOfFields) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  Value min, max;
  Town().GetMinMax(min, max, L"n", nullptr);
  EXPECT_EQ(Town().Next(), nullptr) << "read to the end";
  EXPECT_THAT(All(), ElementsAreArray(all));
}

TEST_P(TableContract, GetMinMaxIsThatOfAScan) {
  Make(RandomContractRows());
  ForEachColumn(All(), [&](NumberColumn const& column, FdoFilter* filter,
                           std::vector<std::optional<double>> const& cells) {
    std::vector<double> const numbers = NotNull(cells);
    Value min(77), max(77);
    Town().GetMinMax(min, max, column.name, filter);
    // A first row that is null stays the least.
    bool const hasMin = !numbers.empty() && cells[0].has_value();
    EXPECT_EQ(min.IsNull(), !hasMin);
    if (hasMin) {
      EXPECT_EQ(static_cast<double>(min), *std::min_element(numbers.begin(), numbers.end()));
    }
    EXPECT_EQ(max.IsNull(), numbers.empty());
    if (!numbers.empty()) {
      EXPECT_EQ(static_cast<double>(max), *std::max_element(numbers.begin(), numbers.end()));
    }
  });
}

TEST_P(TableContract, GetDistinctValuesIsTheSetOfAScan) {
  Make(RandomContractRows());
  ForEachColumn(All(), [&](NumberColumn const& column, FdoFilter* filter,
                           std::vector<std::optional<double>> const& cells) {
    std::vector<double> const numbers = NotNull(cells);
    std::set<double> const expected(numbers.begin(), numbers.end());
    std::set<Value> values;
    Town().GetDistinctValues(values, column.name, /*includeNull=*/false, filter);
    std::vector<double> found;
    for (Value const& value : values) found.push_back(value);
    EXPECT_THAT(found, ElementsAreArray(expected));
    bool const hasNull = numbers.size() < cells.size();
    Town().GetDistinctValues(values, column.name, /*includeNull=*/true, filter);
    EXPECT_EQ(values.size(), expected.size() + (hasNull ? 1 : 0)) << "with null, if there is one";
  });
}

TEST_P(TableContract, GetDistinctValuesOfText) {
  Make(RandomContractRows());
  std::set<std::optional<std::wstring>> expected;
  for (ScannedRow const& row : All()) expected.insert(row.name);
  std::set<Value> values;
  Town().GetDistinctValues(values, L"name", /*includeNull=*/true, nullptr);
  Town().Query();  // which frees what the values may have borrowed
  std::set<std::optional<std::wstring>> found;
  for (Value const& value : values) {
    found.insert(value.IsNull() ? std::optional<std::wstring>()
                                : std::wstring(static_cast<wchar_t const*>(value)));
  }
  EXPECT_EQ(found, expected);
  EXPECT_GT(expected.size(), 5u);
}

TEST_P(TableContract, GetStatsIsMeanAndSampleVarianceOfAScan) {
  Make(RandomContractRows());
  ForEachColumn(All(), [&](NumberColumn const& column, FdoFilter* filter,
                           std::vector<std::optional<double>> const& cells) {
    std::vector<double> const numbers = NotNull(cells);
    auto const count = static_cast<double>(numbers.size());
    double const sum = std::accumulate(numbers.begin(), numbers.end(), 0.0);
    double const expectedMean = numbers.empty() ? 0.0 : sum / count;
    double squares = 0.0;
    for (double number : numbers) squares += (number - expectedMean) * (number - expectedMean);
    double const expectedVariance = numbers.size() < 2 ? 0.0 : squares / (count - 1);
    double variance = -1.0;
    double mean = -1.0;
    Town().GetStats(variance, mean, column.name, filter);
    EXPECT_NEAR(mean, expectedMean, 1e-12 * (1.0 + std::abs(expectedMean)));
    EXPECT_NEAR(variance, expectedVariance, 1e-12 * (1.0 + expectedVariance));
  });
}

TEST_P(TableContract, GetMedianIsTheMiddleOfASort) {
  Make(RandomContractRows());
  ForEachColumn(All(), [&](NumberColumn const& column, FdoFilter* filter,
                           std::vector<std::optional<double>> const& cells) {
    std::vector<double> numbers = NotNull(cells);
    std::sort(numbers.begin(), numbers.end());
    constexpr int kUntouched = 98765;
    Value median(kUntouched);
    Town().GetMedian(median, column.name, filter);
    if (numbers.empty()) {
      EXPECT_EQ(static_cast<__int64>(median), kUntouched);
      return;
    }
    std::size_t const middle = numbers.size() / 2;
    double const expected =
        numbers.size() % 2 == 1 ? numbers[middle] : (numbers[middle - 1] + numbers[middle]) / 2;
    EXPECT_EQ(static_cast<double>(median), expected);
    bool const isInteger = column.integers && expected == std::floor(expected);
    EXPECT_EQ(median.Type(), isInteger ? Value::kInt : Value::kDouble);
  });
}

}  // namespace
}  // namespace fdo
