// The claims about writing.
#include <gmock/gmock.h>

#include <algorithm>

#include "testing/table_contract.h"

namespace fdo {
namespace {

using ::testing::ElementsAreArray;
using ::testing::SizeIs;

ContractRow const kNew = {4711, L"new", 2.5, "LINESTRING (1 2, 3 2)"};

void ExpectNew(ScannedRow const& row) {
  EXPECT_EQ(row.n, kNew.n);
  EXPECT_EQ(row.name, kNew.name);
  EXPECT_EQ(row.x, kNew.x);
  EXPECT_EQ(row.box, (std::array<double, 4>{1, 2, 3, 2}));
}

// The last row of that number.
__int64 IdOf(__int64 n, std::vector<ScannedRow> const& rows) {
  __int64 id = -1;
  for (ScannedRow const& row : rows) {
    if (row.n == n) id = row.id;
  }
  return id;
}

TEST_P(TableContract, AnInsertedRowReadsBack) {
  Make(RandomContractRows(), Access::kWrite);
  std::vector<ScannedRow> const before = All();
  Row row(Town().Def());
  SetContractRow(row, kNew);
  __int64 id = -5;
  ASSERT_TRUE(Town().Insert(row, &id, /*storeMakesId=*/true));
  if (!GetParam().tellsNewId) {
    EXPECT_EQ(id, 0);
    id = IdOf(kNew.n, All());
  }
  EXPECT_TRUE(std::none_of(before.begin(), before.end(), [&](ScannedRow const& old) { return old.id == id; }))
      << "a new identity, not " << id;
  Row const* const found = Town().Query(id);
  ASSERT_NE(found, nullptr);
  ExpectNew(Scanned(*found));
  EXPECT_TRUE(Town().Insert(row, nullptr, /*storeMakesId=*/true)) << "nobody need ask for the identity";
  EXPECT_THAT(All(), SizeIs(before.size() + 2));
}

TEST_P(TableContract, ATableTakesTheRowThatItShows) {
  Make({kNew, {1, L"other", 1.0, "LINESTRING (5 5, 6 6)"}}, Access::kWrite);
  std::vector<ScannedRow> const before = All();
  auto const shown =
      std::find_if(before.begin(), before.end(), [](auto const& row) { return row.n == kNew.n; });
  Row const* const row = Town().Query(shown->id);
  ASSERT_NE(row, nullptr);
  __int64 id = -5;
  ASSERT_TRUE(Town().Insert(*row, &id, /*storeMakesId=*/true));
  EXPECT_EQ(Town().Next(), nullptr) << "a query by identity has one row";
  if (!GetParam().tellsNewId) id = IdOf(kNew.n, All());
  EXPECT_NE(id, shown->id);
  Row const* const found = Town().Query(id);
  ASSERT_NE(found, nullptr);
  ExpectNew(Scanned(*found));
  EXPECT_THAT(All(), SizeIs(3));
}

TEST_P(TableContract, DeleteByIdRemovesExactlyThatRow) {
  Make(RandomContractRows(), Access::kWrite);
  std::vector<ScannedRow> const before = All();
  __int64 const id = before[7].id;
  EXPECT_TRUE(Town().Delete(id));
  EXPECT_EQ(Town().Query(id), nullptr);
  EXPECT_FALSE(Town().Delete(id)) << "it is gone";
  EXPECT_FALSE(Town().Delete(static_cast<__int64>(123456)));
  std::vector<ScannedRow> expected = before;
  expected.erase(expected.begin() + 7);
  if (!GetParam().deleteKeepsIds) {
    for (std::size_t i = 0; i < expected.size(); ++i) expected[i].id = before[i].id;
  }
  EXPECT_THAT(All(), ElementsAreArray(expected));
  EXPECT_EQ(Town().GetRowCount(nullptr, true), static_cast<__int64>(expected.size()));
}

TEST_P(TableContract, DeleteByFilterRemovesWhatMatches) {
  if (!GetParam().deletesByFilter)
    GTEST_SKIP() << "rows of a store of this kind cannot be deleted by a filter";
  Make(RandomContractRows(), Access::kWrite);
  std::vector<ScannedRow> const expected = AllWhere([](ScannedRow const& row) { return row.n >= 0; });
  auto const rows = static_cast<__int64>(RandomContractRows().size());
  EXPECT_EQ(Town().Delete(ParsedFilter(L"n < 0")), rows - static_cast<__int64>(expected.size()));
  EXPECT_THAT(All(), ElementsAreArray(expected));
  EXPECT_EQ(Town().Delete(ParsedFilter(L"n < 0")), 0);
}

TEST_P(TableContract, UpdateByIdChangesThatRowOrNothing) {
  Make(RandomContractRows(), Access::kWrite);
  std::vector<ScannedRow> const before = All();
  __int64 const id = before[7].id;
  Row row(Town().Def());
  SetContractRow(row, kNew);
  EXPECT_EQ(Town().Update(row, id), GetParam().updatesById);
  EXPECT_FALSE(Town().Update(row, static_cast<__int64>(123456)));
  std::vector<ScannedRow> const after = All();
  ASSERT_THAT(after, SizeIs(before.size()));
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i].id == id && GetParam().updatesById) {
      ExpectNew(after[i]);
    } else {
      EXPECT_EQ(after[i], before[i]);
    }
  }
}

TEST_P(TableContract, UpdateByFilterChangesWhatMatchesOrTheRowOfTheRowsId) {
  Make(RandomContractRows(), Access::kWrite);
  std::vector<ScannedRow> const before = All();
  Row const* const found = Town().Query(before[7].id);
  ASSERT_NE(found, nullptr);
  Row row(*found);
  Town().EndQuery();
  SetContractRow(row, kNew);
  auto const changes = [&](ScannedRow const& old) {
    return GetParam().updateHeedsFilter ? old.n < 0 : old.id == before[7].id;
  };
  __int64 const expected = std::count_if(before.begin(), before.end(), changes);
  EXPECT_EQ(Town().Update(row, ParsedFilter(L"n < 0")), expected);
  std::vector<ScannedRow> const after = All();
  ASSERT_THAT(after, SizeIs(before.size()));
  for (ScannedRow const& old : before) {
    auto const now =
        std::find_if(after.begin(), after.end(), [&](ScannedRow const& row) { return row.id == old.id; });
    ASSERT_NE(now, after.end()) << old;
    if (changes(old)) {
      ExpectNew(*now);
    } else {
      EXPECT_EQ(*now, old);
    }
  }
}

}  // namespace
}  // namespace fdo
