// Runs the program with filters on real files.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tools/quillon/json_run.h"
#include "tools/quillon/program_files.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

using nlohmann::json;

TEST(Filter, SelectsTheRowsOfAQuery) {
  std::string const world = Data("world.gpkg");
  struct {
    char const* where;
    std::size_t rows;
  } const cases[] = {
      {"pop > 1e9", 2},   {"continent = 'Africa'", 51}, {"continent = 'Africa' and pop > 5e7", 6},
      {"iso_a2 null", 2}, {"not pop null", 167},        {"name_long in ('France', 'Spain', 'Atlantis')", 2},
      {"pop < 0", 0},
  };
  for (auto const& [where, rows] : cases) {
    EXPECT_EQ(Rows({world, "--where", where, "--select", "name_long"}).size(), rows) << where;
  }
  EXPECT_EQ(Rows({world, "--where", "pop > 4e7", "--bbox", "-10,35,5,45"}).size(), 1u) << "Spain";
}

TEST(Filter, SelectsTheRowsOfAConversion) {
  ScratchDirectory const scratch;
  std::string const target = (scratch.Path() / "a.gpkg").string();
  std::vector<std::string> const rows = {"--where", "continent = 'Africa' and not pop null", "--bbox",
                                         "0,0,60,40"};
  std::vector<std::string> convert = {"convert", Data("world.gpkg"), target, "--select",
                                      "pop,geom,name_long"};
  convert.insert(convert.end(), rows.begin(), rows.end());
  auto const result = RunQuillon(convert);
  EXPECT_EQ(result.code, 0) << result.err;
  std::vector<std::string> query = {"query", Data("world.gpkg"), "--select", "pop,name_long", "--json"};
  query.insert(query.end(), rows.begin(), rows.end());
  auto const expected = json::parse(RunQuillon(query).out);
  EXPECT_EQ(json::parse(RunQuillon({"query", target, "--select", "pop,name_long", "--json"}).out), expected);
  EXPECT_GT(expected.size(), 10u);
}

TEST(Filter, SelectsTheRowsOfStatistics) {
  auto const some =
      RunQuillon({"stats", Data("world.gpkg"), "pop", "--where", "continent = 'Asia'", "--json"});
  EXPECT_EQ(json::parse(some.out)["columns"][0]["max"], 1364270000);
  EXPECT_EQ(json::parse(some.out)["columns"][0]["count"], 45);
  auto const none = RunQuillon({"stats", Data("world.gpkg"), "pop", "--where", "pop < 0", "--json"});
  EXPECT_EQ(json::parse(none.out)["columns"][0]["count"], 0);
  EXPECT_EQ(json::parse(none.out)["columns"][0]["min"], nullptr);
}

}  // namespace
}  // namespace fdo::tool
