// The index by name that definitions share.
#include "values/name_index.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace fdo::internal {
namespace {

// Borrowed: names.
NameIndex IndexOf(std::vector<std::wstring> const& names) {
  return NameIndex(static_cast<int>(names.size()),
                   [&](int i) { return names[static_cast<std::size_t>(i)].c_str(); });
}

TEST(NameIndex, FindsExactNamesOnly) {
  std::vector<std::wstring> const names = {L"id", L"Name", L"name", L"", L"\x4E2D", L"names"};
  NameIndex const index = IndexOf(names);
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(static_cast<int>(i), index.Find(names[i].c_str()));
  for (wchar_t const* absent : {L"ID", L"nam", L"nameS", L"x", L"\x4E2E"})
    EXPECT_EQ(-1, index.Find(absent)) << absent;
}

TEST(NameIndex, EmptyIndexFindsNothing) {
  NameIndex const index = IndexOf({});
  EXPECT_EQ(-1, index.Find(L""));
  EXPECT_EQ(-1, index.Find(L"a"));
}

TEST(NameIndex, EqualNamesGiveTheFirstWhateverWasAskedBefore) {
  std::vector<std::wstring> const names = {L"parcel", L"pipe", L"parcel", L"path"};
  NameIndex const index = IndexOf(names);
  for (wchar_t const* before : {L"parcel", L"pipe", L"path", L"absent"}) {
    index.Find(before);
    EXPECT_EQ(0, index.Find(L"parcel")) << "after " << before;
  }
}

// "a" and "q" are 16 letters apart and share a bucket.
TEST(NameIndex, LookupsInAnyOrderAreThoseOfAFreshIndex) {
  std::vector<std::wstring> names;
  for (int i = 0; i < 200; ++i)
    names.push_back(std::wstring(1, wchar_t(L'a' + i % 26)) + std::to_wstring(i % 170));
  NameIndex const index = IndexOf(names);
  std::map<std::wstring, int> model;
  for (std::size_t i = 0; i < names.size(); ++i) model.emplace(names[i], static_cast<int>(i));
  std::mt19937 random(17);
  for (int step = 0; step < 20000; ++step) {
    std::wstring name = names[random() % names.size()];
    if (random() % 4 == 0) name += L"x";
    auto const found = model.find(name);
    int const expected = found == model.end() ? -1 : found->second;
    for (auto repeat = 1 + random() % 3; repeat > 0; --repeat)
      ASSERT_EQ(expected, index.Find(name.c_str())) << "seed 17";
  }
}

}  // namespace
}  // namespace fdo::internal
