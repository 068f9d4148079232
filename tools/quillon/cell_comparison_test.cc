#include "tools/quillon/cell_comparison.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "testing/fgf_builder.h"

namespace fdo::tool {
namespace {

Change Compare(Value const& source, ColumnDef::DataType type, Value const& target) {
  Change const change = CompareCells(source, type, target).change;
  bool const sameHash = HashCell(source, type) == HashCell(target, type);
  EXPECT_EQ(change == Change::kNone, sameHash) << "the hashes see it differently: " << InfoOf(change).name;
  return change;
}

TEST(CellComparison, NumbersMayComeBackInAnotherKind) {
  EXPECT_EQ(Compare(Value(12), ColumnDef::kInt32, Value(12.0)), Change::kNone);
  EXPECT_EQ(Compare(Value(12), ColumnDef::kInt32, Value(L"12")), Change::kNone);
  EXPECT_EQ(Compare(Value(0.1), ColumnDef::kDouble, Value(L"0.1")), Change::kNone);
  EXPECT_EQ(Compare(Value(true), ColumnDef::kBoolean, Value(1)), Change::kNone);
  EXPECT_EQ(Compare(Value(true), ColumnDef::kBoolean, Value(L"true")), Change::kNone);
  EXPECT_EQ(Compare(Value(std::nan("")), ColumnDef::kDouble, Value(std::nan(""))), Change::kNone);
}

TEST(CellComparison, WhatHappensToNumbers) {
  long long const big = 3000000000LL;
  EXPECT_EQ(Compare(Value(big), ColumnDef::kInt64, Value(2147483647)), Change::kIntegerCut);
  EXPECT_EQ(Compare(Value(-big), ColumnDef::kInt64, Value(-2147483647 - 1)), Change::kIntegerCut);
  EXPECT_EQ(Compare(Value(big), ColumnDef::kInt64, Value(17)), Change::kNumberChanged);
  EXPECT_EQ(Compare(Value(1.0 / 3), ColumnDef::kDouble, Value(0.333333333)), Change::kNumberRounded);
  EXPECT_EQ(Compare(Value(2.5), ColumnDef::kDouble, Value(2)), Change::kNumberRounded);
  EXPECT_EQ(Compare(Value(2.5), ColumnDef::kDouble, Value(25.0)), Change::kNumberChanged);
  EXPECT_EQ(Compare(Value(5), ColumnDef::kInt32, Value(L"five")), Change::kNumberChanged);
  EXPECT_NEAR(CompareCells(Value(1000.0), ColumnDef::kDouble, Value(1000.0001)).deviation, 1e-4, 1e-9);
  // The least difference that 64 bits tell and a double does not.
  EXPECT_EQ(Compare(Value(9007199254740993LL), ColumnDef::kInt64, Value(9007199254740992LL)),
            Change::kNumberRounded);
}

TEST(CellComparison, DifferencesThatADoubleDoesNotTell) {
  long long const greatest = 9223372036854775807LL;
  auto const deviation = [](Value const& source, Value const& target) {
    return CompareCells(source, ColumnDef::kInt64, target).deviation;
  };
  EXPECT_EQ(deviation(Value(9007199254740993LL), Value(9007199254740992LL)), 1);
  EXPECT_EQ(deviation(Value(9007199254740992LL), Value(L"9007199254740995")), 3);
  EXPECT_EQ(deviation(Value(greatest), Value(9223372036854775808.0)), 1);
  EXPECT_EQ(Compare(Value(greatest), ColumnDef::kInt64, Value(9223372036854775808.0)),
            Change::kNumberRounded);
  EXPECT_EQ(deviation(Value(9223372036854775808.0), Value(greatest - 9)), 10);
  EXPECT_EQ(deviation(Value(-greatest), Value(-greatest - 1)), 1);
}

TEST(CellComparison, WhatHappensToNothing) {
  EXPECT_EQ(Compare(Value(), ColumnDef::kDouble, Value()), Change::kNone);
  EXPECT_EQ(Compare(Value(), ColumnDef::kDouble, Value(0.0)), Change::kNullAsZero);
  EXPECT_EQ(Compare(Value(), ColumnDef::kString, Value(L"")), Change::kNullAsEmptyText);
  EXPECT_EQ(Compare(Value(), ColumnDef::kDouble, Value(7)), Change::kNullAsValue);
  EXPECT_EQ(Compare(Value(L""), ColumnDef::kString, Value()), Change::kEmptyTextAsNull);
  EXPECT_EQ(Compare(Value(0), ColumnDef::kInt32, Value()), Change::kLost);
}

TEST(CellComparison, WhatHappensToTexts) {
  EXPECT_EQ(Compare(Value(L"abc"), ColumnDef::kString, Value(L"abc")), Change::kNone);
  EXPECT_EQ(Compare(Value(L"abc"), ColumnDef::kString, Value(L"ab")), Change::kTextCut);
  EXPECT_EQ(Compare(Value(L"abc "), ColumnDef::kString, Value(L"abc")), Change::kTextCut);
  EXPECT_EQ(Compare(Value(L"abc"), ColumnDef::kString, Value(L"abd")), Change::kTextChanged);
  EXPECT_EQ(Compare(Value(L"12"), ColumnDef::kString, Value(12)), Change::kNone);
  EXPECT_EQ(Compare(Value(L"012"), ColumnDef::kString, Value(12)), Change::kTextChanged);
}

TEST(CellComparison, WhatHappensToDates) {
  struct {
    wchar_t const *source, *target;
    Change change;
  } const cases[] = {
      {L"2024-03-01T14:30:05.000", L"2024-03-01T14:30:05.000", Change::kNone},
      {L"2024-03-01T14:30:05.000", L"2024/03/01 14:30:05", Change::kNone},
      {L"2024-03-01T00:00:00.000", L"2024-03-01", Change::kNone},
      {L"2024-03-01T14:30:05.000", L"2024-03-01T00:00:00.000", Change::kTimeDropped},
      {L"2024-03-01T14:30:05.250", L"2024-03-01T14:30:05.000", Change::kFractionDropped},
      {L"2024-03-01T14:30:05.000", L"2024-03-02T14:30:05.000", Change::kDateTimeChanged},
      {L"14:30:05.000", L"14:30:05", Change::kNone},
      {L"soon", L"so", Change::kTextCut},
  };
  for (auto const& [source, target, change] : cases) {
    EXPECT_EQ(Compare(Value(source), ColumnDef::kDateTime, Value(target)), change) << InfoOf(change).name;
  }
}

Value Geometry(char const* text) {
  auto const fgf = Fgf(text);
  return Value(fgf.data(), static_cast<int>(fgf.size()));
}

TEST(CellComparison, WhatHappensToGeometries) {
  struct {
    char const *source, *target;
    Change change;
  } const cases[] = {
      {"POINT (1 2)", "POINT (1 2)", Change::kNone},
      {"POINT (1 2)", "MULTIPOINT ((1 2))", Change::kNone},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0))", "POLYGON ((0 0, 4 4, 4 0, 0 0))", Change::kNone},
      {"POLYGON ((0 0, 4 0, 4 4, 0 0))", "MULTIPOLYGON (((4 0, 4 4, 0 0, 4 0)))", Change::kNone},
      {"MULTIPOINT ((1 2), (3 4))", "MULTIPOINT ((3 4), (1 2))", Change::kNone},
      {"LINESTRING (0 0, 1 1)", "LINESTRING (1 1, 0 0)", Change::kGeometryChanged},
      {"POINT (1 2)", "POINT (1.00000001 2)", Change::kCoordinatesRounded},
      {"POINT (1 2)", "POINT (1.1 2)", Change::kGeometryChanged},
      {"POINT (1 2)", "LINESTRING (1 2)", Change::kGeometryChanged},
      {"POINT Z (1 2 3)", "POINT (1 2)", Change::kZDropped},
      {"POINT M (1 2 3)", "POINT (1 2)", Change::kMDropped},
      {"POINT ZM (1 2 3 4)", "POINT Z (1 2 3)", Change::kMDropped},
      {"POINT ZM (1 2 3 4)", "POINT (1 2)", Change::kZAndMDropped},
      {"POINT (1 2)", "POINT Z (1 2 0)", Change::kZAdded},
      {"POINT (1 2)", "POINT Z (1 2 5)", Change::kGeometryChanged},
      {"POLYGON ((0 0, 9 0, 9 9, 0 0), (1 1, 2 1, 2 2, 1 1))", "POLYGON ((0 0, 9 0, 9 9, 0 0))",
       Change::kGeometryChanged},
  };
  for (auto const& [source, target, change] : cases) {
    EXPECT_EQ(Compare(Geometry(source), ColumnDef::kGeometry, Geometry(target)), change)
        << source << " " << target;
  }
  EXPECT_EQ(Compare(Geometry("POINT (1 2)"), ColumnDef::kGeometry, Value()), Change::kLost);
}

}  // namespace
}  // namespace fdo::tool
