// What every format has in common when its tables are read.
#include <Fdo.h>
#include <fdo/database_ogr.h>
#include <fdo/text_conversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "ogr_backend/ogr_test_files.h"
#include "ogr_backend/ogr_test_formats.h"
#include "testing/captured_diagnostics.h"
#include "testing/fgf_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class OgrRead : public ::testing::TestWithParam<OgrFormat> {
 protected:
  void SetUp() override {
    path_ = WriteTowns(scratch_, GetParam());
    ASSERT_TRUE(database_.Connect(path_.c_str(), nullptr, nullptr, /*readOnly=*/true, /*loadSchema=*/true))
        << ToUtf8(database_.LastError());
    ASSERT_EQ(database_.Count(), 1);
  }

  Table& Towns1() { return database_[0]; }
  // What reading gives for the row whose name is null.
  std::wstring NoName() const { return GetParam().nullText ? L"null" : L""; }
  std::wstring Name(wchar_t const* name) const { return name == nullptr ? NoName() : name; }
  FdoPtr<FdoFilter> Filter(wchar_t const* text) { return FdoFilter::Parse(text); }

  ScratchDirectory scratch_;
  std::wstring path_;
  DatabaseOgr database_;
};

TEST_P(OgrRead, NamesSourceSchemaAndDriver) {
  EXPECT_EQ(std::wstring(database_.Def()->Name()), L"OGRDefaultSchema");
  EXPECT_EQ(std::wstring(database_.ConnectionString()), path_);
  EXPECT_EQ(std::wstring(database_.ProviderName()), DatabaseOgr::DriverForPath(path_.c_str()));
  TableDef const& def = *Towns1().Def();
  EXPECT_EQ(std::wstring(def.Name()), L"town");
  EXPECT_EQ(std::wstring(def.SchemaName()), L"");
  EXPECT_EQ(def.IndexOfID(), 0);
  EXPECT_EQ(def.IndexOfGeom(), 1);
  EXPECT_EQ(def.ID().Type(), ColumnDef::kInt64);
  EXPECT_EQ(def.Geom().Type(), ColumnDef::kGeometry);
}

TEST_P(OgrRead, FieldsAreColumnsOfTheNearestType) {
  TableDef const& def = *Towns1().Def();
  std::map<std::wstring, int> types;
  for (int i = 2; i < def.ColumnCount(); ++i) types[def[i].Name()] = def[i].Type();
  EXPECT_EQ(types[L"name"], ColumnDef::kString);
  EXPECT_EQ(types[L"n"], ColumnDef::kInt32);
  EXPECT_EQ(types[L"big"], ColumnDef::kInt64);
  EXPECT_EQ(types[L"x"], ColumnDef::kDouble);
  EXPECT_EQ(types[L"d"], ColumnDef::kDateTime);
  EXPECT_EQ(types[L"flag"], ColumnDef::kInt32);
}

TEST_P(OgrRead, EveryRowWithEveryCell) {
  std::map<std::wstring, Town> expected;
  for (Town const& town : Towns()) expected[Name(town.name)] = town;
  std::vector<std::wstring> inOrder;
  Towns1().Query();
  int rows = 0;
  while (Row const* row = Towns1().Next()) {
    ++rows;
    EXPECT_EQ(row, &Towns1().At());
    std::wstring const name = (*row)[L"name"].IsNull() ? L"null" : std::wstring((*row)[L"name"]);
    ASSERT_EQ(expected.count(name), 1u) << ToUtf8(name.c_str());
    Town const& town = expected[name];
    EXPECT_EQ((*row)[L"n"].Type(), Value::kInt);
    EXPECT_EQ(static_cast<__int64>((*row)[L"n"]), town.n);
    EXPECT_EQ(static_cast<__int64>((*row)[L"big"]), town.big);
    EXPECT_EQ((*row)[L"x"].Type(), Value::kDouble);
    EXPECT_EQ(static_cast<double>((*row)[L"x"]), town.x);
    EXPECT_EQ((*row)[L"flag"].AsBool(), town.flag);
    if (town.date == nullptr) {
      EXPECT_TRUE((*row)[L"d"].IsNull());
    } else {
      std::wstring date = town.date;
      if (!GetParam().times) date = date.substr(0, 10) + L"T00:00:00.000";
      EXPECT_EQ(std::wstring((*row)[L"d"]), date);
      EXPECT_EQ((*row)[L"d"].Type(), Value::kBorrowedString);
    }
    std::vector<unsigned char> const stream = Fgf(town.geometry);
    ASSERT_EQ(row->GeomLen(), static_cast<int>(stream.size()));
    EXPECT_EQ(std::memcmp(row->Geom(), stream.data(), stream.size()), 0);
    EXPECT_EQ((*row)[1].Type(), Value::kBorrowedBlob);
    inOrder.push_back(name);
  }
  EXPECT_EQ(rows, static_cast<int>(Towns().size()));
  if (GetParam().ownOrder) {
    for (std::size_t i = 0; i < inOrder.size(); ++i) EXPECT_EQ(inOrder[i], Name(Towns()[i].name));
  }
  EXPECT_EQ(Towns1().Next(), nullptr) << "the end stays the end";
}

TEST_P(OgrRead, NoQueryMeansNoRows) {
  EXPECT_EQ(Towns1().Next(), nullptr);
  Towns1().Query();
  EXPECT_NE(Towns1().Next(), nullptr);
  Towns1().EndQuery();
  EXPECT_EQ(Towns1().Next(), nullptr);
}

TEST_P(OgrRead, CellsOutsideTheDesiredFieldsStayUndefined) {
  int const column = ColumnOf(Towns1(), L"n");
  Towns1().SetDesiredFields(&column, 1);
  Towns1().Query();
  int rows = 0;
  while (Row const* row = Towns1().Next()) {
    ++rows;
    for (int i = 0; i < row->Def()->ColumnCount(); ++i) {
      EXPECT_EQ((*row)[i].IsValid(), i == column) << i;
    }
  }
  EXPECT_EQ(rows, 6);
  Towns1().SetDesiredFields(static_cast<int const*>(nullptr), 0);
  Towns1().Query();
  ASSERT_NE(Towns1().Next(), nullptr);
  EXPECT_TRUE(Towns1().At()[L"name"].IsValid());
  EXPECT_TRUE(Towns1().At()[1].IsValid());
}

TEST_P(OgrRead, ARestrictionIsForLaterQueries) {
  Towns1().Query();
  ASSERT_NE(Towns1().Next(), nullptr);
  int const column = ColumnOf(Towns1(), L"n");
  Towns1().SetDesiredFields(&column, 1);
  EXPECT_TRUE(Towns1().At()[L"name"].IsValid());
  ASSERT_NE(Towns1().Next(), nullptr);
  EXPECT_TRUE(Towns1().At()[L"name"].IsValid());
}

// What a condition needs is read although nobody wants to see it.
TEST_P(OgrRead, ConditionsOnFieldsThatAreNotDesired) {
  int const name = ColumnOf(Towns1(), L"name");
  Towns1().SetDesiredFields(&name, 1);
  EXPECT_THAT(NamesWhere(Towns1(), L"n = 3"), ElementsAre(L"it's"));
  double const box[] = {3.5, 3.5, 5.5, 5.5};
  Towns1().Query(box, nullptr);
  EXPECT_THAT(NamesOf(Towns1()), ElementsAre(L"50%", L"K\u00f6ln \u6771"));
  EXPECT_THAT(NamesWhere(Towns1(), L"n = 4"), ElementsAre(L"50%")) << "the box stays";
  int const id = 0;
  Towns1().SetDesiredFields(&id, 1);
  EXPECT_EQ(Towns1().GetRowCount(Filter(L"name = 'Alpha' OR x = 0.1"), true), 1) << "inside the box";
}

struct FilterCase {
  wchar_t const* filter;
  std::set<int> n;  // of the rows that match
};

// n is 1 Alpha, -2 alpha, 3 it's, 4 50%, 5 Koeln, 0 null
std::vector<FilterCase> const& FilterCases() {
  static std::vector<FilterCase> const cases = {
      {L"1=1", {1, -2, 3, 4, 5, 0}},
      {L"1=0", {}},
      {L"n = 3", {3}},
      {L"n <> 3", {1, -2, 4, 5, 0}},
      {L"n > 3", {4, 5}},
      {L"n >= 3", {3, 4, 5}},
      {L"n < 0", {-2}},
      {L"n <= 0", {-2, 0}},
      {L"3 < n", {4, 5}},
      {L"n = -2", {-2}},
      {L"- n = 2", {-2}},
      {L"n + 1 = 4", {3}},
      {L"n * 2 - 1 > n", {3, 4, 5}},
      {L"n / 2 = 2", {4, 5}},
      {L"n / 2.0 = 2", {4}},
      {L"x = 0.1", {5}},
      {L"x = 1e10", {4}},
      {L"x < 0", {-2}},
      {L"big = 1099511627776", {1}},
      {L"big < -1099511627775", {-2}},
      {L"big > -9223372036854775807", {1, -2, 3, 4, 5, 0}},
      {L"flag = TRUE", {1, 3, 5}},
      {L"flag = FALSE", {-2, 4, 0}},
      {L"name = 'Alpha'", {1}},
      {L"'Alpha' = name", {1}},
      {L"name = 'alpha'", {-2}},
      {L"name = 'ALPHA'", {}},
      {L"name <> 'Alpha'", {-2, 3, 4, 5}},
      {L"name = 'it''s'", {3}},
      {L"name = '50%'", {4}},
      {L"name = '50_'", {}},
      {L"name = 'K\u00f6ln \u6771'", {5}},
      {L"name LIKE '5%'", {4}},
      {L"name LIKE '%lph%'", {1, -2}},
      {L"name LIKE 'K\u00f6%'", {5}},
      {L"name LIKE '%\u6771'", {5}},
      {L"NOT name LIKE '%lph%'", {3, 4, 5}},
      {L"name IN ('Alpha', '50%')", {1, 4}},
      {L"NOT name IN ('Alpha', '50%')", {-2, 3, 5}},
      {L"n IN (1, -2, 77)", {1, -2}},
      {L"NOT n IN (1, -2)", {3, 4, 5, 0}},
      {L"n = 1 OR n = 3 AND x = 2.5", {1, 3}},
      {L"(n = 1 OR n = 3) AND x = 2.5", {3}},
      {L"NOT (n = 1 OR n = 3)", {-2, 4, 5, 0}},
      {L"NOT (n > 0 AND flag = TRUE)", {-2, 4, 0}},
      {L"NOT NOT n = 3", {3}},
      {L"NOT n = 3 AND n > 2", {4, 5}},
      {L"d NULL", {0}},
      {L"NOT d NULL", {1, -2, 3, 4, 5}},
      {L"n NULL", {}},
  };
  return cases;
}

TEST_P(OgrRead, FiltersMeanTheSameInEveryFormat) {
  CapturedDiagnostics diagnostics;
  for (FilterCase const& test : FilterCases()) {
    std::wstring const filter = test.filter;
    // Where null text reads as empty text it is compared as such.
    std::set<int> expected = test.n;
    bool const isNegatedText = filter.rfind(L"NOT name", 0) == 0 || filter.rfind(L"name <>", 0) == 0;
    if (!GetParam().nullText && isNegatedText) expected.insert(0);
    Towns1().Query(Filter(test.filter), nullptr, true);
    std::set<int> found;
    while (Row const* row = Towns1().Next()) {
      found.insert(static_cast<int>(static_cast<__int64>((*row)[L"n"])));
    }
    EXPECT_EQ(found, expected) << ToUtf8(test.filter);
    EXPECT_EQ(Towns1().GetRowCount(Filter(test.filter), true), static_cast<__int64>(expected.size()))
        << ToUtf8(test.filter);
  }
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

// GDAL's dialect would hold the underscore against one byte, and so find "Koln" only.
TEST_P(OgrRead, AnUnderscoreIsALetter) {
  CapturedDiagnostics diagnostics;
  EXPECT_THAT(NamesWhere(Towns1(), L"name LIKE 'K_ln%'"), ElementsAre(L"K\u00f6ln \u6771"));
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

TEST_P(OgrRead, NullsOfTextIdAndGeometry) {
  EXPECT_THAT(NamesWhere(Towns1(), L"name NULL").size(), GetParam().nullText ? 1u : 0u);
  EXPECT_THAT(NamesWhere(Towns1(), L"NOT name NULL").size(), GetParam().nullText ? 5u : 6u);
  std::wstring const id = std::wstring(L"\"") + Towns1().Def()->ID().Name() + L"\"";
  std::wstring const geometry = std::wstring(L"\"") + Towns1().Def()->Geom().Name() + L"\"";
  EXPECT_EQ(NamesWhere(Towns1(), (id + L" NULL").c_str()).size(), 0u);
  EXPECT_EQ(NamesWhere(Towns1(), (geometry + L" NULL").c_str()).size(), 0u);
  EXPECT_EQ(NamesWhere(Towns1(), (L"NOT " + geometry + L" NULL").c_str()).size(), 6u);
}

TEST_P(OgrRead, TheIdIsAColumnOfConditions) {
  Towns1().Query();
  while (Row const* row = Towns1().Next()) {
    static_cast<void>(row);
  }
  Towns1().Query();
  ASSERT_NE(Towns1().Next(), nullptr);
  ASSERT_NE(Towns1().Next(), nullptr);
  __int64 const id = Towns1().At().ID();
  std::wstring const name = Towns1().At()[L"name"].IsNull() ? L"null" : std::wstring(Towns1().At()[L"name"]);
  std::wstring const filter =
      std::wstring(L"\"") + Towns1().Def()->ID().Name() + L"\" = " + std::to_wstring(id);
  EXPECT_THAT(NamesWhere(Towns1(), filter.c_str()), ElementsAre(name));
}

// What neither GDAL nor anybody else can compute.
constexpr wchar_t const* kRefusedFilters[] = {
    L"nowhere = 1",
    L"Name = 'Alpha'",  // names are exact
    L"n = 'x'",
    L"n = 1 OR n IN (1, 'x')",
    L"name + 'x' = 'Alphax'",
    L"mod(n, 2) = 1 AND name + 'x' = 'Alphax'",
    L"abs(name) = 1",
    L"name INTERSECTS GeomFromText('POINT (1 1)')",
    L"n = :parameter",
    L"Lower(name) = 'alpha'",
    L"n LIKE '1%'",
    L"sin(1, 2) = 0",
};

TEST_P(OgrRead, RefusedFiltersGiveNoRowsAndOneLine) {
  std::wstring const geometry = std::wstring(L"\"") + Towns1().Def()->Geom().Name() + L"\"";
  std::vector<std::wstring> filters(std::begin(kRefusedFilters), std::end(kRefusedFilters));
  filters.push_back(geometry + L" INTERSECTS :parameter");
  filters.push_back(geometry + L" = 1");
  for (std::wstring const& filter : filters) {
    CapturedDiagnostics diagnostics;
    EXPECT_THAT(NamesWhere(Towns1(), filter.c_str()), IsEmpty()) << ToUtf8(filter.c_str());
    EXPECT_EQ(diagnostics.Lines().size(), 1u) << ToUtf8(filter.c_str());
    EXPECT_NE(std::wstring(database_.LastError()), L"");
    EXPECT_EQ(Towns1().GetRowCount(Filter(filter.c_str()), true), -1) << ToUtf8(filter.c_str());
    EXPECT_EQ(diagnostics.Lines().size(), 2u);
    double const box[] = {0, 0, 9, 9};
    Towns1().Query(box, Filter(filter.c_str()));
    EXPECT_EQ(Towns1().Next(), nullptr);
    // It leaves nothing behind.
    Towns1().Query();
    EXPECT_EQ(NamesOf(Towns1()).size(), 6u);
  }
}

TEST_P(OgrRead, ListsAndChainsOfManyValues) {
  std::wstring list = L"n IN (1";
  std::wstring words = L"name IN ('Alpha'";
  for (int i = 1000; i < 1900; ++i) {
    list += L"," + std::to_wstring(i);
    words += L",'w" + std::to_wstring(i) + L"'";
  }
  EXPECT_THAT(NamesWhere(Towns1(), (list + L")").c_str()), ElementsAre(L"Alpha"));
  EXPECT_THAT(NamesWhere(Towns1(), (words + L")").c_str()), ElementsAre(L"Alpha"));
  std::wstring chain = L"n = 1";
  for (int i = 1000; i < 1400; ++i) chain += L" OR n = " + std::to_wstring(i);
  EXPECT_THAT(NamesWhere(Towns1(), chain.c_str()), ElementsAre(L"Alpha"));
}

TEST_P(OgrRead, ABoxStaysUntilAQueryDropsIt) {
  double const box[] = {0.5, 0.5, 2.5, 2.5};
  Towns1().Query(box, nullptr);
  EXPECT_THAT(NamesOf(Towns1()), ElementsAre(L"Alpha", L"alpha"));
  Towns1().Query(box, Filter(L"n = 1"));
  EXPECT_THAT(NamesOf(Towns1()), ElementsAre(L"Alpha"));
  EXPECT_EQ(Towns1().GetRowCount(nullptr, true), 2) << "a count is taken in the box";
  EXPECT_THAT(NamesWhere(Towns1(), L"n >= -2"), ElementsAre(L"Alpha", L"alpha"));
  double extent[4];
  Towns1().GetExtent(extent, nullptr);
  EXPECT_THAT(extent, ElementsAre(1, 1, 6, 6)) << "the extent is the layer's";
  Towns1().GetExtent(extent, Filter(L"1=1"));
  EXPECT_THAT(extent, ElementsAre(1, 1, 2, 2)) << "with a filter the rows are scanned, in the box";
  Towns1().Query();
  EXPECT_EQ(NamesOf(Towns1()).size(), 6u);
  EXPECT_EQ(Towns1().GetRowCount(nullptr, true), 6);
  double const nowhere[] = {100, 100, 101, 101};
  Towns1().Query(nowhere, nullptr);
  EXPECT_EQ(Towns1().Next(), nullptr);
}

TEST_P(OgrRead, ById) {
  std::map<__int64, std::wstring> names;
  Towns1().Query();
  while (Row const* row = Towns1().Next()) {
    names[row->ID()] = (*row)[L"name"].IsNull() ? L"null" : std::wstring((*row)[L"name"]);
  }
  ASSERT_EQ(names.size(), 6u);
  for (auto const& [id, name] : names) {
    Row const* row = Towns1().Query(id);
    ASSERT_NE(row, nullptr) << id;
    EXPECT_EQ(row->ID(), id);
    EXPECT_EQ((*row)[L"name"].IsNull() ? L"null" : std::wstring((*row)[L"name"]), name);
    EXPECT_EQ(row->GeomLen(), 24);
  }
  EXPECT_EQ(Towns1().Query(static_cast<__int64>(4711)), nullptr);
  EXPECT_EQ(Towns1().Query(static_cast<__int64>(-1)), nullptr);
}

TEST_P(OgrRead, RangesAreHalfOpen) {
  std::vector<__int64> ids;
  Towns1().Query();
  while (Row const* row = Towns1().Next()) ids.push_back(row->ID());
  std::sort(ids.begin(), ids.end());
  __int64 const first = ids.front();
  __int64 const last = ids.back();
  auto const idsIn = [&](__int64 from, __int64 to) {
    double const box[] = {1.5, 1.5, 2.5, 2.5};
    Towns1().Query(box, nullptr);  // which the range drops
    Towns1().QueryRange(from, to);
    std::vector<__int64> found;
    while (Row const* row = Towns1().Next()) found.push_back(row->ID());
    std::sort(found.begin(), found.end());
    return found;
  };
  EXPECT_EQ(idsIn(first, last + 1), ids);
  EXPECT_EQ(idsIn(first, last), std::vector<__int64>(ids.begin(), ids.end() - 1));
  EXPECT_EQ(idsIn(first + 1, first + 3), std::vector<__int64>(ids.begin() + 1, ids.begin() + 3));
  EXPECT_EQ(idsIn(std::numeric_limits<__int64>::min(), std::numeric_limits<__int64>::max()), ids);
  EXPECT_THAT(idsIn(first, first), IsEmpty());
  EXPECT_THAT(idsIn(last, first), IsEmpty());
  EXPECT_THAT(idsIn(last + 1, last + 100), IsEmpty());
}

TEST_P(OgrRead, CountsAndEmptiness) {
  EXPECT_EQ(Towns1().GetRowCount(nullptr, true), 6);
  EXPECT_EQ(Towns1().GetRowCount(Filter(L"n > 3"), true), 2);
  EXPECT_FALSE(Towns1().IsEmpty(nullptr));
  EXPECT_FALSE(Towns1().IsEmpty(Filter(L"n > 3")));
  EXPECT_TRUE(Towns1().IsEmpty(Filter(L"n > 300")));
  Towns1().Query();
  EXPECT_EQ(NamesOf(Towns1()).size(), 6u);
}

TEST_P(OgrRead, Statistics) {
  Value min, max, median;
  Towns1().GetMinMax(min, max, L"n", nullptr);
  EXPECT_EQ(static_cast<__int64>(min), -2);
  EXPECT_EQ(static_cast<__int64>(max), 5);
  std::set<Value> distinct;
  Towns1().GetDistinctValues(distinct, L"flag", false, nullptr);
  EXPECT_EQ(distinct.size(), 2u);
  double variance, mean;
  Towns1().GetStats(variance, mean, L"n", Filter(L"n > 0"));
  EXPECT_EQ(mean, 3.25);
  Towns1().GetMedian(median, L"n", Filter(L"n > 2"));
  EXPECT_EQ(static_cast<__int64>(median), 4);
  double box[4];
  Towns1().GetExtent(box, Filter(L"n = 3 OR n = 4"));
  EXPECT_THAT(box, ElementsAre(3, 3, 4, 4));
  // The restriction to one column is lifted.
  Towns1().Query();
  EXPECT_EQ(NamesOf(Towns1()).size(), 6u);
}

TEST_P(OgrRead, ADuplicateReadsSideBySide) {
  Table* const other = database_.DuplicateTable(&Towns1());
  ASSERT_NE(other, nullptr) << ToUtf8(database_.LastError());
  EXPECT_EQ(other->Def(), Towns1().Def());
  Towns1().Query();
  other->Query();
  for (int i = 0; i < 6; ++i) {
    Row const* left = Towns1().Next();
    Row const* right = other->Next();
    ASSERT_NE(left, nullptr);
    ASSERT_NE(right, nullptr);
    EXPECT_EQ(left->ID(), right->ID());
    other->GetRowCount(nullptr, true);
    other->Query();
    for (int skip = 0; skip <= i; ++skip) other->Next();
  }
  EXPECT_EQ(Towns1().Next(), nullptr);
  Row row(other->Def());
  SetTown(row, Towns()[0]);
  EXPECT_FALSE(other->Insert(row, nullptr, true)) << "a duplicate is for reading";
  database_.DestroyTable(other);
  database_.DestroyTable(nullptr);
}

TEST_P(OgrRead, AReadOnlySourceRefusesWrites) {
  Row row(Towns1().Def());
  SetTown(row, Towns()[0]);
  __int64 id = 77;
  EXPECT_FALSE(Towns1().Insert(row, &id, true));
  EXPECT_EQ(id, 0);
  EXPECT_NE(std::wstring(database_.LastError()), L"");
  row[0].Reset(1);
  EXPECT_EQ(Towns1().Update(row, static_cast<FdoFilter*>(nullptr)), -1);
  EXPECT_FALSE(Towns1().Update(row, static_cast<__int64>(1)));
  EXPECT_FALSE(Towns1().Delete(static_cast<__int64>(1)));
  Towns1().BeginWrite();
  Towns1().CommitWrite();
  EXPECT_EQ(Towns1().GetRowCount(nullptr, true), 6);
}

TEST_P(OgrRead, AMissingFileIsNotOpened) {
  DatabaseOgr other;
  CapturedDiagnostics diagnostics;
  std::wstring const path = scratch_.File("nowhere") + path_.substr(path_.rfind(L'.'));
  EXPECT_FALSE(other.Connect(path.c_str(), nullptr, nullptr, true, true));
  EXPECT_FALSE(other.Connect(path.c_str(), nullptr, nullptr, false, true));
  EXPECT_NE(std::wstring(other.LastError()), L"");
  EXPECT_EQ(other.Count(), 0);
  EXPECT_THAT(diagnostics.Lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Format, OgrRead, ::testing::ValuesIn(kOgrFormats),
                         [](auto const& info) { return info.param.name; });

}  // namespace
}  // namespace fdo
