#include "tools/quillon/utf8.h"

#include <gtest/gtest.h>

namespace fdo::tool {
namespace {

struct Encoding {
  std::wstring wide;
  std::string utf8;
};

// A character above U+FFFF as one unit where there is room for it, and as its surrogates.
std::wstring Grin() {
  if constexpr (sizeof(wchar_t) == 2) {
    return {static_cast<wchar_t>(0xd83d), static_cast<wchar_t>(0xde00)};
  } else {
    return {static_cast<wchar_t>(0x1f600)};
  }
}
std::wstring const kGrinAsPair = {static_cast<wchar_t>(0xd83d), static_cast<wchar_t>(0xde00)};
std::wstring const kHighAlone = {static_cast<wchar_t>(0xd83d)};
std::wstring const kLowAlone = {static_cast<wchar_t>(0xde00)};
char const kGrinUtf8[] = "\xf0\x9f\x98\x80";
char const kReplacementUtf8[] = "\xef\xbf\xbd";

TEST(Utf8, EveryLengthOfSequence) {
  Encoding const cases[] = {
      {L"", ""},
      {L"A", "A"},
      {L"\x7f", "\x7f"},
      {L"\u0080", "\xc2\x80"},
      {L"\u07ff", "\xdf\xbf"},
      {L"\u0800", "\xe0\xa0\x80"},
      {L"\uffff", "\xef\xbf\xbf"},
      {Grin(), kGrinUtf8},
  };
  for (auto const& [wide, utf8] : cases) EXPECT_EQ(Utf8(wide), utf8);
}

TEST(Utf8, APairOfSurrogatesIsOneCharacterOfFourBytes) { EXPECT_EQ(Utf8(kGrinAsPair), kGrinUtf8); }

TEST(Utf8, ASurrogateAloneIsReplaced) {
  EXPECT_EQ(Utf8(kHighAlone), kReplacementUtf8);
  EXPECT_EQ(Utf8(kLowAlone), kReplacementUtf8);
  EXPECT_EQ(Utf8(kHighAlone + L"x"), std::string(kReplacementUtf8) + "x");
  EXPECT_EQ(Utf8(kLowAlone + kHighAlone), std::string(kReplacementUtf8) + kReplacementUtf8);
  EXPECT_EQ(Utf8(kHighAlone + kHighAlone + kLowAlone), std::string(kReplacementUtf8) + kGrinUtf8);
}

TEST(WideFromUtf8, IsTheInverse) {
  for (std::string const& text : {std::string(), std::string("abc"), std::string("S\xc3\xa3o \xe5\x8c\x97"),
                                  std::string(kGrinUtf8) + "x", std::string(kReplacementUtf8)}) {
    std::wstring wide;
    ASSERT_TRUE(WideFromUtf8(text, wide)) << text;
    EXPECT_EQ(Utf8(wide), text);
  }
}

TEST(WideFromUtf8, RefusesWhatIsNotUtf8) {
  std::wstring wide;
  char const* const cases[] = {"\x80",     "\xc3",         "\xc3(",        "\xe2\x82",
                               "\xc0\xaf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                               "\xff",     "Z\xfcrich"};
  for (char const* const text : cases) EXPECT_FALSE(WideFromUtf8(text, wide)) << testing::PrintToString(text);
}

TEST(DisplayWidth, CountsColumnsNotBytes) {
  EXPECT_EQ(DisplayWidth("abc"), 3);
  EXPECT_EQ(DisplayWidth("S\xc3\xa3o"), 3);
  EXPECT_EQ(DisplayWidth("e\xcc\x81"), 1) << "a letter and its combining accent";
  EXPECT_EQ(DisplayWidth("\xe5\x8c\x97\xe4\xba\xac"), 4) << "two wide characters";
}

}  // namespace
}  // namespace fdo::tool
