#include "tools/quillon/suggestion.h"

#include <gtest/gtest.h>

namespace fdo::tool {
namespace {

TEST(EditDistance, CountsEdits) {
  struct {
    wchar_t const *left, *right;
    int distance;
  } const cases[] = {
      {L"", L"", 0},      {L"", L"abc", 3},      {L"abc", L"abc", 0},   {L"abc", L"abd", 1},
      {L"abc", L"ab", 1}, {L"abc", L"xabc", 1},  {L"aera", L"area", 1}, {L"kitten", L"sitting", 3},
      {L"ab", L"ba", 1},  {L"abcd", L"badc", 2},
  };
  for (auto const& [left, right, distance] : cases) {
    EXPECT_EQ(EditDistance(left, right), distance) << testing::PrintToString(left);
    EXPECT_EQ(EditDistance(right, left), distance) << testing::PrintToString(left);
  }
}

TEST(Suggest, NamesWhatWasMostLikelyMeant) {
  std::vector<std::wstring> const columns = {L"id", L"area", L"population", L"Name"};
  EXPECT_EQ(Suggest(L"aera", columns), L"area");
  EXPECT_EQ(Suggest(L"AREA", columns), L"area") << "only the case is wrong";
  EXPECT_EQ(Suggest(L"populatoin", columns), L"population");
  EXPECT_EQ(Suggest(L"nmae", columns), L"Name");
}

TEST(Suggest, IsSilentWhenNothingIsClose) {
  std::vector<std::wstring> const columns = {L"id", L"area"};
  EXPECT_EQ(Suggest(L"geometry", columns), L"");
  EXPECT_EQ(Suggest(L"xy", columns), L"");
  EXPECT_EQ(Suggest(L"area", {}), L"");
}

}  // namespace
}  // namespace fdo::tool
