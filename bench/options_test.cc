#include "bench/options.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace fdo::bench {
namespace {

TEST(Options, NoneMeansAMillionRowsAndAtLeastThreePairs) {
  Options const options = ParseOptions({});
  EXPECT_EQ(options.bench.rows, 1'000'000);
  EXPECT_GE(options.effort.pairs, 3);
  EXPECT_EQ(options.only, "");
  EXPECT_TRUE(options.jsonFile.empty());
}

TEST(Options, EachIsTaken) {
  Options const options = ParseOptions(
      {"--only", "ogr-scan gpkg", "--quick", "--pairs", "7", "--seed", "3", "--data", "d", "--json", "j"});
  EXPECT_EQ(options.only, "ogr-scan gpkg");
  EXPECT_EQ(options.bench.rows, 100'000);
  EXPECT_EQ(options.effort.pairs, 7);
  EXPECT_EQ(options.bench.seed, 3u);
  EXPECT_EQ(options.bench.dataDirectory, "d");
  EXPECT_EQ(options.jsonFile, "j");
  EXPECT_EQ(ParseOptions({"--rows", "12"}).bench.rows, 12);
  EXPECT_EQ(ParseOptions({"--smoke"}).effort.pairs, 1);
  EXPECT_TRUE(ParseOptions({"--list"}).list);
  EXPECT_TRUE(ParseOptions({"--help"}).help);
}

TEST(Options, MistakesAreRefused) {
  std::vector<std::vector<std::string>> const mistakes = {
      {"--fast"},         {"rows"},         {"--rows"},       {"--rows", "0"},
      {"--rows", "many"}, {"--rows", "5x"}, {"--pairs", "0"}, {"--pairs", "9999999999"},
      {"--seed", "-1"},   {"--only"},
  };
  for (auto const& arguments : mistakes) {
    EXPECT_THROW(ParseOptions(arguments), std::invalid_argument) << arguments[0];
  }
}

}  // namespace
}  // namespace fdo::bench
