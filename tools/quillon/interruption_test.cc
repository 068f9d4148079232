#include "tools/quillon/interruption.h"

#include <gtest/gtest.h>

#include <csignal>

namespace fdo::tool {
namespace {

TEST(InterruptionWatch, RemembersBothRequests) {
  for (int const request : {SIGINT, SIGTERM}) {
    InterruptionWatch const watch;
    EXPECT_FALSE(watch.Happened());
    std::raise(request);
    EXPECT_TRUE(watch.Happened());
  }
}

TEST(InterruptionWatch, LeavesTheOldHandlers) {
  std::signal(SIGTERM, SIG_IGN);
  { InterruptionWatch const watch; }
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_IGN);
}

}  // namespace
}  // namespace fdo::tool
