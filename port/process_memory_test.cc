#include "port/process_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace fdo::port {
namespace {

TEST(ResidentBytes, GrowsByWhatIsTouched) {
  constexpr std::int64_t kBlock = 64 << 20;
  std::int64_t const before = ResidentBytes();
  ASSERT_GT(before, 0);
  std::unique_ptr<char[]> const block(new char[kBlock]);
  std::memset(block.get(), 1, kBlock);
  std::int64_t const growth = ResidentBytes() - before;
  EXPECT_GT(growth, kBlock * 9 / 10);
  EXPECT_EQ(block[kBlock / 2], 1);
}

}  // namespace
}  // namespace fdo::port
