#include "tools/quillon/console.h"

#include <gtest/gtest.h>

namespace fdo::tool {
namespace {

// What a console writes while it is used and when it ends.
template <class Use>
std::string Written(bool isTerminal, Use use) {
  std::FILE* const file = std::tmpfile();
  {
    Console console(file, isTerminal);
    use(console);
  }
  std::rewind(file);
  std::string text(1000, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), file));
  std::fclose(file);
  return text;
}

TEST(Console, IsPlainUnlessOnATerminal) {
  EXPECT_EQ(Written(false,
                    [](Console& console) {
                      EXPECT_FALSE(console.ProgressIsDue());
                      console.Progress("half");
                      console.Note("n");
                      console.Error("e");
                    }),
            "quillon: note: n\nquillon: e\n");
}

// A name in a file may be made to change the terminal.
TEST(Console, WritesNoControlsOfWhatItIsGiven) {
  EXPECT_EQ(Written(true,
                    [](Console& console) {
                      console.Error(
                          "a\x1b[2Jb\r\xc2\x9b"
                          "1mc\n\td \xc3\xa9");
                    }),
            "\x1b[31mquillon: \x1b[0ma [2Jb  1mc\n\td \xc3\xa9\n");
}

TEST(Console, ReplacesTheProgressLineOnATerminal) {
  EXPECT_EQ(Written(true,
                    [](Console& console) {
                      console.Progress("half");
                      console.Error("e");
                    }),
            "\r\x1b[Khalf\r\x1b[K\x1b[31mquillon: \x1b[0me\n");
  EXPECT_EQ(Written(true, [](Console& console) { console.Progress("half"); }), "\r\x1b[Khalf\r\x1b[K");
}

TEST(Console, ProgressIsDueAtMostTenTimesASecond) {
  Written(true, [](Console& console) {
    int due = 0;
    auto const begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(250))
      due += console.ProgressIsDue();
    EXPECT_GE(due, 2);
    EXPECT_LE(due, 3);
  });
}

}  // namespace
}  // namespace fdo::tool
