// Filters mean the same on every back end: one table of claims over one set of rows in every format of GDAL's
// and in a SQLite store, and a family of random filters against the rows one by one.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/expr_eval.h>
#include <fdo/text_conversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <limits>
#include <memory>
#include <ostream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "ogr_backend/ogr_test_files.h"
#include "ogr_backend/ogr_test_formats.h"
#include "testing/captured_diagnostics.h"
#include "testing/filter_family.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using ::testing::IsEmpty;
using Numbers = std::set<int>;

// --- Claims ------------------------------------------------------------------------------------

struct Thing {
  int n;
  wchar_t const* name;
  long long big;
  double x;
  bool flag;
  wchar_t const* date;
};

// Number 11 has nothing but its number and its place.
constexpr Thing kThings[] = {
    {1, L"Alpha", 9007199254740993, 0.1, true, L"2024-03-01"},
    {2, L"alpha", 9007199254740992, 0.5, false, L"1999-12-31"},
    {3, L"beta", 5, 2.5, true, L"2000-02-29"},
    {4, L"B", -5, -2.5, false, L"2024-06-30"},
    {5, L"a_c", 100, 100, true, L"2024-03-01"},
    {6, L"a%c", 0, 0, false, L"2024-03-02"},
    {7, L"abc", 1, 1e10, true, L"2024-03-03"},
    {8, L"5", 1, 5, false, L"2024-03-04"},
    {9, L"[x]", 7, 5.5, true, L"2024-03-05"},
    {10, L"K\u00f6ln", 9, 1e15, false, L"2024-03-06"},
    {11, nullptr, 0, 0, false, nullptr},
    {12, L"K\u00d6LN", -7, -0.1, true, L"2024-03-07"},
};

struct Claim {
  wchar_t const* filter;
  Numbers n;
};

Numbers Without(Numbers const& those) {
  Numbers all;
  for (Thing const& thing : kThings) {
    if (those.count(thing.n) == 0 && thing.name != nullptr) all.insert(thing.n);
  }
  return all;
}

// GEOMETRY stands for the name of the geometry column. A negation leaves out what is unknown: number 11.
std::vector<Claim> const& Claims() {
  static std::vector<Claim> const claims = {
      // LIKE tells upper from lower case, has sets, and no escapes.
      {L"name LIKE 'A%'", {1}},
      {L"name LIKE 'a%'", {2, 5, 6, 7}},
      {L"name LIKE 'alpha'", {2}},
      {L"name LIKE 'a_c'", {5, 6, 7}},
      {L"name LIKE 'a[_]c'", {5}},
      {L"name LIKE 'a[%]c'", {6}},
      {L"name LIKE 'a\\_c'", {}},
      {L"name LIKE '[A-B]%'", {1, 4}},
      {L"name LIKE '[^A-Za-z]%'", {8, 9}},
      {L"name LIKE '[[]x]'", {9}},
      {L"name LIKE '[]x]'", {}},
      {L"name LIKE '[[]x[]]'", {9}},
      {L"name LIKE '[x'", {}},
      {L"name LIKE 'K_ln'", {10}},
      {L"name LIKE '%LN'", {12}},
      {L"name LIKE '_'", {4, 8}},
      {L"name LIKE ''", {}},
      {L"name LIKE '%'", Without({})},
      {L"NOT name LIKE 'a%'", Without({2, 5, 6, 7})},
      {L"NOT name LIKE 'A%' AND NOT name LIKE '%c'", Without({1, 5, 6, 7})},
      {L"name LIKE name", Without({9})},
      // So do equality and order, which is that of the code points.
      {L"name = 'alpha'", {2}},
      {L"name = 'ALPHA'", {}},
      {L"name <> 'alpha'", Without({2})},
      {L"NOT name = 'alpha'", Without({2})},
      {L"name IN ('ALPHA', 'b')", {}},
      {L"name IN ('alpha', 'B')", {2, 4}},
      {L"NOT name IN ('Alpha', 'beta')", Without({1, 3})},
      {L"name < 'B'", {1, 8}},
      {L"name <= 'B'", {1, 4, 8}},
      {L"name >= 'a'", {2, 3, 5, 6, 7}},
      {L"NOT name < 'a'", {2, 3, 5, 6, 7}},
      {L"'a' > name", {1, 4, 8, 9, 10, 12}},
      {L"name > 'K\u00d6LN'", {2, 3, 5, 6, 7, 9, 10}},
      {L"name = name", Without({})},
      // Text beside numbers.
      {L"big = '5'", {3}},
      {L"big = ' 5.0 '", {3}},
      {L"x < '0.3'", {1, 4, 6, 12}},
      {L"big IN ('5', '1e2')", {3, 5}},
      {L"big = '9007199254740993'", {1}},
      {L"name = 5", {8}},
      {L"name > 4", {8}},
      {L"NOT name > 4", {}},
      {L"name = x", {8}},
      // Null.
      {L"big = NULL", {}},
      {L"NOT big = NULL", {}},
      {L"big NULL", {11}},
      {L"NOT big NULL", Without({})},
      {L"big IN (5, NULL)", {3}},
      {L"NOT big IN (5, NULL)", {}},
      {L"NOT big IN (5, 100)", Without({3, 5})},
      {L"NOT (big = 5 AND name = 'beta')", Without({3})},
      {L"NOT (big = 5 OR x > 50)", Without({3, 5, 7, 10})},
      {L"n = 11 OR big = 5", {3, 11}},
      {L"n = 11 AND big = 5", {}},
      {L"NOT (n = 11 AND big = 5)", Without({})},
      {L"NOT (n = 11 OR big = 5)", Without({3})},
      {L"NOT (n < 11 AND big = 5)",
       [] {
         Numbers all = Without({3});
         all.insert(11);
         return all;
       }()},
      {L"NOT NOT big = 5", {3}},
      {L"big <> 5 AND NOT x = 0", Without({3, 6})},
      // Numbers are what they are.
      {L"big = 9007199254740993", {1}},
      {L"big = 9007199254740992.0", {2}},
      {L"big > 9007199254740992.0", {1}},
      {L"big <= 9007199254740992.0 AND big > 1000", {2}},
      {L"NOT big = 9007199254740992.0 AND big > 1000", {1}},
      {L"x = 0.1", {1}},
      {L"x IN (0.1, -0.1)", {1, 12}},
      {L"x * 10 = 1", {1}},
      {L"n = x", {}},
      {L"n < x", {5, 7, 10}},
      {L"big * 9007199254740993 > 1e20", {1, 2}},
      {L"-big = 5", {4}},
      {L"n / 5 = 2", {10, 11, 12}},
      {L"n / 0 = 1", {}},
      {L"NOT n / 0 = 1", {}},
      {L"x / 0 > 1", {}},
      {L"NOT n / big = 0 AND big < 10", {7, 8, 9, 10, 12}},
      // Flags.
      {L"flag = TRUE", {1, 3, 5, 7, 9, 12}},
      {L"flag <> TRUE", {2, 4, 6, 8, 10}},
      {L"NOT flag = TRUE", {2, 4, 6, 8, 10}},
      {L"flag = 1", {1, 3, 5, 7, 9, 12}},
      {L"flag = '0'", {2, 4, 6, 8, 10}},
      {L"flag > 0.5", {1, 3, 5, 7, 9, 12}},
      // Dates.
      {L"d < DATE '2000-01-01'", {2}},
      {L"d < '2000-01-01'", {2}},
      {L"NOT d < '2000-01-01 00:00'", Without({2})},
      {L"d > TIMESTAMP '2024-03-05 12:00:00'", {4, 10, 12}},
      {L"d NULL", {11}},
      // Places, and what is joined to them.
      {L"GEOMETRY WITHIN GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))')", {1, 2, 3}},
      {L"GEOMETRY WITHINDISTANCE GeomFromText('POINT (1 1)') 3 AND name LIKE 'a%'", {2}},
      {L"NOT GEOMETRY DISJOINT GeomFromText('POINT (3 3)') OR name = 'B'", {3, 4}},
      {L"abs(x) > 99 AND name LIKE 'a%'", {5, 7}},
      {L"abs(x) > 99 OR name = 'beta'", {3, 5, 7, 10}},
      // What has no meaning selects nothing.
      {L"n = 1 OR big = 'x'", {}},
      {L"n = 1 OR d = 'x'", {}},
      {L"n = 1 OR d = 1", {}},
      {L"n = 1 OR abs(name) = 1", {}},
      {L"n = 1 OR nowhere = 1", {}},
  };
  return claims;
}

std::wstring WithGeometryName(std::wstring filter, Table const& table) {
  std::wstring const placeholder = L"GEOMETRY ";
  for (std::size_t at; (at = filter.find(placeholder)) != std::wstring::npos;) {
    filter.replace(at, placeholder.size(), std::wstring(L"\"") + table.Def()->Geom().Name() + L"\" ");
  }
  return filter;
}

struct BackEnd {
  char const* name;
  OgrFormat const* format;  // null: a SQLite store
};

std::ostream& operator<<(std::ostream& out, BackEnd const& backEnd) { return out << backEnd.name; }

class FiltersOnEveryBackEnd : public ::testing::TestWithParam<BackEnd> {
 protected:
  void Create(wchar_t const* columns) {
    CapturedDiagnostics const ignored;  // that no registry names the provider
    path_ = scratch_.File(GetParam().format == nullptr ? "things.sqlite" : GetParam().format->fileName);
    DatabaseDef def;
    wchar_t const* const schema = GetParam().format == nullptr ? L"Default" : L"test";
    SetTables(def, schema, {MakeTableDef(schema, L"town", columns)});
    if (GetParam().format == nullptr) {
      auto store = std::make_unique<DatabaseFdo>();
      ASSERT_TRUE(DatabaseFdo::Create(path_.c_str(), nullptr));
      ASSERT_TRUE(store->Connect(path_.c_str(), nullptr, nullptr, /*readOnly=*/false, /*loadSchema=*/true));
      ASSERT_TRUE(store->SetSchema(def));
      database_ = std::move(store);
    } else {
      auto source = std::make_unique<DatabaseOgr>();
      ASSERT_TRUE(source->Create(path_.c_str(), nullptr, def)) << ToUtf8(source->LastError());
      source->KeepNullNumbers(true);
      database_ = std::move(source);
    }
    ASSERT_EQ(database_->Count(), 1);
  }

  // What has been written as a file has it.
  void Reopen() {
    if (GetParam().format == nullptr) return;
    database_ = std::make_unique<DatabaseOgr>();
    ASSERT_TRUE(database_->Connect(path_.c_str(), nullptr, nullptr, /*readOnly=*/true, /*loadSchema=*/true));
    ASSERT_EQ(database_->Count(), 1);
  }

  void WriteThings() {
    Row row(Rows().Def());
    for (Thing const& thing : kThings) {
      for (int i = 0; i < row.Def()->ColumnCount(); ++i) row[i].Reset();
      row[L"n"].Reset(thing.n);
      std::string const place = std::to_string(thing.n);
      SetGeometry(row, "POINT (" + place + " " + place + ")");
      if (thing.name != nullptr) {
        row[L"name"].Reset(thing.name, /*copy=*/true);
        row[L"big"].Reset(thing.big);
        row[L"x"].Reset(thing.x);
        row[L"flag"].Reset(thing.flag);
        row[L"d"].Reset(thing.date, /*copy=*/true);
      }
      ASSERT_TRUE(Rows().Insert(row, nullptr, /*storeMakesId=*/true));
    }
  }

  Table& Rows() { return (*database_)[0]; }
  Numbers Where(FdoFilter* filter) {
    Rows().Query(filter, nullptr, true);
    Numbers found;
    while (Row const* row = Rows().Next()) found.insert(static_cast<int>(static_cast<__int64>((*row)[L"n"])));
    return found;
  }

  ScratchDirectory scratch_;
  std::wstring path_;
  std::unique_ptr<Database> database_;
};

TEST_P(FiltersOnEveryBackEnd, MeanTheSame) {
  Create(L"id:Int64 shape:Geometry n:Int32 name:String big:Int64 x:Double flag:Boolean d:DateTime");
  if (HasFatalFailure()) return;
  WriteThings();
  Reopen();
  if (HasFatalFailure()) return;
  for (Claim const& claim : Claims()) {
    CapturedDiagnostics diagnostics;
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(WithGeometryName(claim.filter, Rows()).c_str());
    EXPECT_EQ(Where(filter), claim.n) << ToUtf8(claim.filter);
    bool const isRefused = std::wstring(claim.filter).rfind(L"n = 1 OR ", 0) == 0;
    EXPECT_EQ(diagnostics.Lines().size(), isRefused ? 1u : 0u) << ToUtf8(claim.filter);
    if (!isRefused) {
      EXPECT_EQ(Rows().GetRowCount(filter, true), static_cast<__int64>(claim.n.size()))
          << ToUtf8(claim.filter);
    }
  }
}

// A number that is none is unknown, be it kept or written as null.
TEST_P(FiltersOnEveryBackEnd, WhatIsNoNumberIsUnknown) {
  Create(L"id:Int64 shape:Geometry n:Int32 x:Double");
  if (HasFatalFailure()) return;
  Row row(Rows().Def());
  CapturedDiagnostics const ignored;  // a store may refuse it
  for (double const x : {1.0, std::numeric_limits<double>::quiet_NaN(), 2.0}) {
    for (int i = 0; i < row.Def()->ColumnCount(); ++i) row[i].Reset();
    row[L"n"].Reset(x == 1.0 ? 1 : x == 2.0 ? 2 : 3);
    row[L"x"].Reset(x);
    SetGeometry(row, "POINT (1 1)");
    Rows().Insert(row, nullptr, /*storeMakesId=*/true);
  }
  Reopen();
  if (HasFatalFailure()) return;
  std::vector<Claim> const claims = {{L"x = 1", {1}},        {L"x <> 1", {2}},      {L"NOT x = 1", {2}},
                                     {L"x > 0", {1, 2}},     {L"NOT x > 0", {}},    {L"x = x", {1, 2}},
                                     {L"x <> x", {}},        {L"NOT x < 1.5", {2}}, {L"x * 0 = 0", {1, 2}},
                                     {L"NOT x IN (1)", {2}}, {L"x + n > 0", {1, 2}}};
  for (Claim const& claim : claims) {
    EXPECT_EQ(Where(FdoPtr<FdoFilter>(FdoFilter::Parse(claim.filter))), claim.n) << ToUtf8(claim.filter);
  }
}

// --- The family ----------------------------------------------------------------------------------

// Of a date without a time of day a filter sees the day.
void ShowDays(Row& row, OgrFormat const* format) {
  if (format == nullptr || format->times || row[L"w"].IsNull()) return;
  std::wstring const text = static_cast<wchar_t const*>(row[L"w"]);
  row[L"w"].Reset(text.substr(0, text.find(L'T')).c_str(), /*copy=*/true);
}

TEST_P(FiltersOnEveryBackEnd, RandomFiltersSelectWhatTheRowsSay) {
  Create(kFamilyColumns);
  if (HasFatalFailure()) return;
  std::mt19937 random(20240303);
  {
    CapturedDiagnostics const ignored;  // what a format cannot hold is refused
    Row row(Rows().Def());
    for (int i = 0; i < 80; ++i) {
      FillFamilyRow(row, random);
      Rows().Insert(row, nullptr, /*storeMakesId=*/true);
    }
  }
  Reopen();
  if (HasFatalFailure()) return;
  Table& table = Rows();
  std::deque<Row> rows;
  table.Query();
  while (Row const* row = table.Next()) {
    for (int i = 0; i < row->Def()->ColumnCount(); ++i) ASSERT_TRUE((*row)[i].IsValid());
    ShowDays(rows.emplace_back(*row), GetParam().format);
  }
  ASSERT_GT(rows.size(), 40u);

  CapturedDiagnostics diagnostics;
  std::wstring const id = std::wstring(L"\"") + table.Def()->ID().Name() + L"\"";
  std::wstring const shape = std::wstring(L"\"") + table.Def()->Geom().Name() + L"\"";
  char const* const asked = std::getenv("QUILLON_AGREEMENT_FILTERS");
  std::uint64_t const count = asked == nullptr ? 400 : std::strtoull(asked, nullptr, 10);
  std::uint64_t some = 0;
  int failures = 0;
  for (std::uint64_t seed = 0; seed < count && failures < 5; ++seed) {
    std::wstring const text =
        FilterFamily(seed, id.c_str(), shape.c_str()).Filter(static_cast<int>(seed % 4));
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text.c_str());
    ExprEval eval(filter, table.Def(), nullptr, ExprOptions::AsInSql());
    std::set<long long> expected;
    for (Row const& row : rows) {
      if (eval.Eval(&row, nullptr)) expected.insert(row.ID());
    }
    std::set<long long> found;
    table.Query(filter, nullptr, true);
    while (Row const* row = table.Next()) found.insert(row->ID());
    EXPECT_EQ(found, expected) << "seed " << seed << ": " << ToUtf8(text.c_str());
    if (found != expected) ++failures;
    some += !expected.empty() && expected.size() < rows.size() ? 1 : 0;
  }
  EXPECT_GT(some, count / 2);
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

std::vector<BackEnd> BackEnds() {
  std::vector<BackEnd> all = {{"SqliteStore", nullptr}};
  for (OgrFormat const& format : kOgrFormats) {
    // Where null reads as empty text the rows are others.
    if (format.nullText) all.push_back({format.name, &format});
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(On, FiltersOnEveryBackEnd, ::testing::ValuesIn(BackEnds()),
                         [](::testing::TestParamInfo<BackEnd> const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
