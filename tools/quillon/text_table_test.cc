#include "tools/quillon/text_table.h"

#include <gtest/gtest.h>

namespace fdo::tool {
namespace {

TEST(TextTable, AlignsUnderTheNames) {
  TextTable table;
  table.AddColumn("id", Align::kRight);
  table.AddColumn("name", Align::kLeft);
  table.AddColumn("x", Align::kRight);
  std::vector<std::vector<std::string>> const lines = {{"1", "S\xc3\xa3o Paulo", "-0.5"}, {"177", "", "1"}};
  for (auto const& line : lines) table.Measure(line);
  std::string text = table.Header();
  for (auto const& line : lines) text += table.Line(line);
  EXPECT_EQ(text,
            " id  name          x\n"
            "---  ---------  ----\n"
            "  1  S\xc3\xa3o Paulo  -0.5\n"
            "177                1\n");
}

TEST(TextTable, ALongCellEndsWithAnEllipsis) {
  TextTable table;
  table.AddColumn("text", Align::kLeft);
  table.Measure({std::string(100, 'a')});
  EXPECT_EQ(table.Line({std::string(40, 'a')}), std::string(40, 'a') + "\n");
  EXPECT_EQ(table.Line({std::string(41, 'a')}), std::string(39, 'a') + "\xe2\x80\xa6\n");
}

TEST(TextTable, AWideCharacterIsNotCutInHalf) {
  TextTable table;
  table.AddColumn("abc", Align::kLeft);
  EXPECT_EQ(table.Line({"\xe5\x8c\x97\xe4\xba\xac"}), "\xe5\x8c\x97\xe2\x80\xa6\n");
}

TEST(TextTable, ControlCharactersDoNotReachTheTerminal) {
  TextTable table;
  table.AddColumn("abcdefghijkl", Align::kLeft);
  EXPECT_EQ(table.Line({"a\x1b[1m\nb\x7f"
                        "c\xc2\x9b"
                        "d"}),
            "a [1m b c d\n");
}

}  // namespace
}  // namespace fdo::tool
