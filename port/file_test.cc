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

TEST(File, WritePermissionByWideName) {
  std::filesystem::path const path =
      std::filesystem::path(testing::TempDir()) / std::filesystem::path(u8"wr\u00EFte-\u65E5-\U0001F600.bin");
  std::u32string const text = path.u32string();
  std::wstring name;
  for (char32_t const character : text) {
    if (sizeof(wchar_t) == 2 && character > 0xFFFF) {
      name += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
      name += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
      name += static_cast<wchar_t>(character);
    }
  }
  EXPECT_FALSE(MayWriteFile(name.c_str())) << "missing";
  std::u8string const utf8 = path.u8string();
  std::FILE* file = OpenFile(std::string(utf8.begin(), utf8.end()), "wb");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(MayWriteFile(name.c_str()));
  std::filesystem::remove(path);
}

TEST(File, TextThatIsNoNameCannotBeWritten) {
  wchar_t const half[] = {L'/', static_cast<wchar_t>(0xD800), L'x', 0};
  EXPECT_FALSE(MayWriteFile(half));
  EXPECT_FALSE(MayWriteFile(L""));
}

TEST(File, AnUnsetVariableIsEmpty) { EXPECT_EQ(EnvironmentVariable("QUILLON_NO_SUCH_VARIABLE"), ""); }

}  // namespace
}  // namespace fdo::port
