#include "tools/quillon/diagnostic_log.h"

#include <gtest/gtest.h>

#include "access/diagnostics.h"

namespace fdo::tool {
namespace {

TEST(DiagnosticLog, ALineThatComesAgainIsKeptOnce) {
  DiagnosticLog log;
  for (int i = 0; i < 3; ++i) {
    ReportLine("a");
    if (i == 1) ReportLine("b\n");
  }
  auto const lines = log.Take();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].text, "a");
  EXPECT_EQ(lines[0].times, 3);
  EXPECT_EQ(lines[1].text, "b");
  EXPECT_EQ(lines[1].times, 1);
  EXPECT_TRUE(log.Take().empty());
  ReportLine("a");
  EXPECT_EQ(log.Take().size(), 1u) << "what was taken is forgotten";
}

TEST(DiagnosticLog, OfManyLinesTheFirstAreKept) {
  DiagnosticLog log;
  for (int i = 0; i < 250; ++i) ReportLine(std::to_string(i).c_str());
  ReportLine("7");
  auto const lines = log.Take();
  ASSERT_EQ(lines.size(), DiagnosticLog::kMostLines + 1);
  EXPECT_EQ(lines[7].times, 2);
  EXPECT_EQ(lines[99].text, "99");
  EXPECT_EQ(lines[100].text, "and 150 more messages");
  EXPECT_EQ(log.Take().size(), 0u);
}

}  // namespace
}  // namespace fdo::tool
