// Runs quillon eval, and quillon query where it explains.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "testing/scratch_directory.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using Arguments = std::vector<std::string>;

std::string World() { return std::string(QUILLON_TEST_DATA) + "/world.gpkg"; }

ProgramResult RunCommand(char const* command, Arguments arguments) {
  arguments.insert(arguments.begin(), command);
  return RunQuillon(arguments);
}

std::string Printed(char const* command, Arguments const& arguments) {
  auto const result = RunCommand(command, arguments);
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.err, "");
  return result.out;
}

struct Refusal {
  Arguments arguments;
  int code;
  char const* message;
};

void ExpectRefused(char const* command, Refusal const& refusal) {
  auto const result = RunCommand(command, refusal.arguments);
  EXPECT_EQ(result.code, refusal.code) << refusal.message;
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr(refusal.message));
}

TEST(Eval, OneValue) {
  struct {
    Arguments arguments;
    char const* value;
  } const cases[] = {
      {{"1 + 2"}, "3"},
      {{"7 / 2"}, "3"},
      {{"7 / 2.0"}, "3.5"},
      {{"1 / 0"}, "null"},
      {{"round(1.256, 2)"}, "1.26"},
      {{"sqrt(-1)"}, "nan"},
      {{"0 - ln(0)"}, "inf"},
      {{"concat('a', 'b')"}, "ab"},
      {{"a * b", "--set", "a=4", "--set", "b=2.5"}, "10"},
      {{"concat(a, b)", "--set", "a='1'", "--set", "b=x y"}, "1x y"},
      {{"a + 1", "--set", "a=null"}, "null"},
      {{"if(a, 'yes', 'no')", "--set", "a=true"}, "yes"},
      {{"a > 1 and b like 'x%'", "--set", "a=2", "--set", "b=xyz"}, "true"},
      {{"a > 1", "--set", "a=null"}, "false"},
      {{"not a > 1", "--set", "a=null"}, "false"},
      {{"a = 5", "--set", "a=' 5.0 '"}, "true"},
      {{"a < 10", "--set", "a='9'"}, "true"},
      {{"9223372036854775807 + 1 > 0"}, "true"},
      {{"a in (1, 2)", "--set", "a=2"}, "true"},
      {{"a null", "--set", "a=null"}, "true"},
      {{"a = '5'", "--filter", "--set", "a='5'"}, "true"},
      {{"x(GeomFromText('POINT (1.5 2)'))"}, "1.5"},
      {{"GeomFromText('POINT (1.5 2)')"}, "POINT (1.5 2)"},
  };
  for (auto const& [arguments, value] : cases) {
    EXPECT_EQ(Printed("eval", arguments), value + std::string("\n")) << arguments[0];
  }
  EXPECT_EQ(Printed("eval", {"--set", "a=2", "--", "-a"}), "-2\n");
}

TEST(Eval, OneValueAsJson) {
  struct {
    char const* expression;
    json value;
  } const cases[] = {
      {"1 + 2", 3},       {"1.5", 1.5},
      {"'null'", "null"}, {"1 / 0", nullptr},
      {"TRUE", true},     {"GeomFromText('POINT (1 2)')", {{"type", "Point"}, {"coordinates", {1, 2}}}},
  };
  for (auto const& [expression, value] : cases) {
    EXPECT_EQ(json::parse(Printed("eval", {expression, "--json"})), (json{{"value", value}})) << expression;
  }
}

TEST(Eval, AValueForEachRow) {
  Arguments const iberia = {World(), "--where", "name_long in ('Portugal', 'Spain')"};
  auto const column = [&](char const* expression) {
    Arguments arguments = iberia;
    arguments.insert(arguments.begin(), expression);
    return Printed("eval", arguments);
  };
  EXPECT_EQ(column("concat(name_long, '!')"),
            " id  value\n"
            "---  ---------\n"
            "132  Portugal!\n"
            "133  Spain!\n"
            "2 rows\n");
  EXPECT_EQ(column("name_long = 'Spain'"),
            " id  value\n"
            "---  -----\n"
            "132  false\n"
            "133  true\n"
            "2 rows\n");
}

TEST(Eval, AColumnIsWhatTheRowsHold) {
  json const rows =
      json::parse(Printed("query", {World(), "--where", "pop > 1e8", "--select", "pop,area_km2", "--json"}));
  json const values = json::parse(
      Printed("eval", {"pop / area_km2", World(), "--table", "world", "--where", "pop > 1e8", "--json"}));
  ASSERT_EQ(values.size(), rows.size());
  ASSERT_GT(rows.size(), 5u);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(values[i]["value"].get<double>(),
              rows[i]["pop"].get<double>() / rows[i]["area_km2"].get<double>());
  }
}

TEST(Eval, BoxAndLimitNarrowTheRows) {
  EXPECT_EQ(json::parse(Printed("eval", {"1", World(), "--limit", "4", "--json"})).size(), 4u);
  EXPECT_EQ(json::parse(Printed("eval", {"1", World(), "world", "--limit", "0", "--json"})), json::array());
  json const rows =
      json::parse(Printed("eval", {"name_long", World(), "--bbox", "-20,64.5,-19,65", "--json"}));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0]["value"], "Iceland");
}

TEST(Eval, GeometryIsPrintedAsGeometry) {
  json const rows = json::parse(Printed("eval", {"geom", World(), "--limit", "1", "--json"}));
  EXPECT_EQ(rows[0]["value"]["type"], "MultiPolygon");
}

TEST(Eval, ExplainPrintsTheProgram) {
  EXPECT_EQ(Printed("eval", {"a = 1 and b like 'x%'", "--set", "a=1", "--set", "b=xyz", "--explain"}),
            "OpPushLiteral      'x%'\n"
            "OpPushField        1 b\n"
            "OpLike\n"
            "OpPushLiteral      1\n"
            "OpPushField        0 a\n"
            "OpEqual\n"
            "OpAnd\n");
  // Names need no value. What has a type is compared as such, what has none as it is written.
  EXPECT_EQ(Printed("eval", {"a = '1' and b = '2' and b > c", "--set", "a=5", "--explain"}),
            "OpPushField        2 c\n"
            "OpPushField        1 b\n"
            "OpGreater\n"
            "OpPushLiteral      '2'\n"
            "OpPushField        1 b\n"
            "OpEqual\n"
            "OpPushLiteral      1\n"
            "OpPushField        0 a\n"
            "OpEqual\n"
            "OpAnd\n"
            "OpAnd\n");
  EXPECT_EQ(Printed("eval", {"x + 1", "--explain"}), "OpPushLiteral      1\nOpPushField        0 x\nOpAdd\n");
  json const program = json::parse(Printed("eval", {"pop + 1", World(), "--explain", "--json"}));
  EXPECT_EQ(program["kind"], "expression");
  ASSERT_EQ(program["program"].size(), 3u);
  EXPECT_EQ(program["program"][2], "OpAdd");
}

TEST(Eval, WhatIsWrongIsSaid) {
  Refusal const cases[] = {
      {{}, 2, "EXPRESSION is required"},
      {{"1 + "}, 2, "the expression does not parse: Character 5"},
      {{"1 + "}, 2, "\n  1 + \n      ^"},
      {{"a = > 1"}, 2, "the filter does not parse: Character 5"},
      {{"a", "--filter"}, 2, "the filter does not parse: Character 2"},
      {{"fooo(1)"}, 2, "there is no function \"fooo\""},
      {{"abs(round(1, 2, 3))"}, 2, "the function round does not take 3 arguments"},
      {{"abs()"}, 2, "the function abs does not take 0 arguments"},
      {{"q + 1"}, 1, "\"q\" has no value; give it one with --set q=VALUE"},
      {{"poop + 1", "--set", "pop=1"}, 1, "did you mean \"pop\"?"},
      {{":p"}, 1, ":p cannot be computed"},
      {{"a", "--set", "a"}, 2, "\"a\" sets nothing"},
      {{"a", "--set", "a=1", "--set", "a=2"}, 2, "\"a\" is set twice"},
      {{"1", "--table", "t"}, 2, "SOURCE"},
      {{"1", "--limit", "1"}, 2, "SOURCE"},
      {{"1", World(), "--set", "a=1"}, 2, "--set is for expressions without a SOURCE"},
      {{"popp", World()}, 1, "world has no column \"popp\"; did you mean \"pop\"?"},
      {{"1", World(), "--table", "wrld"}, 1, "did you mean \"world\"?"},
      {{"1", World(), "wrld"}, 1, "did you mean \"world\"?"},
      {{"1", World(), "world", "--table", "world"}, 2, "--table"},
      {{"1", World() + ".missing"}, 3, "does not exist"},
      {{"1", World(), "--where", "pop >"}, 2, "the filter does not parse"},
      {{"x(name_long)", World()}, 1, "expected the word of a geometry type"},
  };
  for (Refusal const& refusal : cases) ExpectRefused("eval", refusal);
}

std::string SmallGeoJson(ScratchDirectory const& scratch) {
  std::string const path = (scratch.Path() / "towns.geojson").string();
  std::ofstream(path) << R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"n": 1}, "geometry": {"type": "Point", "coordinates": [1, 1]}},
    {"type": "Feature", "properties": {"n": 2}, "geometry": {"type": "Point", "coordinates": [2, 2]}}]})";
  return path;
}

TEST(QueryExplain, SaysWhichWayTheFilterGoes) {
  ScratchDirectory const scratch;
  std::string const towns = SmallGeoJson(scratch);
  EXPECT_EQ(Printed("query", {World(), "--explain"}), "filter: none\n");
  EXPECT_EQ(Printed("query", {World(), "--where", "pop > 1e8", "--explain"}),
            "filter: run by GDAL (GPKG) as (\"pop\" > 1e+08)\n");
  EXPECT_EQ(Printed("query", {World(), "--where", "mod(pop, 2) = 1", "--bbox", "0,1,2,3.5", "--explain"}),
            "filter: computed row by row, since GDAL cannot run it: it calls the function mod\n"
            "box: 0,1,2,3.5\n"
            "program:\n"
            "OpPushLiteral      1\n"
            "OpPushLiteral      2\n"
            "OpPushField        9 pop\n"
            "OpFunction         30 mod\n"
            "OpEqual\n");
  EXPECT_THAT(Printed("query", {World(), "--where", "pop > 1e8 and mod(pop, 2) = 1", "--explain"}),
              testing::HasSubstr("rows: those that GDAL (GPKG) finds by (\"pop\" > 1e+08)\nprogram:\n"));
  EXPECT_THAT(
      Printed("query", {towns, "--where", "OGR_GEOMETRY within GeomFromText('POINT (1 1)')", "--explain"}),
      testing::ContainsRegex("box: 0\\.9+[0-9]*,0\\.9+[0-9]*,1\\.0+[0-9]*,1\\.0+[0-9]*, of the filter's "
                             "geometry\nprogram:\n.*OpSpatial"));
}

TEST(QueryExplain, AProviderRunsItsFilters) {
  ScratchDirectory const scratch;
  std::string const store = (scratch.Path() / "towns.sqlite").string();
  ProgramResult const converted = RunCommand("convert", {SmallGeoJson(scratch), store});
  ASSERT_EQ(converted.code, 0) << converted.err;
  EXPECT_EQ(Printed("query", {store, "--where", "mod(n, 2) = 1", "--explain"}),
            "filter: run by the provider OSGeo.SQLite\n");
}

TEST(QueryExplain, AsJson) {
  ScratchDirectory const scratch;
  std::string const towns = SmallGeoJson(scratch);
  auto const plan = [&](Arguments arguments) {
    arguments.insert(arguments.end(), {"--explain", "--json"});
    return json::parse(Printed("query", arguments));
  };
  EXPECT_EQ(plan({towns, "--bbox", "0,1,2,3"}),
            (json{{"filter", "none"}, {"back_end", "GeoJSON"}, {"box", {0, 1, 2, 3}}}));
  EXPECT_EQ(plan({towns, "--where", "n = 1"}),
            (json{{"filter", "gdal"}, {"back_end", "GeoJSON"}, {"condition", "(\"n\" = 1)"}}));
  json const byRows = plan({towns, "--where", "OGR_GEOMETRY withindistance GeomFromText('POINT (1 1)') 0.5"});
  EXPECT_EQ(byRows["filter"], "rows");
  EXPECT_NE(byRows["reason"], "");
  EXPECT_NEAR(byRows["box"][0].get<double>(), 0.5, 0.01);
  EXPECT_EQ(byRows["program"].back(), "OpDistance         1 WITHINDISTANCE");
}

TEST(QueryExplain, WhatCannotBeRunIsRefusedAsTheQueryWouldBe) {
  Refusal const cases[] = {
      {{World(), "--where", "pop = :p", "--explain"}, 1, "cannot be asked with this filter"},
      {{World(), "--where", "sine(pop) = 1", "--explain"}, 1, "Unknown function"},
      {{World(), "--where", "popp = 1", "--explain"}, 1, "did you mean \"pop\"?"},
      {{World(), "--id", "1", "--explain"}, 2, "--explain"},
  };
  for (Refusal const& refusal : cases) ExpectRefused("query", refusal);
}

// The help lists every function and none that does not exist.
TEST(Eval, TheHelpListsFunctionsThatThereAre) {
  std::string const help = Printed("eval", {"--help"});
  for (char const* call : {"abs(1)",
                           "acos(1)",
                           "asin(1)",
                           "atan(1)",
                           "atan2(1, 1)",
                           "ceil(1)",
                           "cos(1)",
                           "exp(1)",
                           "floor(1)",
                           "ln(1)",
                           "log(1)",
                           "mod(5, 3)",
                           "pow(1, 1)",
                           "power(1, 1)",
                           "random()",
                           "remainder(5, 3)",
                           "round(1)",
                           "sign(1)",
                           "sin(1)",
                           "sqrt(1)",
                           "tan(1)",
                           "trunc(1)",
                           "todatetime('2024-03-01')",
                           "todouble(1)",
                           "tofloat(1)",
                           "toint32(1)",
                           "toint64(1)",
                           "tostring(1)",
                           "concat(1)",
                           "CurrentDate()",
                           "if(1, 2, 3)",
                           "lookup(1, 2)",
                           "m(GeomFromText('POINT (1 2)'))",
                           "x(GeomFromText('POINT (1 2)'))",
                           "y(GeomFromText('POINT (1 2)'))",
                           "z(GeomFromText('POINT (1 2)'))"}) {
    EXPECT_NE(Printed("eval", {call}), "null\n") << call;
    std::string const text = call;
    EXPECT_THAT(help, testing::ContainsRegex("[ \n]" + text.substr(0, text.find('(')) + "[ \n,]"));
  }
}

}  // namespace
}  // namespace fdo::tool
