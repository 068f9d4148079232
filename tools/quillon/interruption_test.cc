#include "tools/quillon/interruption.h"

#include <gtest/gtest.h>

#include <csignal>
#include <vector>

#include "port/console.h"

namespace fdo::tool {
namespace {

TEST(InterruptionWatch, RemembersEveryRequest) {
  std::vector<int> const requests = port::RequestsToEnd();
  EXPECT_EQ(requests.size(), 3u);
  for (int const request : requests) {
    InterruptionWatch const watch;
    EXPECT_FALSE(watch.Happened());
    std::raise(request);
    EXPECT_TRUE(watch.Happened());
  }
}

TEST(InterruptionWatch, LeavesTheOldHandlers) {
  for (int const request : port::RequestsToEnd()) {
    std::signal(request, SIG_IGN);
    {
      InterruptionWatch const watch;
      std::raise(request);
      EXPECT_FALSE(watch.Happened()) << "what is ignored stays so";
    }
    EXPECT_EQ(std::signal(request, SIG_DFL), SIG_IGN);
  }
}

}  // namespace
}  // namespace fdo::tool
