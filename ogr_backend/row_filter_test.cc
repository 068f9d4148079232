// Filters that GDAL cannot run, in every format.
#include <Fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "ogr_backend/filter_sql.h"
#include "ogr_backend/ogr_test_files.h"
#include "ogr_backend/ogr_test_formats.h"
#include "testing/captured_diagnostics.h"
#include "testing/memory_table.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"
#include "testing/tree_evaluator.h"

namespace fdo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// GEOMETRY stands for the name of the geometry column.
std::wstring WithGeometryName(std::wstring filter, Table const& table) {
  std::wstring const placeholder = L"GEOMETRY";
  for (std::size_t at; (at = filter.find(placeholder + L" ")) != std::wstring::npos;) {
    filter.replace(at, placeholder.size(), std::wstring(L"\"") + table.Def()->Geom().Name() + L"\"");
  }
  return filter;
}

class OgrRowFilter : public ::testing::TestWithParam<OgrFormat> {
 protected:
  void SetUp() override {
    path_ = WriteTowns(scratch_, GetParam());
    ASSERT_TRUE(database_.Connect(path_.c_str(), nullptr, nullptr, /*readOnly=*/true, /*loadSchema=*/true))
        << ToUtf8(database_.LastError());
    ASSERT_EQ(database_.Count(), 1);
  }

  Table& Rows() { return database_[0]; }
  FdoPtr<FdoFilter> Filter(std::wstring const& text) {
    return FdoPtr<FdoFilter>(FdoFilter::Parse(WithGeometryName(text, Rows()).c_str()));
  }
  std::set<int> Rest() {
    std::set<int> found;
    while (Row const* row = Rows().Next()) found.insert(static_cast<int>(static_cast<__int64>((*row)[L"n"])));
    return found;
  }
  std::set<int> Where(std::wstring const& text) {
    Rows().Query(Filter(text), nullptr, true);
    return Rest();
  }

  ScratchDirectory scratch_;
  std::wstring path_;
  DatabaseOgr database_;
};

struct Case {
  wchar_t const* filter;
  std::set<int> n;
};

// n is 1 at (1 1), -2 at (2 2), and so on to 5 at (5 5) and 0 at (6 6); the last has neither name nor date.
std::vector<Case> const& Cases() {
  static std::vector<Case> const cases = {
      {L"GEOMETRY INTERSECTS GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))')", {1, -2, 3, 4}},
      {L"GEOMETRY WITHIN GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))')", {1, -2, 3}},
      {L"GEOMETRY DISJOINT GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))')", {5, 0}},
      {L"NOT GEOMETRY INTERSECTS GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))')", {5, 0}},
      {L"GEOMETRY EQUALS GeomFromText('POINT (3 3)') OR n = 5", {3, 5}},
      {L"GEOMETRY ENVELOPEINTERSECTS GeomFromText('LINESTRING (1.5 0, 4.5 9)')", {-2, 3, 4}},
      {L"GEOMETRY INTERSECTS GeomFromText('POLYGON ((0 0, 4 0, 4 4, 0 4, 0 0))') AND flag = TRUE", {1, 3}},
      {L"GEOMETRY WITHINDISTANCE GeomFromText('POINT (1 1)') 1.5", {1, -2}},
      {L"GEOMETRY BEYOND GeomFromText('POINT (1 1)') 1.5", {3, 4, 5, 0}},
      {L"n = 5 AND GEOMETRY WITHINDISTANCE GeomFromText('POINT (1 1)') 100", {5}},
      {L"n / n = 1", {1, -2, 3, 4, 5}},
      {L"n / 0 = 1", {}},
      {L"NOT n / 0 = 1", {}},
      {L"mod(n, 2) = 1", {1, 3, 5}},
      {L"round(x) = 3", {3}},
      {L"abs(n) = 2 AND name = 'alpha'", {-2}},
      {L"concat(name, n) = 'Alpha1'", {1}},
      {L"if(flag, 'yes', 'no') = 'yes'", {1, 3, 5}},
      {L"lookup(n, 'other', 1, 'one', 3, 'three') = 'three'", {3}},
      {L"name LIKE '[A-Z]%'", {1, 5}},
      {L"name LIKE '[^A-Z]%'", {-2, 3, 4}},
      {L"name LIKE name", {1, -2, 3, 4, 5}},
      {L"n = NULL", {}},
      {L"NOT n = NULL", {}},
      {L"d > TIMESTAMP '2024-01-01 00:00:00'", {1, 4, 5}},
      {L"d > DATE '2024-02-01' AND d < DATE '2024-05-01'", {1, 4}},
      {L"NOT d < DATE '2024-01-01'", {1, 4, 5}},
      {L"d < '2000-01-01'", {-2}},
  };
  return cases;
}

// Where null text reads as empty text it has a value, which has a pattern.
bool SeesNullName(Case const& test, OgrFormat const& format) {
  return !format.nullText && std::wstring(test.filter) == L"name LIKE name";
}

TEST_P(OgrRowFilter, ConditionsThatGdalCannotRun) {
  CapturedDiagnostics diagnostics;
  for (Case const& test : Cases()) {
    std::set<int> expected = test.n;
    if (SeesNullName(test, GetParam())) expected.insert(0);
    EXPECT_EQ(Where(test.filter), expected) << ToUtf8(test.filter);
    FdoPtr<FdoFilter> const filter = Filter(test.filter);
    EXPECT_EQ(Rows().GetRowCount(filter, true), static_cast<__int64>(expected.size())) << ToUtf8(test.filter);
    EXPECT_EQ(Rows().IsEmpty(filter), expected.empty()) << ToUtf8(test.filter);
  }
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

TEST_P(OgrRowFilter, CountsOnlyByAScan) {
  EXPECT_EQ(Rows().GetRowCount(Filter(L"mod(n, 2) = 1"), /*allowScan=*/false), -1);
  EXPECT_EQ(Rows().GetRowCount(Filter(L"mod(n, 2) = 1"), /*allowScan=*/true), 3);
}

// A date field holds days, which are what they are; a moment is later than the beginning of its day.
TEST_P(OgrRowFilter, DatesCompareAsTheFieldHasThem) {
  if (Rows().Def()->operator[](L"d")->Type() != ColumnDef::kDateTime) GTEST_SKIP() << "no dates";
  std::set<int> const ofTheDay = GetParam().times ? std::set<int>{} : std::set<int>{1, 4};
  EXPECT_EQ(Where(L"d = DATE '2024-03-01'"), ofTheDay);
  std::set<int> const moment = GetParam().times ? std::set<int>{3} : std::set<int>{};
  EXPECT_EQ(Where(L"d = TIMESTAMP '2000-02-29 00:00:00'"), moment);
}

TEST_P(OgrRowFilter, ReadsWhatIsNotDesired) {
  int const n = ColumnOf(Rows(), L"n");
  Rows().SetDesiredFields(&n, 1);
  EXPECT_EQ(Where(L"concat(name, '') = 'alpha'"), (std::set<int>{-2}));
  EXPECT_EQ(Where(L"GEOMETRY EQUALS GeomFromText('POINT (3 3)')"), (std::set<int>{3}));
  Rows().Query(Filter(L"concat(name, '') = 'alpha'"), nullptr, true);
  Row const* const row = Rows().Next();
  ASSERT_NE(row, nullptr);
  EXPECT_FALSE((*row)[L"name"].IsValid());
  EXPECT_FALSE(row->operator[](Rows().Def()->IndexOfGeom()).IsValid());
  Rows().SetDesiredFields(static_cast<int const*>(nullptr), 0);
}

TEST_P(OgrRowFilter, ABoxAndAFilterHoldTogether) {
  double const box[] = {0, 0, 3.5, 3.5};
  Rows().Query(box, Filter(L"mod(n, 2) = 1"));
  EXPECT_EQ(Rest(), (std::set<int>{1, 3}));
  Rows().Query(box, Filter(L"GEOMETRY INTERSECTS GeomFromText('POLYGON ((2.5 2.5, 9 2.5, 9 9, 2.5 2.5))')"));
  EXPECT_EQ(Rest(), (std::set<int>{3}));
}

// The box that a filter brings is the filter's own.
TEST_P(OgrRowFilter, NarrowingEndsWithItsQuery) {
  wchar_t const* const near = L"GEOMETRY WITHINDISTANCE GeomFromText('POINT (1 1)') 0.5";
  EXPECT_EQ(Where(near), (std::set<int>{1}));
  EXPECT_EQ(Where(L"n <> 3"), (std::set<int>{1, -2, 4, 5, 0}));
  EXPECT_EQ(Where(near), (std::set<int>{1}));
  Rows().QueryRange(0, 100);
  EXPECT_EQ(Rest().size(), 6u);
  EXPECT_EQ(Where(near), (std::set<int>{1}));
  EXPECT_EQ(Rows().GetRowCount(nullptr, true), 6);
  EXPECT_EQ(Where(near), (std::set<int>{1}));
  double const box[] = {0, 0, 9, 9};
  Rows().Query(box, nullptr);
  EXPECT_EQ(Rest().size(), 6u);
}

TEST_P(OgrRowFilter, AFilterThatFailsForARowEndsTheQueryWithOneLine) {
  CapturedDiagnostics diagnostics;
  // No text here is a geometry's.
  EXPECT_THAT(Where(L"x(name) = 0"), IsEmpty());
  EXPECT_EQ(diagnostics.Lines().size(), 1u);
  EXPECT_EQ(Rows().GetRowCount(Filter(L"x(name) = 0"), true), -1);
  EXPECT_EQ(Where(L"n = 3"), (std::set<int>{3}));
}

// All rows against the reference, and against GDAL for filters that it can run: the two ways are one meaning.
TEST_P(OgrRowFilter, AgreesWithTheReferenceAndWithGdal) {
  struct Pair {
    wchar_t const* byGdal;
    wchar_t const* byRows;  // the same with a part that GDAL cannot run and that decides nothing
  };
  constexpr Pair kPairs[] = {
      {L"n > 0", L"n > 0 AND abs(n) >= 0"},
      {L"NOT (n > 0 AND flag = TRUE)", L"NOT (n > 0 AND flag = TRUE) AND abs(n) >= 0"},
      {L"NOT name = 'alpha'", L"NOT name = 'alpha' AND abs(n) >= 0"},
      {L"name IN ('Alpha', '50%')", L"name IN ('Alpha', '50%') OR abs(n) < 0"},
      {L"NOT name IN ('Alpha', '50%')", L"NOT name IN ('Alpha', '50%') OR abs(n) < 0"},
      {L"name LIKE '%lph%'", L"name LIKE '%lph%' OR abs(n) < 0"},
      {L"NOT name LIKE '%lph%'", L"NOT name LIKE '%lph%' OR abs(n) < 0"},
      {L"n / 2.0 = 2 OR d NULL", L"n / 2.0 = 2 OR d NULL OR abs(n) < 0"},
      {L"x < 0.5 AND big <> 5", L"x < 0.5 AND big <> 5 AND abs(n) >= 0"},
  };
  for (Pair const& pair : kPairs) {
    FdoPtr<FdoFilter> const byRows = Filter(pair.byRows);
    internal::FilterTarget const target{internal::FilterLanguage::kSqlite, "fid", "geom"};
    EXPECT_FALSE(internal::TranslateFilter(byRows, *Rows().Def(), target).isExact);
    std::set<int> expected;
    Rows().Query();
    while (Row const* row = Rows().Next()) {
      Outcome const outcome = EvaluateTree(byRows, *row, ExprOptions::AsInSql());
      ASSERT_EQ(outcome.kind, Outcome::kValue) << TextOf(outcome);
      if (outcome.value.AsBool()) expected.insert(static_cast<int>(static_cast<__int64>((*row)[L"n"])));
    }
    EXPECT_EQ(Where(pair.byRows), expected) << ToUtf8(pair.byRows);
    EXPECT_EQ(Where(pair.byGdal), expected) << ToUtf8(pair.byGdal);
  }
}

// What is explained is what happens, and asking changes nothing.
TEST_P(OgrRowFilter, ExplainTellsTheWay) {
  Rows().Query();
  ASSERT_NE(Rows().Next(), nullptr);
  FilterPlan const byGdal = database_.ExplainFilter(Rows(), Filter(L"n > 2"));
  EXPECT_EQ(byGdal.way, FilterPlan::kCondition);
  EXPECT_EQ(byGdal.condition, L"(\"n\" > 2)");
  EXPECT_EQ(byGdal.reason, L"");
  EXPECT_EQ(byGdal.program, L"");

  FdoPtr<FdoFilter> const near = Filter(L"GEOMETRY WITHINDISTANCE GeomFromText('LINESTRING (1 1, 2 3)') 0.5");
  FilterPlan const byRows = database_.ExplainFilter(Rows(), near);
  EXPECT_EQ(byRows.way, FilterPlan::kRowByRow);
  EXPECT_EQ(byRows.condition, L"");
  EXPECT_NE(byRows.reason, L"");
  EXPECT_NE(byRows.program.find(L"OpDistance"), std::wstring::npos);
  if (byRows.narrows) {
    double const expected[] = {0.5, 0.5, 2.5, 3.5};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(byRows.box[i], expected[i], 0.01);
  }
  // The layers of these have a type of geometry, which has no arcs.
  std::string const format = GetParam().name;
  EXPECT_EQ(byRows.narrows, format == "Shapefile" || format == "GeoJson");

  FilterPlan const everywhere = database_.ExplainFilter(Rows(), Filter(L"mod(n, 2) = 1"));
  EXPECT_EQ(everywhere.way, FilterPlan::kRowByRow);
  EXPECT_FALSE(everywhere.narrows);
  EXPECT_EQ(everywhere.program, L"OpPushLiteral      1\nOpPushLiteral      2\nOpPushField        " +
                                    std::to_wstring(ColumnOf(Rows(), L"n")) +
                                    L" n\nOpFunction         30 mod\nOpEqual\n");

  // What GDAL can run of it, it does.
  FilterPlan const both = database_.ExplainFilter(Rows(), Filter(L"n > 2 AND mod(n, 2) = 1"));
  EXPECT_EQ(both.way, FilterPlan::kRowByRow);
  EXPECT_EQ(both.condition, L"(\"n\" > 2)");

  for (wchar_t const* refused : {L"nowhere = 1", L"n = :p", L"sine(n) = 1"}) {
    FilterPlan const plan = database_.ExplainFilter(Rows(), Filter(refused));
    EXPECT_EQ(plan.way, FilterPlan::kRefused) << ToUtf8(refused);
    EXPECT_NE(plan.reason, L"") << ToUtf8(refused);
  }
  EXPECT_EQ(Rest().size(), 5u) << "the query has gone on";
}

TEST(OgrExplainFilter, RefusesWhatItKnowsNothingOf) {
  DatabaseOgr database;
  TableDef const def = MakeTableDef(L"s", L"t", L"id:Int64 n:Int32");
  MemoryTable const table(&def);
  FdoPtr<FdoFilter> const filter = FdoFilter::Parse(L"n > 2");
  EXPECT_EQ(database.ExplainFilter(table, filter).way, FilterPlan::kRefused);
}

INSTANTIATE_TEST_SUITE_P(Format, OgrRowFilter, ::testing::ValuesIn(kOgrFormats),
                         [](::testing::TestParamInfo<OgrFormat> const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
