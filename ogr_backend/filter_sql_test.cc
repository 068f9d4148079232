#include "ogr_backend/filter_sql.h"

#include <Fdo.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <string>

#include "testing/schema_builder.h"

namespace fdo::internal {
namespace {

FilterTarget const kGdalDialect{/*ownSql=*/false, "FID", "OGR_GEOMETRY"};
FilterTarget const kOwnSql{/*ownSql=*/true, "id", "shape"};

TableDef const& Table() {
  static TableDef const def = MakeTableDef(
      L"s", L"t", L"id:Int64 shape:Geometry name:String n:Int32 x:Double d:DateTime other:String");
  return def;
}

FilterSql Translate(wchar_t const* filter, FilterTarget const& target) {
  FdoPtr<FdoFilter> const parsed = FdoFilter::Parse(filter);
  return TranslateFilter(parsed, Table(), target);
}

struct Case {
  wchar_t const* filter;
  char const* gdal;  // null: refused
  char const* own;
};

constexpr Case kCases[] = {
    {L"n = 1", R"(("n" = 1))", R"(("n" = 1))"},
    {L"NOT n = 1", R"(("n" <> 1))", R"(("n" <> 1))"},
    {L"NOT (n < 1 OR x >= 2.5)", R"((("n" >= 1) AND ("x" < 2.5)))", R"((("n" >= 1) AND ("x" < 2.5)))"},
    {L"x = 1e300", R"(("x" = 1e+300))", R"(("x" = 1e+300))"},
    {L"x = 2.0", R"(("x" = 2.0))", R"(("x" = 2.0))"},
    {L"name = 'it''s'", R"(("name" LIKE 'it''s' ESCAPE '!'))", R"(("name" = 'it''s'))"},
    {L"name = '5%_!'", R"(("name" LIKE '5!%!_!!' ESCAPE '!'))", R"(("name" = '5%_!'))"},
    {L"name <> 'a'", R"(("name" IS NOT NULL AND NOT ("name" LIKE 'a' ESCAPE '!')))", R"(("name" <> 'a'))"},
    {L"name < 'a'", R"(("name" < 'a'))", R"(("name" < 'a'))"},
    {L"name LIKE 'a%'", R"(("name" LIKE 'a%'))", R"(("name" LIKE 'a%'))"},
    {L"NOT name LIKE 'a%'", R"(("name" IS NOT NULL AND NOT ("name" LIKE 'a%')))",
     R"(("name" IS NOT NULL AND NOT ("name" LIKE 'a%')))"},
    {L"name LIKE 'a_'", nullptr, R"(("name" LIKE 'a_'))"},
    {L"name LIKE '[ab]'", nullptr, nullptr},
    {L"name = 'a\\'", nullptr, R"(("name" = 'a\'))"},
    {L"name = 'a\\''b'", nullptr, R"(("name" = 'a\''b'))"},
    {L"name = 'a\\b'", R"(("name" LIKE 'a\b' ESCAPE '!'))", R"(("name" = 'a\b'))"},
    {L"name = other", nullptr, R"(("name" = "other"))"},
    {L"name < other", R"(("name" < "other"))", R"(("name" < "other"))"},
    {L"n IN (1, 2)", R"((("n" = 1) OR ("n" = 2)))", R"(("n" IN (1, 2)))"},
    {L"NOT n IN (1, 2)", R"((("n" <> 1) AND ("n" <> 2)))", R"(("n" NOT IN (1, 2)))"},
    {L"n IN ('a')", nullptr, nullptr},
    {L"d NULL", R"(("d" IS NULL))", R"(("d" IS NULL))"},
    {L"NOT d NULL", R"(("d" IS NOT NULL))", R"(("d" IS NOT NULL))"},
    {L"shape NULL", R"(("OGR_GEOMETRY" IS NULL))", R"(("shape" IS NULL))"},
    {L"id = 7", R"(("FID" = 7))", R"(("id" = 7))"},
    {L"n / 3 = x", R"((("n" / 3) = "x"))", R"((("n" / 3) = "x"))"},
    {L"n / x = 1", nullptr, nullptr},
    {L"n = TRUE", R"(("n" = 1))", R"(("n" = 1))"},
    {L"d = d", nullptr, nullptr},
    {L"shape = shape", nullptr, nullptr},
    {L"s.n = 1", nullptr, nullptr},
};

TEST(FilterSql, TextInBothDialects) {
  for (Case const& test : kCases) {
    struct {
      FilterTarget const& target;
      char const* expected;
    } const sides[] = {{kGdalDialect, test.gdal}, {kOwnSql, test.own}};
    for (auto const& side : sides) {
      FilterSql const sql = Translate(test.filter, side.target);
      SCOPED_TRACE(ToUtf8(test.filter));
      EXPECT_EQ(sql.refused, side.expected == nullptr) << ToUtf8(sql.refusal.c_str());
      if (sql.refused) {
        EXPECT_NE(sql.refusal, L"");
      } else {
        EXPECT_EQ(sql.text, side.expected);
      }
    }
  }
}

TEST(FilterSql, TheColumnsThatTheConditionNeeds) {
  FilterSql const sql = Translate(L"n = 1 AND NOT (name LIKE 'a%' OR shape NULL)", kOwnSql);
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
  EXPECT_EQ(TranslateFilter(quoted, def, kOwnSql).text, R"(("a ""b""" = 1))");
  EXPECT_EQ(TranslateFilter(quoted, def, kGdalDialect).text, R"(("a \"b\"" = 1))");
  FdoPtr<FdoFilter> const backslash = FdoFilter::Parse(L"\"c\\d\" = 1");
  EXPECT_EQ(TranslateFilter(backslash, def, kOwnSql).text, R"(("c\d" = 1))");
  EXPECT_TRUE(TranslateFilter(backslash, def, kGdalDialect).refused);
}

TEST(FilterSql, AColumnThatCannotBeNamedIsRefused) {
  FilterTarget const nameless{/*ownSql=*/true, "", ""};
  EXPECT_TRUE(Translate(L"id = 7", nameless).refused);
  EXPECT_TRUE(Translate(L"shape NULL", nameless).refused);
  EXPECT_FALSE(Translate(L"n = 7", nameless).refused);
}

TEST(FilterSql, IncompleteNodesAreRefused) {
  FdoPtr<FdoComparisonCondition> const comparison = FdoComparisonCondition::Create();
  EXPECT_TRUE(TranslateFilter(comparison, Table(), kOwnSql).refused);
  FdoPtr<FdoBinaryLogicalOperator> const both = FdoBinaryLogicalOperator::Create();
  EXPECT_TRUE(TranslateFilter(both, Table(), kOwnSql).refused);
  FdoPtr<FdoNullCondition> const null = FdoNullCondition::Create();
  EXPECT_TRUE(TranslateFilter(null, Table(), kOwnSql).refused);
  FdoPtr<FdoInCondition> const in = FdoInCondition::Create();
  EXPECT_TRUE(TranslateFilter(in, Table(), kOwnSql).refused);
}

TEST(FilterSql, DepthIsBounded) {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(L"n = 1");
  auto const nest = [&](int levels) {
    for (int i = 0; i < levels; ++i) {
      filter = FdoUnaryLogicalOperator::Create(filter, FdoUnaryLogicalOperations_Not);
    }
  };
  nest(kMaxFilterDepth - 1);
  EXPECT_FALSE(TranslateFilter(filter, Table(), kOwnSql).refused);
  nest(1);
  EXPECT_TRUE(TranslateFilter(filter, Table(), kOwnSql).refused);
}

}  // namespace
}  // namespace fdo::internal
