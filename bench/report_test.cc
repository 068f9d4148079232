#include "bench/report.h"

#include <gtest/gtest.h>

namespace fdo::bench {
namespace {

constexpr Job kScan{"scan", "points", kRowsPerSecond, 0.9, nullptr};
constexpr Job kMemory{"memory", "rings", kMebibytes, 2, nullptr};
constexpr Job kFree{"free", "rings", kBytesPerSecond, 0, nullptr};

TEST(Report, JsonIsAListOfFigures) {
  std::vector<Result> const results{
      {&kScan, {1234567.0, 1000000.0, 1.234567, 1.0, 1.5, true}},
      {&kMemory, {0.5, 0.25, 4, 4, 4, true}},
  };
  EXPECT_EQ(Json(results),
            "[\n"
            R"(  {"job": "scan", "data": "points", "ours": 1.23457e+06, "peer": 1e+06, "unit": "rows/s", )"
            R"("ratio": 1.23457},)"
            "\n"
            R"(  {"job": "memory", "data": "rings", "ours": 0.5, "peer": 0.25, "unit": "MiB", "ratio": 4})"
            "\n]\n");
}

TEST(Report, JsonOfNothingIsAnEmptyList) { EXPECT_EQ(Json({}), "[\n]\n"); }

TEST(Report, TableSaysWhatIsToBeReachedAndWhetherItWas) {
  struct {
    Job const* job;
    Comparison figures;
    char const* line;
  } const cases[] = {
      {&kScan,
       {1234567, 25000, 0.5, 0.25, 0.75, false},
       "| scan           | points                  |    1.23M rows/s |   25.00k rows/s |   0.50 "
       "|   0.25 to 0.75 | ratio >= 0.9     | no      |\n"},
      {&kMemory,
       {0.5, 12.25, 4, 4, 4, true},
       "| memory         | rings                   |        0.50 MiB |       12.25 MiB |   4.00 "
       "|   4.00 to 4.00 | ours <= 2 MiB    | yes     |\n"},
      {&kFree,
       {3e9, 999, 3, 2, 4, true},
       "| free           | rings                   |   3.00G bytes/s |  999.00 bytes/s |   3.00 "
       "|   2.00 to 4.00 | -                | -       |\n"},
  };
  for (auto const& c : cases) EXPECT_EQ(TableLine({c.job, c.figures}), c.line);
}

TEST(Report, HeadIsALineOfNamesAndARule) {
  std::string const head = TableHead();
  EXPECT_EQ(head.find("| job "), 0u);
  EXPECT_EQ(head.find("\n| job"), std::string::npos);
  EXPECT_NE(head.find("\n|----"), std::string::npos);
  EXPECT_EQ(head.size(), 2 * TableLine({&kFree, {1, 1, 1, 1, 1, true}}).size());
}

}  // namespace
}  // namespace fdo::bench
