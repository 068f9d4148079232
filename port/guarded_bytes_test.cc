#include "port/guarded_bytes.h"

#include <gtest/gtest.h>

#include <cstring>

#include "port/small_stack.h"

namespace fdo::port {
namespace {

TEST(GuardedBytes, LastBytesCanBeWrittenAndRead) {
  for (std::size_t const size : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, std::size_t{10000}}) {
    GuardedBytes const memory(size);
    std::memset(memory.Last(size), 7, size);
    if (size > 0) {
      EXPECT_EQ(memory.End()[-1], 7);
    }
  }
}

TEST(GuardedBytesDeathTest, TheByteAfterThemStopsTheProgram) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  GuardedBytes const memory(16);
  unsigned char const volatile* const past = memory.End();
  EXPECT_DEATH({ [[maybe_unused]] unsigned char const byte = *past; }, "");
}

TEST(SmallStack, BodyRunsOnceBeforeTheCallReturns) {
  int runs = 0;
  RunOnStack(
      256 * 1024, [](void* context) { ++*static_cast<int*>(context); }, &runs);
  EXPECT_EQ(runs, 1);
}

}  // namespace
}  // namespace fdo::port
