#include "port/file.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fdo::port {
namespace {

TEST(File, NamesPositionsAndLengths) {
  std::filesystem::path const path =
      std::filesystem::path(testing::TempDir()) / std::filesystem::path(u8"stra\u00DFe-\u65E5.bin");
  std::u8string const name = path.u8string();
  std::string const utf8(name.begin(), name.end());
  std::FILE* file = OpenFile(utf8, "w+b");
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(std::fputs("0123456789", file) >= 0, true);
  EXPECT_EQ(FilePosition(file), 10);
  EXPECT_TRUE(SetFilePosition(file, 4));
  EXPECT_EQ(std::fgetc(file), '4');
  EXPECT_TRUE(CutFile(file, 6));
  std::fclose(file);
  EXPECT_EQ(std::filesystem::file_size(path), 6u);
  std::filesystem::remove(path);
  EXPECT_EQ(OpenFile(utf8, "rb"), nullptr);
}

TEST(File, AnUnsetVariableIsEmpty) { EXPECT_EQ(EnvironmentVariable("QUILLON_NO_SUCH_VARIABLE"), ""); }

}  // namespace
}  // namespace fdo::port
