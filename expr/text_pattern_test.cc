#include "expr/text_pattern.h"

#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <string>

namespace fdo::internal {
namespace {

struct Case {
  wchar_t const* text;
  wchar_t const* pattern;
  bool matches;
};

constexpr Case kCases[] = {
    {L"abc", L"abc", true},     {L"abc", L"ABC", false},  {L"", L"", true},
    {L"", L"%", true},          {L"", L"_", false},       {L"a", L"", false},
    {L"abc", L"a%", true},      {L"abc", L"%c", true},    {L"abc", L"%b%", true},
    {L"abc", L"_b_", true},     {L"abc", L"__", false},   {L"abc", L"____", false},
    {L"abc", L"%a%b%c%", true}, {L"aab", L"%ab", true},   {L"abab", L"%ab", true},
    {L"abac", L"%ab", false},   {L"a%c", L"a%c", true},   {L"axxc", L"a%_c", true},
    {L"ac", L"a%_c", false},    {L"b", L"[abc]", true},   {L"d", L"[abc]", false},
    {L"d", L"[a-f]", true},     {L"g", L"[a-f]", false},  {L"d", L"[^abc]", true},
    {L"b", L"[^abc]", false},   {L"-", L"[a-]", true},    {L"-", L"[-a]", true},
    {L"]", L"[]a]", true},      {L"a", L"[^]a]", false},  {L"b", L"[^]a]", true},
    {L"%", L"[%]", true},       {L"x", L"[%]", false},    {L"[", L"[[]", true},
    {L"a[b", L"a[b", true},     {L"a[bc", L"a[b%", true}, {L"x1", L"[a-z][0-9]", true},
    {L"a*?", L"a*?", true},     {L"abc", L"a*", false},   {L"xbc", L"%[ab][bc]", true},
    {L"", L"[^a]", false},      {L"\x00E4", L"_", true},  {L"a\x00E4", L"a[\x00E0-\x00FF]", true},
    {L"^", L"[a^]", true},      {L"[]", L"[]", true},     {L"bc", L"[b-b]c", true},
};

TEST(TextPattern, EveryWildcard) {
  for (Case const& test : kCases) {
    EXPECT_EQ(MatchesPattern(test.text, test.pattern), test.matches)
        << ToUtf8(test.text) << " like " << ToUtf8(test.pattern);
  }
}

TEST(TextPattern, ACharacterInTwoUnitsIsOne) {
  wchar_t const pair[] = {0xD83D, 0xDE00, 0};
  EXPECT_TRUE(MatchesPattern(pair, L"_"));
  EXPECT_FALSE(MatchesPattern(pair, L"__"));
  EXPECT_TRUE(MatchesPattern(pair, pair));
}

// A pattern of many runs does not take exponential time.
TEST(TextPattern, ManyRuns) {
  std::wstring const text(20000, L'a');
  std::wstring pattern;
  for (int i = 0; i < 200; ++i) pattern += L"%a";
  EXPECT_FALSE(MatchesPattern(text.c_str(), (pattern + L"b").c_str()));
  EXPECT_TRUE(MatchesPattern(text.c_str(), pattern.c_str()));
}

}  // namespace
}  // namespace fdo::internal
