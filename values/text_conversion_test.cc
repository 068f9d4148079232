// Wide text to UTF-8 and back.
#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace fdo {
namespace {

constexpr int kUnit = static_cast<int>(sizeof(wchar_t));
constexpr bool kWideHoldsAnyCharacter = sizeof(wchar_t) > 2;

int BytesOf(std::wstring const& text) { return static_cast<int>(text.size()) * kUnit; }

std::string Encoded(std::wstring const& text) {
  std::string bytes(text.size() * 6 + 1, '#');
  int const length = WideToUtf8(text.data(), BytesOf(text), bytes.data(), static_cast<int>(bytes.size()));
  EXPECT_EQ(length, WideToUtf8(text.data(), BytesOf(text), nullptr, 0)) << "counted as written";
  EXPECT_GE(length, 0);
  EXPECT_EQ(0, bytes[static_cast<std::size_t>(length)]);
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

std::wstring Decoded(std::string const& bytes) {
  std::wstring text(bytes.size() + 1, L'#');
  int const length = Utf8ToWide(bytes.data(), static_cast<int>(bytes.size()), text.data(),
                                static_cast<int>(text.size()) * kUnit);
  EXPECT_GE(length, 0);
  EXPECT_EQ(0, length % kUnit);
  auto const units = static_cast<std::size_t>(length / kUnit);
  EXPECT_EQ(0, static_cast<int>(text[units]));
  text.resize(units);
  return text;
}

TEST(WideToUtf8, OneToThreeBytesAUnit) {
  struct {
    wchar_t unit;
    char const* bytes;
  } const cases[] = {
      {0x01, "\x01"},           {0x7F, "\x7F"},           {0x80, "\xC2\x80"},       {0xE9, "\xC3\xA9"},
      {0x7FF, "\xDF\xBF"},      {0x800, "\xE0\xA0\x80"},  {0x20AC, "\xE2\x82\xAC"}, {0xFFFF, "\xEF\xBF\xBF"},
      {0xD800, "\xED\xA0\x80"}, {0xDFFF, "\xED\xBF\xBF"},
  };
  for (auto const& c : cases) EXPECT_EQ(c.bytes, Encoded(std::wstring(1, c.unit))) << std::hex << int(c.unit);
}

TEST(WideToUtf8, CharactersBeyondSixteenBitsAreSixBytes) {
  EXPECT_EQ("\xED\xA0\xBD\xED\xB8\x80", Encoded(L"\U0001F600"));
  EXPECT_EQ("\xED\xA0\x80\xED\xB0\x80", Encoded(L"\U00010000"));
  EXPECT_EQ("\xED\xAF\xBF\xED\xBF\xBF", Encoded(L"\U0010FFFF"));
}

TEST(WideToUtf8, WhatIsNoCharacterIsReplaced) {
  if constexpr (kWideHoldsAnyCharacter) {
    EXPECT_EQ("\xEF\xBF\xBD", Encoded(std::wstring(1, static_cast<wchar_t>(0x110000))));
    EXPECT_EQ("\xEF\xBF\xBD", Encoded(std::wstring(1, static_cast<wchar_t>(-1))));
  }
}

TEST(WideToUtf8, StopsAtTheLengthOrAZero) {
  char bytes[16];
  EXPECT_EQ(2, WideToUtf8(L"abc", 2 * kUnit, bytes, sizeof(bytes)));
  EXPECT_STREQ("ab", bytes);
  EXPECT_EQ(1, WideToUtf8(L"a\0c", 3 * kUnit, bytes, sizeof(bytes)));
  EXPECT_STREQ("a", bytes);
  EXPECT_EQ(1, WideToUtf8(L"a\0c", 3 * kUnit, nullptr, 0));
  EXPECT_EQ(9, WideToUtf8(L"abcdefghi\0klmnopq", 17 * kUnit, bytes, sizeof(bytes)));
  EXPECT_EQ(0, WideToUtf8(L"abc", 0, bytes, sizeof(bytes)));
  EXPECT_STREQ("", bytes);
  EXPECT_EQ(0, WideToUtf8(L"abc", -4, bytes, sizeof(bytes)));
}

// Each room from one byte up, for texts whose units take 1, 2, 3 and 6 bytes.
TEST(WideToUtf8, OutputThatDoesNotFitIsCutBetweenUnits) {
  for (std::wstring const text : {L"abcdefghijklmnopqrst", L"\xE9\xE9\xE9", L"\x20AC\x20AC",
                                  L"\U0001F600"
                                  L"a",
                                  L"aaaaaaaaaa\xE9"
                                  L"aaaaaaaaa"}) {
    std::string const whole = Encoded(text);
    for (std::size_t room = 1; room <= whole.size() + 1; ++room) {
      std::vector<char> bytes(room, '#');  // exactly, so that a sanitizer sees a byte too many
      int const result = WideToUtf8(text.data(), BytesOf(text), bytes.data(), static_cast<int>(room));
      if (room == whole.size() + 1) {
        EXPECT_EQ(static_cast<int>(whole.size()), result);
        EXPECT_EQ(whole, bytes.data());
        continue;
      }
      EXPECT_EQ(-1, result);
      std::size_t const written = std::strlen(bytes.data());
      EXPECT_LT(written, room);
      EXPECT_LT(room - 1 - written, 3u) << "no more than the unit that does not fit is missing";
      EXPECT_EQ(whole.substr(0, written), bytes.data());
    }
  }
}

TEST(Utf8ToWide, SequencesOfOneToThreeBytes) {
  struct {
    char const* bytes;
    std::wstring text;
  } const cases[] = {
      {"a", L"a"},
      {"\xC3\xA9", L"\xE9"},
      {"\xE2\x82\xAC", L"\x20AC"},
      {"\xEF\xBF\xBF", L"\xFFFF"},
      {"\xED\xA0\xBD\xED\xB8\x80", L"\U0001F600"},  // two surrogates are one character again
      {"\xED\xA0\xBD"
       "a",
       std::wstring{wchar_t(0xD83D), L'a'}},
      {"\xED\xB8\x80", std::wstring{wchar_t(0xDE00)}},
      // Not UTF-8: continuation bytes are not checked, everything else from 0x80 up leads two bytes.
      {"\xC3(", std::wstring{wchar_t(0x3 << 6 | 0x28)}},
      {"\x80\x81", std::wstring{wchar_t(0x01)}},
      {"\xBF"
       "A",
       std::wstring{wchar_t(0x1F << 6 | 0x01)}},
      {"\xF0\x9F\x98\x80", std::wstring{wchar_t(0x10 << 6 | 0x1F), wchar_t(0x18 << 6 | 0x00)}},
      {"\xFF\xFF", std::wstring{wchar_t(0x1F << 6 | 0x3F)}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.text, Decoded(c.bytes)) << c.bytes;
}

TEST(Utf8ToWide, ASequenceCutShortReadsZeros) {
  EXPECT_EQ(std::wstring{wchar_t(0x3 << 6)}, Decoded("\xC3"));
  EXPECT_EQ(std::wstring{wchar_t(0x2 << 12)}, Decoded("\xE2"));
  EXPECT_EQ(std::wstring{wchar_t(0x2 << 12 | 0x2 << 6)}, Decoded("\xE2\x82"));
  EXPECT_EQ(std::wstring{wchar_t(0x3 << 6)}, ToWide("\xC3"));
}

TEST(Utf8ToWide, StopsAtTheLengthOrAZero) {
  EXPECT_EQ(L"ab", Decoded(std::string("ab\0cd", 5)));
  EXPECT_EQ(L"abcdefghij", Decoded(std::string("abcdefghij\0cdefgh", 17)));
  EXPECT_EQ(L"", Decoded(""));
  wchar_t text[4];
  EXPECT_EQ(2 * kUnit, Utf8ToWide("abc", 2, text, sizeof(text)));
  EXPECT_STREQ(L"ab", text);
  EXPECT_EQ(0, Utf8ToWide("abc", -1, text, sizeof(text)));
}

TEST(Utf8ToWide, OutputThatDoesNotFitIsCut) {
  for (std::string const bytes : {"abcdefghijklmnopqrst", "\xC3\xA9\xC3\xA9",
                                  "\xE2\x82\xAC"
                                  "abcdefghijk"}) {
    std::wstring const whole = Decoded(bytes);
    for (std::size_t room = 1; room <= whole.size() + 1; ++room) {
      std::vector<wchar_t> text(room, L'#');
      int const result =
          Utf8ToWide(bytes.data(), static_cast<int>(bytes.size()), text.data(), int(room) * kUnit);
      EXPECT_EQ(room == whole.size() + 1 ? BytesOf(whole) : -1, result);
      EXPECT_EQ(whole.substr(0, room - 1), text.data());
    }
  }
}

TEST(Utf8ToWide, RoomOfHalfAUnitDoesNotCount) {
  wchar_t text[3] = {L'#', L'#', L'#'};
  EXPECT_EQ(-1, Utf8ToWide("abc", 3, text, 3 * kUnit - 1));
  EXPECT_STREQ(L"a", text);
}

TEST(TextConversion, EveryUnitMakesTheRoundTrip) {
  for (std::uint32_t unit = 1; unit <= 0xFFFF; ++unit) {
    std::wstring const text(1, static_cast<wchar_t>(unit));
    ASSERT_EQ(text, Decoded(Encoded(text))) << std::hex << unit;
  }
  for (std::uint32_t character = 0x10000; kWideHoldsAnyCharacter && character <= 0x10FFFF; ++character) {
    std::wstring const text(1, static_cast<wchar_t>(character));
    ASSERT_EQ(text, Decoded(Encoded(text))) << std::hex << character;
  }
}

// Whatever the blocks of plain letters are cut at.
TEST(TextConversion, MixedTextMakesTheRoundTrip) {
  std::mt19937 random(13);
  wchar_t const others[] = {0x80, 0xE9, 0x7FF, 0x800, 0x20AC, 0xFFFD};
  for (int i = 0; i < 20000; ++i) {
    std::wstring text;
    for (auto length = random() % 60; length > 0; --length) {
      text += random() % 12 == 0 ? others[random() % std::size(others)]
                                 : static_cast<wchar_t>(L' ' + random() % 90);
    }
    std::string const bytes = Encoded(text);
    ASSERT_EQ(text, Decoded(bytes)) << "seed 13";
    ASSERT_EQ(bytes, ToUtf8(text.c_str()));
    ASSERT_EQ(text, ToWide(bytes.c_str()));
  }
}

TEST(TextConversion, NullIsEmpty) {
  EXPECT_EQ("", ToUtf8(nullptr));
  EXPECT_EQ(L"", ToWide(nullptr));
}

}  // namespace
}  // namespace fdo
