// The claims about queries, cursors and the database, in the order of the headers.
#include "testing/table_contract.h"

#include <fdo/text_conversion.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <stdexcept>
#include <string_view>

namespace fdo {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::SizeIs;

FdoPtr<FdoFilter> ParsedFilter(wchar_t const* text) {
  return text == nullptr ? nullptr : FdoFilter::Parse(text);
}

void TableContract::Make(std::vector<ContractRow> const& rows, Access access) {
  store_ = GetParam().make(GetParam(), rows, access);
  ASSERT_NE(store_, nullptr);
  town_ = store_->Db()[L"town"];
  ASSERT_NE(town_, nullptr);
}

std::vector<ScannedRow> TableContract::All() {
  town_->Query();
  return Rest();
}

namespace {

constexpr int const* kAllColumns = nullptr;

// A way to start a query that gives some of the random rows, and which these are.
struct Start {
  char const* name;
  std::function<void(Table&)> query;
  std::function<bool(ScannedRow const&)> accepts;
};

constexpr double kBox[] = {20, 20, 70, 60};

// Requires: the ids of the two rows are in ascending order.
std::vector<Start> Starts(__int64 first, __int64 last) {
  return {
      {"Query()", [](Table& table) { table.Query(); }, [](ScannedRow const&) { return true; }},
      {"Query(filter)", [](Table& table) { table.Query(ParsedFilter(L"n >= 10"), nullptr, true); },
       [](ScannedRow const& row) { return row.n >= 10; }},
      {"Query(box)", [](Table& table) { table.Query(kBox, nullptr); },
       [](ScannedRow const& row) { return BoxesMeet(row.box, kBox); }},
      {"QueryRange", [=](Table& table) { table.QueryRange(first, last); },
       [=](ScannedRow const& row) { return first <= row.id && row.id < last; }},
  };
}

// --- Queries -------------------------------------------------------------------------------------

TEST_P(TableContract, QueryGivesEveryRowOnceInOrder) {
  std::vector<ContractRow> const rows = RandomContractRows();
  Make(rows);
  std::vector<ScannedRow> found = All();
  ASSERT_THAT(found, SizeIs(rows.size()));
  std::set<__int64> ids;
  for (ScannedRow const& row : found) EXPECT_TRUE(ids.insert(row.id).second) << "twice: " << row;
  std::map<__int64, ScannedRow> byNumber;
  for (ScannedRow const& row : found) byNumber.emplace(row.n, row);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ASSERT_EQ(byNumber.count(rows[i].n), 1u) << rows[i].n;
    ScannedRow const& row = byNumber.at(rows[i].n);
    EXPECT_EQ(row.name, rows[i].name || GetParam().nullText ? rows[i].name : L"") << row;
    EXPECT_EQ(row.x, rows[i].x) << row;
    EXPECT_LT(row.box[0], row.box[2]) << row;
    EXPECT_EQ(row.box[1], row.box[3]) << row;
  }
  bool const asWritten =
      std::equal(found.begin(), found.end(), rows.begin(),
                 [](ScannedRow const& row, ContractRow const& written) { return row.n == written.n; });
  EXPECT_EQ(asWritten, GetParam().ownOrder);
  EXPECT_THAT(All(), ElementsAreArray(found)) << "the same when asked again";
}

TEST_P(TableContract, NextStaysNullAfterTheEnd) {
  Make(RandomContractRows());
  EXPECT_EQ(Town().Next(), nullptr) << "before any query";
  All();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Town().Next(), nullptr);
}

TEST_P(TableContract, AQueryReplacesTheRunningOne) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  std::vector<Start> const starts = Starts(all[3].id, all[30].id);
  for (Start const& first : starts) {
    for (Start const& second : starts) {
      SCOPED_TRACE(std::string(first.name) + ", then " + second.name);
      bool const inBox = GetParam().filterKeepsBox && std::string_view(first.name) == "Query(box)" &&
                         std::string_view(second.name) == "Query(filter)";
      std::vector<ScannedRow> const expected = AllWhere(
          [&](ScannedRow const& row) { return second.accepts(row) && (!inBox || first.accepts(row)); });
      ASSERT_THAT(expected, Not(IsEmpty()));
      first.query(Town());
      ASSERT_NE(Town().Next(), nullptr);
      second.query(Town());
      EXPECT_THAT(Rest(), ElementsAreArray(expected));
    }
  }
}

TEST_P(TableContract, QueryByIdFindsExactlyThatRow) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  __int64 greatest = 0;
  for (ScannedRow const& row : all) {
    Row const* const found = Town().Query(row.id);
    ASSERT_NE(found, nullptr) << row;
    EXPECT_EQ(Scanned(*found), row);
    EXPECT_EQ(found, &Town().At());
    EXPECT_EQ(Town().Next(), nullptr) << "there is no second";
    greatest = std::max(greatest, row.id);
  }
  EXPECT_EQ(Town().Query(greatest + 1), nullptr);
  EXPECT_EQ(Town().Query(-1), nullptr);
  EXPECT_EQ(Town().Next(), nullptr);
}

TEST_P(TableContract, QueryRangeIsHalfOpen) {
  Make(RandomContractRows());
  std::vector<__int64> ids;
  for (ScannedRow const& row : All()) ids.push_back(row.id);
  std::sort(ids.begin(), ids.end());
  struct Range {
    __int64 first, last;
    std::size_t rows;
  };
  __int64 const low = ids.front();
  __int64 const high = ids.back();
  Range const ranges[] = {
      {ids[4], ids[9], 5},
      {ids[4], ids[4], 0},
      {ids[4], ids[4] + 1, 1},
      {ids[9], ids[4], 0},
      {low, high, ids.size() - 1},
      {low, high + 1, ids.size()},
      {low - 5, high + 5000, ids.size()},
      {high + 1, high + 9, 0},
      {low - 9, low, 0},
  };
  for (Range const& range : ranges) {
    SCOPED_TRACE(std::to_string(range.first) + " to " + std::to_string(range.last));
    std::vector<ScannedRow> const expected =
        AllWhere([&](ScannedRow const& row) { return range.first <= row.id && row.id < range.last; });
    ASSERT_THAT(expected, SizeIs(range.rows));
    Town().QueryRange(range.first, range.last);
    EXPECT_THAT(Rest(), ElementsAreArray(expected));
  }
}

TEST_P(TableContract, ABoxSelectsTheRowsItMeets) {
  Make(RandomContractRows());
  // Whole numbers, so that boxes touch geometries; the last ones hold all and none.
  double const boxes[][4] = {{20, 20, 70, 60}, {0, 0, 50, 50},     {33, 0, 33, 99},
                             {50, 50, 99, 99}, {-5, -5, 200, 200}, {500, 500, 600, 600}};
  std::size_t most = 0;
  for (double const* box : boxes) {
    std::vector<ScannedRow> const expected =
        AllWhere([&](ScannedRow const& row) { return BoxesMeet(row.box, box); });
    most = std::max(most, expected.size());
    Town().Query(box, nullptr);
    EXPECT_THAT(Rest(), ElementsAreArray(expected)) << box[0] << ' ' << box[1];
  }
  EXPECT_EQ(most, All().size());
}

TEST_P(TableContract, ABoxAndAFilterBothHold) {
  Make(RandomContractRows());
  double const box[] = {0, 0, 60, 60};
  std::vector<ScannedRow> const expected =
      AllWhere([&](ScannedRow const& row) { return BoxesMeet(row.box, box) && row.n < 20; });
  ASSERT_THAT(expected, Not(IsEmpty()));
  Town().Query(box, ParsedFilter(L"n < 20"));
  EXPECT_THAT(Rest(), ElementsAreArray(expected));
}

// A box in the corner that the line leaves free.
TEST_P(TableContract, ABoxMeetsADiagonalByEnvelopeOrGeometry) {
  Make({{1, L"diagonal", 1.0, "LINESTRING (0 0, 10 10)"}, {2, L"aside", 2.0, "LINESTRING (20 0, 30 10)"}});
  double const corner[] = {7, 1, 9, 3};
  Town().Query(corner, nullptr);
  EXPECT_THAT(Rest(), SizeIs(GetParam().boxMeetsEnvelope ? 1 : 0));
}

// So the inverted box of an extent without geometries is everywhere.
TEST_P(TableContract, ABoxIsTwoOppositeCornersInAnyOrder) {
  Make(RandomContractRows());
  Town().Query(kBox, nullptr);
  std::vector<ScannedRow> const inside = Rest();
  ASSERT_FALSE(inside.empty());
  double const flippedX[] = {kBox[2], kBox[1], kBox[0], kBox[3]};
  double const inverted[] = {kBox[2], kBox[3], kBox[0], kBox[1]};
  for (double const* box : {flippedX, inverted}) {
    Town().Query(box, nullptr);
    EXPECT_THAT(Rest(), ElementsAreArray(inside));
  }
  double const most = std::numeric_limits<double>::max();
  double const empty[] = {most, most, -most, -most};
  std::vector<ScannedRow> const placed =
      AllWhere([](ScannedRow const& row) { return row.box[0] <= row.box[2]; });
  Town().Query(empty, nullptr);
  EXPECT_THAT(Rest(), ElementsAreArray(placed));
}

TEST_P(TableContract, AFilterAfterABox) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const filtered = AllWhere([](ScannedRow const& row) { return row.n >= 10; });
  std::vector<ScannedRow> const both =
      AllWhere([](ScannedRow const& row) { return row.n >= 10 && BoxesMeet(row.box, kBox); });
  ASSERT_LT(both.size(), filtered.size());
  std::vector<ScannedRow> const& expected = GetParam().filterKeepsBox ? both : filtered;
  Town().Query(kBox, nullptr);
  Town().Query(ParsedFilter(L"n >= 10"), nullptr, true);
  EXPECT_THAT(Rest(), ElementsAreArray(expected));
  EXPECT_EQ(Town().GetRowCount(ParsedFilter(L"n >= 10"), true), static_cast<__int64>(expected.size()));
  Town().Query();
  EXPECT_EQ(Town().GetRowCount(ParsedFilter(L"n >= 10"), true), static_cast<__int64>(filtered.size()))
      << "an unrestricted query lifts the box";
}

TEST_P(TableContract, AComparisonSelectsTheRowsItIsTrueFor) {
  Make(RandomContractRows());
  struct Case {
    wchar_t const* filter;
    bool (*accepts)(ScannedRow const&);
  };
  Case const cases[] = {
      {L"n = 1", [](ScannedRow const& row) { return row.n == 1; }},
      {L"n <> 1", [](ScannedRow const& row) { return row.n != 1; }},
      {L"n < 1", [](ScannedRow const& row) { return row.n < 1; }},
      {L"n <= 1", [](ScannedRow const& row) { return row.n <= 1; }},
      {L"n > 1", [](ScannedRow const& row) { return row.n > 1; }},
      {L"n >= 1", [](ScannedRow const& row) { return row.n >= 1; }},
      {L"x >= 0.125", [](ScannedRow const& row) { return row.x && *row.x >= 0.125; }},
      {L"name = 'w\u00f6rd 3'", [](ScannedRow const& row) { return row.name == L"w\u00f6rd 3"; }},
  };
  for (Case const& test : cases) {
    std::vector<ScannedRow> const expected = AllWhere(test.accepts);
    ASSERT_THAT(expected, Not(IsEmpty())) << ToUtf8(test.filter);
    Town().Query(ParsedFilter(test.filter), nullptr, true);
    EXPECT_THAT(Rest(), ElementsAreArray(expected)) << ToUtf8(test.filter);
  }
  Town().Query(ParsedFilter(L"n > 4711"), nullptr, true);
  EXPECT_EQ(Town().Next(), nullptr);
}

TEST_P(TableContract, ANullFilterIsNoCondition) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  Town().Query(nullptr, nullptr, true);
  EXPECT_THAT(Rest(), ElementsAreArray(all));
}

TEST_P(TableContract, OrderByAColumnOrAsTheyCome) {
  Make(RandomContractRows());
  for (bool const ascending : {true, false}) {
    std::vector<ScannedRow> expected = All();
    if (GetParam().orders) {
      std::sort(expected.begin(), expected.end(), [=](ScannedRow const& left, ScannedRow const& right) {
        return ascending ? left.n < right.n : right.n < left.n;
      });
    }
    Town().Query(nullptr, L"n", ascending);
    EXPECT_THAT(Rest(), ElementsAreArray(expected)) << (ascending ? "ascending" : "descending");
  }
}

TEST_P(TableContract, EndQueryMayBeCalledAtAnyTime) {
  Make(RandomContractRows());
  Town().EndQuery();
  std::vector<ScannedRow> const all = All();
  Town().EndQuery();
  Town().EndQuery();
  EXPECT_EQ(Town().Next(), nullptr);
  for (Start const& start : Starts(all[3].id, all[30].id)) {
    SCOPED_TRACE(start.name);
    start.query(Town());
    ASSERT_NE(Town().Next(), nullptr);
    Town().EndQuery();
    EXPECT_EQ(Town().Next(), nullptr);
    EXPECT_THAT(All(), ElementsAreArray(all)) << "queried anew";
  }
  ASSERT_NE(Town().Query(all[0].id), nullptr);
  Town().EndQuery();
  EXPECT_EQ(Town().Next(), nullptr);
}

// --- The current row -----------------------------------------------------------------------------

TEST_P(TableContract, AtIsTheRowThatNextGave) {
  Make(RandomContractRows());
  Town().Query();
  Row const* const at = &Town().At();
  std::size_t rows = 0;
  for (; Row const* row = Town().Next(); ++rows) {
    EXPECT_EQ(row, at);
    EXPECT_EQ(&Town().At(), at);
  }
  EXPECT_EQ(rows, RandomContractRows().size());
}

TEST_P(TableContract, ACopiedRowSurvivesNext) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  std::vector<Row> copies;
  Town().Query();
  while (Row const* row = Town().Next()) copies.push_back(Row(*row));
  Town().EndQuery();
  ASSERT_THAT(copies, SizeIs(all.size()));
  for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(Scanned(copies[i]), all[i]);
}

// --- Desired fields ------------------------------------------------------------------------------

// Expects the running query to show name and x as all rows have them, and no other cell.
void ExpectOnlyNameAndNumber(Table& table, std::vector<ScannedRow> const& all, NotDesired notDesired) {
  TableDef const& def = *table.Def();
  std::set<int> const desired = {def.IndexOf(L"name"), def.IndexOf(L"x")};
  std::size_t rows = 0;
  while (Row const* row = table.Next()) {
    ASSERT_LT(rows, all.size());
    ScannedRow const& expected = all[rows++];
    Value const& name = (*row)[L"name"];
    EXPECT_EQ(name.IsNull(), !expected.name.has_value()) << expected;
    if (expected.name) {
      EXPECT_EQ(std::wstring(static_cast<wchar_t const*>(name)), *expected.name);
    }
    Value const& x = (*row)[L"x"];
    EXPECT_EQ(x.IsNull(), !expected.x.has_value()) << expected;
    if (expected.x) {
      EXPECT_EQ(static_cast<double>(x), *expected.x);
    }
    for (int column = 0; column < def.ColumnCount(); ++column) {
      if (desired.count(column) != 0) continue;
      if (notDesired == NotDesired::kUndefined) {
        EXPECT_FALSE((*row)[column].IsValid()) << "column " << column;
      } else {
        EXPECT_THROW((*row)[column], std::logic_error) << "column " << column;
      }
    }
  }
  EXPECT_EQ(rows, all.size());
}

TEST_P(TableContract, DesiredFieldsByPositionAndByFlag) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  TableDef const& def = *Town().Def();
  int columns[] = {def.IndexOf(L"name"), def.IndexOf(L"x")};
  std::sort(std::begin(columns), std::end(columns));
  Town().SetDesiredFields(columns, 2);
  Town().Query();
  ExpectOnlyNameAndNumber(Town(), all, GetParam().notDesired);
  Town().SetDesiredFields(kAllColumns, 0);
  EXPECT_THAT(All(), ElementsAreArray(all)) << "lifted by null";

  auto const flags = std::make_unique<bool[]>(static_cast<std::size_t>(def.ColumnCount()));
  for (int column : columns) flags[static_cast<std::size_t>(column)] = true;
  Town().SetDesiredFields(flags.get(), def.ColumnCount());
  Town().Query();
  ExpectOnlyNameAndNumber(Town(), all, GetParam().notDesired);
  Town().SetDesiredFields(static_cast<bool const*>(nullptr), def.ColumnCount());
  EXPECT_THAT(All(), ElementsAreArray(all)) << "lifted by null";
  for (int column : columns) flags[static_cast<std::size_t>(column)] = false;
  Town().SetDesiredFields(flags.get(), def.ColumnCount());
  EXPECT_THAT(All(), ElementsAreArray(all)) << "no flag set means no restriction";
}

TEST_P(TableContract, DesiredFieldsAreForLaterQueries) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  int const column = Town().Def()->IndexOf(L"n");
  Town().Query();
  Town().SetDesiredFields(&column, 1);
  EXPECT_THAT(Rest(), ElementsAreArray(all));
}

TEST_P(TableContract, ConditionsHoldOnFieldsThatAreNotDesired) {
  Make(RandomContractRows());
  std::vector<__int64> expected;
  for (ScannedRow const& row :
       AllWhere([](ScannedRow const& row) { return BoxesMeet(row.box, kBox) && row.x && *row.x > 0; })) {
    expected.push_back(row.n);
  }
  ASSERT_THAT(expected, Not(IsEmpty()));
  int const column = Town().Def()->IndexOf(L"n");
  Town().SetDesiredFields(&column, 1);
  Town().Query(kBox, ParsedFilter(L"x > 0"));
  std::vector<__int64> found;
  while (Row const* row = Town().Next()) found.push_back((*row)[column]);
  EXPECT_THAT(found, ElementsAreArray(expected));
}

// --- The database --------------------------------------------------------------------------------

TEST_P(TableContract, TablesAreFoundByNameAndQualifiedName) {
  Make({});
  Database& database = store_->Db();
  EXPECT_EQ(std::wstring(Town().Def()->Name()), L"town");
  EXPECT_EQ(std::wstring(Town().Def()->SchemaName()), GetParam().schemaName);
  EXPECT_EQ(database[L"nowhere"], nullptr);
  EXPECT_EQ(database[L"nowhere:town"], nullptr);
  EXPECT_EQ(database[L""], nullptr);
  std::wstring const schema = GetParam().schemaName;
  if (!schema.empty()) {
    EXPECT_EQ(database[(schema + L":town").c_str()], &Town());
    EXPECT_EQ(database[(schema + L":nowhere").c_str()], nullptr);
  }
}

TEST_P(TableContract, ADuplicateIsAnIndependentCursor) {
  Make(RandomContractRows());
  std::vector<ScannedRow> const all = All();
  Table* const second = store_->Db().DuplicateTable(&Town());
  ASSERT_NE(second, nullptr);
  EXPECT_NE(second, &Town());
  Town().Query();
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(Scanned(*Town().Next()), all[i]);
  int const column = second->Def()->IndexOf(L"n");
  second->SetDesiredFields(&column, 1);
  second->Query(ParsedFilter(L"n >= 10"), nullptr, true);
  ASSERT_NE(second->Next(), nullptr);
  EXPECT_EQ(Scanned(*Town().Next()), all[3]);
  second->SetDesiredFields(kAllColumns, 0);
  second->Query(ParsedFilter(L"n >= 10"), nullptr, true);
  std::vector<ScannedRow> const found = ScanRest(*second);
  store_->Db().DestroyTable(second);
  EXPECT_THAT(Rest(), ElementsAreArray(all.begin() + 4, all.end())) << "goes on where it was";
  EXPECT_THAT(found, ElementsAreArray(AllWhere([](ScannedRow const& row) { return row.n >= 10; })));
  store_->Db().DestroyTable(nullptr);
}

}  // namespace
}  // namespace fdo
