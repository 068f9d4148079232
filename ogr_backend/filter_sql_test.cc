#include "ogr_backend/filter_sql.h"

#include <Fdo.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "ogr_backend/sql_literal.h"
#include "testing/schema_builder.h"

namespace fdo::internal {
namespace {

FilterTarget const kGdal{FilterLanguage::kGdal, "FID", "OGR_GEOMETRY"};
FilterTarget const kSqlite{FilterLanguage::kSqlite, "id", "shape"};
FilterTarget const kPostgreSql{FilterLanguage::kPostgreSql, "id", "shape"};
FilterTarget const kUnknown{FilterLanguage::kUnknown, "id", "shape"};

TableDef const& Table() {
  static TableDef const def = MakeTableDef(
      L"s", L"t", L"id:Int64 shape:Geometry name:String n:Int32 x:Double d:DateTime other:String");
  return def;
}

FilterSql Translate(wchar_t const* filter, FilterTarget const& target) {
  FdoPtr<FdoFilter> const parsed = FdoFilter::Parse(filter);
  return TranslateFilter(parsed, Table(), target);
}

// The condition; behind a tilde one that selects more, if any, and the rows decide; null: refused.
struct Case {
  wchar_t const* filter;
  char const* gdal;
  char const* sqlite;
};

constexpr Case kCases[] = {
    // Numbers.
    {L"n = 1", R"(("n" = 1))", R"(("n" = 1))"},
    {L"NOT n = 1", R"(("n" <> 1))", R"(("n" <> 1))"},
    {L"NOT (n < 1 OR x >= 2.5)", R"((("n" >= 1) AND ("x" < 2.5)))", R"((("n" >= 1) AND ("x" < 2.5)))"},
    {L"x = 2.0", R"(("x" = 2.0))", R"(("x" = 2.0))"},
    {L"x = 1e8", R"(("x" = 1e+08))", R"(("x" = 1e+08))"},
    {L"x = 0.1", R"(("x" = 0.1))", R"(("x" = (3602879701896397 / 1073741824.0 / 33554432.0)))"},
    {L"x < 0.375", R"(("x" < 0.375))", R"(("x" < 0.375))"},
    {L"x <> 2.5", R"((("x" < 2.5) OR ("x" > 2.5)))", R"(("x" <> 2.5))"},
    {L"n = TRUE", R"(("n" = 1))", R"(("n" = 1))"},
    {L"id = 7", R"(("FID" = 7))", R"(("id" = 7))"},
    {L"id < 2.5", R"(("FID" < 2.5))", R"(("id" < 2.5))"},
    {L"id < 1e17", "~", R"(("id" < (762939453125 * 131072.0)))"},
    {L"id = x", "~", R"(("id" = "x"))"},
    {L"n = x", R"(("n" = "x"))", R"(("n" = "x"))"},
    {L"id = -9223372036854775808", "~", R"(("id" = (-9223372036854775808)))"},
    // Arithmetic.
    {L"n / 3 = x", R"((("n" / 3) = "x"))", R"((("n" / 3) = "x"))"},
    {L"n / x = 1", "~", R"((("n" / "x") = 1))"},
    {L"n / 0 = 1", "~", R"((("n" / 0) = 1))"},
    {L"n * n = 1", R"((("n" * "n") = 1))", R"((("n" * "n") = 1))"},
    {L"n * n * n = 1", "~", R"(((("n" * "n") * "n") = 1))"},
    {L"id + 1 = 1", "~", R"((("id" + 1) = 1))"},
    {L"-n = 1", R"(((- "n") = 1))", R"(((- "n") = 1))"},
    // Texts.
    {L"name = 'it''s'", R"(~("name" = 'it''s'))", R"(("name" = 'it''s' COLLATE BINARY))"},
    {L"name <> 'a'", "~", R"(("name" <> 'a' COLLATE BINARY))"},
    {L"name < 'a'", "~", R"(("name" < 'a' COLLATE BINARY))"},
    {L"name = other", R"(~("name" = "other"))", R"(("name" = "other" COLLATE BINARY))"},
    {L"name = 'a\\'", "~", R"(("name" = 'a\' COLLATE BINARY))"},
    {L"name = 'a\\''b'", "~", R"(("name" = 'a\''b' COLLATE BINARY))"},
    {L"name = 'a\\b'", R"(~("name" = 'a\b'))", R"(("name" = 'a\b' COLLATE BINARY))"},
    {L"name = '\xD83D\xDE00'", "~", "~"},
    // LIKE.
    {L"name LIKE 'a%'", R"(~("name" LIKE 'a%'))", R"(("name" GLOB 'a*'))"},
    {L"NOT name LIKE 'a%'", "~", R"(("name" NOT GLOB 'a*'))"},
    {L"name LIKE 'a_b'", R"(~("name" LIKE 'a%'))", R"(("name" GLOB 'a?b'))"},
    {L"name LIKE '%a'", "~", R"(("name" GLOB '*a'))"},
    {L"name LIKE 'a'", R"(~("name" LIKE 'a'))", R"(("name" GLOB 'a'))"},
    {L"name LIKE '[ab][^c]'", "~", R"(("name" GLOB '[ab][^c]'))"},
    {L"name LIKE '[]a]'", "~", "~"},
    {L"name LIKE '[^]a]'", "~", "~"},
    {L"name LIKE '[a'", "~", R"(("name" GLOB '[[]a'))"},
    {L"name LIKE '*?'", R"(~("name" LIKE '*?'))", R"(("name" GLOB '[*][?]'))"},
    {L"name LIKE other", "~", "~"},
    {L"d LIKE '2024%'", "~", "~"},
    {L"n LIKE '1%'", nullptr, nullptr},
    // Lists.
    {L"n IN (1, 2)", R"((("n" = 1) OR ("n" = 2)))", R"(("n" IN (1, 2)))"},
    {L"NOT n IN (1, 2)", R"((("n" <> 1) AND ("n" <> 2)))", R"(("n" NOT IN (1, 2)))"},
    {L"name IN ('a', 'b')", R"(~(("name" = 'a') OR ("name" = 'b')))",
     R"(("name" COLLATE BINARY IN ('a', 'b')))"},
    {L"NOT name IN ('a', 'b')", "~", R"(("name" COLLATE BINARY NOT IN ('a', 'b')))"},
    {L"n IN (1, NULL)", R"((("n" = 1) OR (1 = 0)))", R"((("n" = 1) OR (1 = 0)))"},
    {L"NOT n IN (1, NULL)", R"((("n" <> 1) AND (1 = 0)))", R"((("n" <> 1) AND (1 = 0)))"},
    {L"n IN ('1', ' 2.5 ')", R"((("n" = 1) OR ("n" = 2.5)))", R"(("n" IN (1, 2.5)))"},
    {L"n IN ('a')", nullptr, nullptr},
    // Null.
    {L"d NULL", R"(("d" IS NULL))", R"(("d" IS NULL))"},
    {L"NOT d NULL", R"(("d" IS NOT NULL))", R"(("d" IS NOT NULL))"},
    {L"shape NULL", R"(("OGR_GEOMETRY" IS NULL))", R"(("shape" IS NULL))"},
    {L"n = NULL", "(1 = 0)", "(1 = 0)"},
    {L"NOT n = NULL", "(1 = 0)", "(1 = 0)"},
    {L"n + NULL > 1", "(1 = 0)", "(1 = 0)"},
    {L"name LIKE NULL", "(1 = 0)", "(1 = 0)"},
    // Kinds.
    {L"n = '5'", R"(("n" = 5))", R"(("n" = 5))"},
    {L"'1e2' > x", R"((100.0 > "x"))", R"((100.0 > "x"))"},
    // The first integer that a double does not hold.
    {L"x = 9007199254740991", R"(("x" = 9007199254740991))", R"(("x" = 9007199254740991))"},
    {L"x = 9007199254740993", "~", R"(("x" = 9007199254740993))"},
    {L"x < '9007199254740993'", "~", R"(("x" < 9007199254740993))"},
    {L"x > -9007199254740993", "~", R"(("x" > (-9007199254740993)))"},
    {L"n = 'x'", nullptr, nullptr},
    {L"name = 5", "~", "~"},
    {L"d = d", "~", "~"},
    {L"d = '2024-03-01'", "~", "~"},
    {L"d = 'today'", nullptr, nullptr},
    {L"d = 5", nullptr, nullptr},
    {L"d = name", "~", "~"},
    {L"shape = shape", nullptr, nullptr},
    {L"name + 'a' = 'ba'", nullptr, nullptr},
    {L"abs(name) = 1", nullptr, nullptr},
    {L"abs(n) = 1", "~", "~"},
    {L"abs(n) = 'x'", nullptr, nullptr},
    {L"concat(name, n) = 'a1'", "~", "~"},
    {L"concat(name, n) + 1 = 2", nullptr, nullptr},
    {L"if(n, NULL, name) = 'x'", "~", "~"},
    {L"if(n, NULL, 5) = 'x'", nullptr, nullptr},
    {L"lookup(n, NULL, 1, 5) = 'x'", nullptr, nullptr},
    {L"sine(n) = 1", nullptr, nullptr},
    {L"s.n = 1", nullptr, nullptr},
    {L"n = :p", nullptr, nullptr},
    // What is for rows leaves what is joined to it by AND.
    {L"n = 1 AND abs(n) = 1", R"(~("n" = 1))", R"(~("n" = 1))"},
    {L"n = 1 AND abs(n) = 1 AND x = 2.5", R"(~(("n" = 1) AND ("x" = 2.5)))",
     R"(~(("n" = 1) AND ("x" = 2.5)))"},
    {L"n = 1 OR abs(n) = 1", "~", "~"},
    {L"NOT (n = 1 OR abs(n) = 1)", R"(~("n" <> 1))", R"(~("n" <> 1))"},
    {L"NOT (n = 1 AND abs(n) = 1)", "~", "~"},
    {L"(n = 1 OR name = 'a') AND abs(n) = 1", R"(~(("n" = 1) OR ("name" = 'a')))",
     R"(~(("n" = 1) OR ("name" = 'a' COLLATE BINARY)))"},
    {L"abs(n) = 1 AND name + 'a' = 'ba'", nullptr, nullptr},
    {L"n = 1 AND shape INTERSECTS GeomFromText('POINT (1 1)')", R"(~("n" = 1))", R"(~("n" = 1))"},
    {L"name INTERSECTS GeomFromText('POINT (1 1)')", nullptr, nullptr},
};

// As in the table of cases, but for what is refused.
std::string Shown(FilterSql const& sql) {
  EXPECT_EQ(sql.reason.empty(), !sql.refused && sql.isExact);
  return sql.refused ? "refused" : sql.isExact ? sql.text : "~" + sql.text;
}

TEST(FilterSql, ConditionsInBothLanguages) {
  for (Case const& test : kCases) {
    SCOPED_TRACE(ToUtf8(test.filter));
    EXPECT_EQ(Shown(Translate(test.filter, kGdal)), test.gdal == nullptr ? "refused" : test.gdal);
    EXPECT_EQ(Shown(Translate(test.filter, kSqlite)), test.sqlite == nullptr ? "refused" : test.sqlite);
  }
}

// PostgreSQL has an order of its own for texts and for what is no number.
TEST(FilterSql, ConditionsOfPostgreSql) {
  struct {
    wchar_t const* filter;
    char const* sql;
  } const cases[] = {
      {L"n = 1", R"(("n" = 1))"},
      {L"NOT n IN (1, 2)", R"((("n" <> 1) AND ("n" <> 2)))"},
      {L"x > 2.5", R"(~("x" > 2.5))"},
      {L"n + 1 = 2", "~"},
      {L"name = 'a'", R"(~("name" = 'a'))"},
      {L"name < 'a'", "~"},
      {L"name LIKE 'a%'", "~"},
      {L"name NULL", R"(("name" IS NULL))"},
  };
  for (auto const& [filter, sql] : cases) {
    EXPECT_EQ(Shown(Translate(filter, kPostgreSql)), sql) << ToUtf8(filter);
  }
}

TEST(FilterSql, ADriverThatNobodyKnowsGetsNoCondition) {
  for (wchar_t const* filter : {L"n = 1", L"name = 'a' AND x > 2", L"n NULL", L"n IN (1, 2)"}) {
    EXPECT_EQ(Shown(Translate(filter, kUnknown)), "~") << ToUtf8(filter);
  }
  EXPECT_EQ(Shown(Translate(L"nowhere = 1", kUnknown)), "refused");
}

// Real numbers that SQLite might read as others are written as what they are.
TEST(FilterSql, RealNumbersAreExact) {
  for (double const number :
       {0.1, 1e300, 5e-324, 1.7976931348623157e308, 2.0 / 3, 123456.789, 9007199254740994.0}) {
    std::string const text = RealText(number, FilterLanguage::kSqlite);
    ASSERT_EQ(text.front(), '(') << text;
    double value = 0;
    char sign = 0;
    std::istringstream in(text.substr(1));
    in >> value;
    for (double factor = 0; in >> sign >> factor;) sign == '*' ? value *= factor : value /= factor;
    EXPECT_EQ(value, number) << text;
  }
}

TEST(FilterSql, TheColumnsThatTheConditionNeeds) {
  FilterSql const sql = Translate(L"n = 1 AND NOT (name LIKE 'a%' OR shape NULL)", kSqlite);
  EXPECT_EQ(sql.columns, (std::vector<bool>{false, true, true, true, false, false, false}));
}

TEST(FilterSql, NamesAreQuotedForTheirDialect) {
  TableDef const def = [] {
    ColumnDef columns[4];
    columns[0].Initialize(L"id", ColumnDef::kInt64, 0, Value(), nullptr);
    columns[1].Initialize(L"shape", ColumnDef::kGeometry, 0, Value(), nullptr);
    columns[2].Initialize(L"a \"b\"", ColumnDef::kInt32, 0, Value(), nullptr);
    columns[3].Initialize(L"c\\d", ColumnDef::kInt32, 0, Value(), nullptr);
    TableDef made;
    made.Initialize(L"s", L"t", columns, 4, 0, 1, 0);
    return made;
  }();
  FdoPtr<FdoFilter> const quoted = FdoFilter::Parse(L"\"a \"\"b\"\"\" = 1");
  EXPECT_EQ(TranslateFilter(quoted, def, kSqlite).text, R"(("a ""b""" = 1))");
  EXPECT_EQ(TranslateFilter(quoted, def, kGdal).text, R"(("a \"b\"" = 1))");
  FdoPtr<FdoFilter> const backslash = FdoFilter::Parse(L"\"c\\d\" = 1");
  EXPECT_EQ(TranslateFilter(backslash, def, kSqlite).text, R"(("c\d" = 1))");
  EXPECT_EQ(Shown(TranslateFilter(backslash, def, kGdal)), "~");
}

TEST(FilterSql, AColumnThatCannotBeNamedIsForTheRows) {
  FilterTarget const nameless{FilterLanguage::kSqlite, "", ""};
  EXPECT_EQ(Shown(Translate(L"id = 7", nameless)), "~");
  EXPECT_EQ(Shown(Translate(L"shape NULL", nameless)), "~");
  EXPECT_EQ(Shown(Translate(L"n = 7", nameless)), R"(("n" = 7))");
}

TEST(FilterSql, IncompleteNodesAreRefused) {
  FdoPtr<FdoComparisonCondition> const comparison = FdoComparisonCondition::Create();
  EXPECT_TRUE(TranslateFilter(comparison, Table(), kSqlite).refused);
  FdoPtr<FdoBinaryLogicalOperator> const both = FdoBinaryLogicalOperator::Create();
  EXPECT_TRUE(TranslateFilter(both, Table(), kSqlite).refused);
  FdoPtr<FdoNullCondition> const null = FdoNullCondition::Create();
  EXPECT_TRUE(TranslateFilter(null, Table(), kSqlite).refused);
  FdoPtr<FdoInCondition> const in = FdoInCondition::Create();
  EXPECT_TRUE(TranslateFilter(in, Table(), kSqlite).refused);
}

TEST(FilterSql, DepthIsBounded) {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(L"n = 1");
  auto const nest = [&](int levels) {
    for (int i = 0; i < levels; ++i) {
      filter = FdoUnaryLogicalOperator::Create(filter, FdoUnaryLogicalOperations_Not);
    }
  };
  nest(kMaxFilterDepth - 1);
  EXPECT_FALSE(TranslateFilter(filter, Table(), kSqlite).refused);
  nest(1);
  EXPECT_TRUE(TranslateFilter(filter, Table(), kSqlite).refused);
}

}  // namespace
}  // namespace fdo::internal
