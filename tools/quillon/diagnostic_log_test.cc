#include "tools/quillon/diagnostic_log.h"

#include <gtest/gtest.h>

#include <string>

namespace fdo::tool {
namespace {

TEST(DiagnosticLog, ALineThatComesAgainIsKeptOnce) {
  DiagnosticLog log;
  for (int i = 0; i < 3; ++i) {
    log.Add("a");
    if (i == 1) log.Add("b\n");
  }
  auto const lines = log.Take();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].text, "a");
  EXPECT_EQ(lines[0].times, 3);
  EXPECT_EQ(lines[1].text, "b");
  EXPECT_EQ(lines[1].times, 1);
  EXPECT_TRUE(log.Take().empty());
  log.Add("a");
  EXPECT_EQ(log.Take().size(), 1u) << "what was taken is forgotten";
}

TEST(DiagnosticLog, OfManyLinesTheFirstAreKept) {
  DiagnosticLog log;
  for (int i = 0; i < 250; ++i) log.Add(std::to_string(i));
  log.Add("7");
  auto const lines = log.Take();
  ASSERT_EQ(lines.size(), DiagnosticLog::kMostLines + 1);
  EXPECT_EQ(lines[7].times, 2);
  EXPECT_EQ(lines[99].text, "99");
  EXPECT_EQ(lines[100].text, "and 150 more messages");
  EXPECT_EQ(log.Take().size(), 0u);
}

}  // namespace
}  // namespace fdo::tool
