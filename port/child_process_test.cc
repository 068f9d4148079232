#include "port/child_process.h"

#include <gtest/gtest.h>

namespace fdo::port {
namespace {

// CMake runs on every platform that this is built on.
constexpr char kProgram[] = QUILLON_TEST_CMAKE_COMMAND;

TEST(RunChild, GivesOutputAndExitCode) {
  ChildResult const result = RunChild(kProgram, {"-E", "echo", "one two", "three"});
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output.substr(0, 13), "one two three");
}

TEST(RunChild, GivesTheExitCodeOfAFailure) {
  ChildResult const result = RunChild(kProgram, {"-E", "false"});
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "");
}

TEST(RunChild, AMissingProgramDoesNotStart) {
  ChildResult const result = RunChild(std::string(kProgram) + "-that-is-not-there", {});
  EXPECT_FALSE(result.started);
  EXPECT_EQ(result.exitCode, -1);
}

TEST(BesideChild, IsEndedWhileItRuns) {
  BesideChild child(kProgram, {"-E", "sleep", "100"});
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
