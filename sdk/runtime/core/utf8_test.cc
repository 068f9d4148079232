#include "sdk/runtime/core/utf8.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fdo_sdk {
namespace {

struct Claim {
  std::wstring wide;
  std::string utf8;
};

std::vector<Claim> const& Claims() {
  static std::vector<Claim> const claims = {
      {L"", ""},
      {L"a", "a"},
      {L"seventy-seven letters", "seventy-seven letters"},
      {L"\x7F\x80\x7FF\x800\xFFFD", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD"},
      {L"1234567\xE9", "1234567\xC3\xA9"},
      {L"12345678\xE9", "12345678\xC3\xA9"},
      {L"12345678abcdefg\xE9", "12345678abcdefg\xC3\xA9"},
      {L"\xE9"
       L"12345678",
       "\xC3\xA9"
       "12345678"},
      {L"\U0001F600 and \U0010FFFF", "\xF0\x9F\x98\x80 and \xF4\x8F\xBF\xBF"},
      {std::wstring(L"a\0b", 3), std::string("a\0b", 3)},
  };
  return claims;
}

TEST(Utf8, ThereAndBack) {
  for (Claim const& claim : Claims()) {
    bool malformed = false;
    EXPECT_EQ(Utf8FromWide(claim.wide, &malformed), claim.utf8);
    EXPECT_EQ(WideFromUtf8(claim.utf8, &malformed), claim.wide);
    EXPECT_FALSE(malformed) << claim.utf8;
  }
}

TEST(AppendUtf8, LeavesWhatIsThere) {
  for (Claim const& claim : Claims()) {
    std::string out = "before";
    AppendUtf8(out, claim.wide);
    EXPECT_EQ(out, "before" + claim.utf8);
  }
}

TEST(DecodeUtf8, WritesAtMostAsManyUnitsAsThereAreBytes) {
  for (Claim const& claim : Claims()) {
    std::vector<wchar_t> out(claim.utf8.size() + 1, L'#');
    std::size_t const units = DecodeUtf8(claim.utf8, out.data());
    EXPECT_EQ(std::wstring(out.data(), units), claim.wide);
    EXPECT_EQ(out.back(), L'#');
  }
}

TEST(DecodeUtf8, WhatIsMalformedIsReplaced) {
  struct {
    char const* utf8;
    wchar_t const* wide;
  } const claims[] = {{"a\xFFz", L"a\xFFFDz"},
                      {"\xC3", L"\xFFFD"},
                      {"\xC0\x80", L"\xFFFD"},
                      {"\xE2\x82", L"\xFFFD"},
                      {"\xED\xA0\x80", L"\xFFFD"},
                      {"\xF4\x90\x80\x80", L"\xFFFD"},
                      {"12345678\x80", L"12345678\xFFFD"}};
  for (auto const& claim : claims) {
    bool malformed = false;
    EXPECT_EQ(WideFromUtf8(claim.utf8, &malformed), claim.wide);
    EXPECT_TRUE(malformed);
  }
}

TEST(AppendUtf8, SurrogatesAloneAreReplaced) {
  bool malformed = false;
  EXPECT_EQ(Utf8FromWide(std::wstring(1, static_cast<wchar_t>(0xD800)) + L"z", &malformed), "\xEF\xBF\xBDz");
  EXPECT_TRUE(malformed);
}

}  // namespace
}  // namespace fdo_sdk
