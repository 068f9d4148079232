#include "port/child_process.h"

#include <gtest/gtest.h>

namespace fdo::port {
namespace {

constexpr char kProgram[] = QUILLON_CHILD_PROGRAM;

TEST(RunChild, GivesOutputAndExitCode) {
  ChildResult const result = RunChild(kProgram, {"say", "one two", "stra\u00DFe-\u65E5"});
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, "one two\nstra\u00DFe-\u65E5\n");
}

TEST(RunChild, GivesTheExitCodeOfAFailure) {
  ChildResult const result = RunChild(kProgram, {"fail"});
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.output, "");
}

TEST(RunChild, AMissingProgramDoesNotStart) {
  ChildResult const result = RunChild(std::string(kProgram) + "-that-is-not-there", {});
  EXPECT_FALSE(result.started);
  EXPECT_EQ(result.exitCode, -1);
}

TEST(BesideChild, IsEndedWhileItRuns) {
  BesideChild child(kProgram, {"wait"});
  ASSERT_TRUE(child.Started());
  EXPECT_TRUE(child.Kill());
  EXPECT_FALSE(child.Kill()) << "it is gone";
}

TEST(BesideChild, AMissingProgramDoesNotStart) {
  BesideChild child(std::string(kProgram) + "-that-is-not-there", {});
  EXPECT_FALSE(child.Started());
  EXPECT_FALSE(child.Kill());
}

}  // namespace
}  // namespace fdo::port
