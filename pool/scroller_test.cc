#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/db_pool.h>
#include <fdo/scroller.h>
#include <gtest/gtest.h>

#include "ogr_backend/gdal_absence.h"
#include "ogr_backend/ogr_test_files.h"
#include "port/address_sanitizer.h"
#include "port/process_memory.h"
#include "testing/captured_diagnostics.h"
#include "testing/memory_table.h"
#include "testing/one_table_store.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

class ScrollerTest : public testing::TestWithParam<OgrFormat> {
 protected:
  ScrollerTest() { connection_ = DbPool::GetConnection(path_.c_str()); }
  ~ScrollerTest() override {
    connection_ = nullptr;
    DbPool::CloseAllFreeConnections();
  }

  void SetUp() override {
    if (IsWithoutGdal()) GTEST_SKIP() << kWithoutGdal;
  }
  Database& Connection() { return *static_cast<Database*>(connection_); }
  Table& TownTable() { return Connection()[0]; }

  CapturedDiagnostics diagnostics_;
  ScratchDirectory const scratch_;
  std::wstring const path_ = WriteTowns(scratch_, GetParam());
  DbHandle connection_;
};

std::wstring NameOf(Row const* row) {
  if (row == nullptr) return L"no row";
  Value const& name = (*row)[L"name"];
  wchar_t const* const text = name;
  return name.IsNull() ? L"null" : text;
}

TEST_P(ScrollerTest, RowsByPositionInTheOrderOfTheQuery) {
  std::vector<std::wstring> names;
  TownTable().Query();
  while (Row const* const row = TownTable().Next()) names.push_back(NameOf(row));
  TownTable().Query();
  Scroller scroller(&Connection(), &TownTable());
  EXPECT_EQ(TownTable().Next(), nullptr) << "the query is at its end";
  ASSERT_EQ(scroller.Count(), names.size());
  for (std::size_t i : {std::size_t{2}, std::size_t{0}, names.size() - 1, std::size_t{1}, std::size_t{1}}) {
    EXPECT_EQ(NameOf(scroller.At(i)), names[i]);
  }
  EXPECT_EQ(scroller.At(names.size()), nullptr);
  EXPECT_EQ(scroller.At(static_cast<std::uint64_t>(-1)), nullptr);
}

TEST_P(ScrollerTest, AnEmptyQueryHasNoRows) {
  FdoPtr<FdoFilter> const none = FdoFilter::Parse(L"n = 123456");
  TownTable().Query(none, nullptr, true);
  Scroller scroller(&Connection(), &TownTable());
  EXPECT_EQ(scroller.Count(), 0u);
  EXPECT_EQ(scroller.At(0), nullptr);
}

TEST_P(ScrollerTest, TheTableStaysFreeForOtherQueries) {
  TownTable().Query();
  Scroller scroller(&Connection(), &TownTable());
  TownTable().Query();
  Row const* const current = TownTable().Next();
  ASSERT_NE(current, nullptr);
  std::wstring const name = NameOf(current);
  scroller.At(3);
  EXPECT_EQ(NameOf(current), name);
}

TEST_P(ScrollerTest, ItGivesItsConnectionBack) {
  __int64 const before = DbPool::Counters().inUse;
  {
    TownTable().Query();
    Scroller const scroller(&Connection(), &TownTable());
    Scroller copy(scroller);
    EXPECT_NE(copy.At(0), nullptr);
  }
  EXPECT_EQ(DbPool::Counters().inUse, before);
}

TEST_P(ScrollerTest, ASecondOneSharesTheConnectionAndReadsForItself) {
  TownTable().Query();
  Scroller first(&Connection(), &TownTable());
  TownTable().Query();
  Scroller second(&Connection(), &TownTable());
  std::wstring const name = NameOf(first.At(1));
  Row const* const row = first.At(1);
  second.At(2);
  EXPECT_EQ(NameOf(row), name);
}

// A store that keeps the identities it is given, whatever they are.
class SqliteScrollerTest : public testing::Test {
 protected:
  SqliteScrollerTest() {
    DatabaseFdo database;
    MakeOneTableStore(database, path_, L"town", L"id:Int64 name:String");
    Row row(database[0].Def());
    for (__int64 const id : kIds) {
      row[L"id"] = id;
      row[L"name"] = std::to_wstring(id).c_str();
      EXPECT_TRUE(database[0].Insert(row, nullptr, /*storeMakesId=*/false));
    }
  }
  ~SqliteScrollerTest() override { DbPool::CloseAllFreeConnections(); }

  static constexpr __int64 kIds[] = {7, -3, 9'000'000'000, 1, 12};

  ScratchDirectory const scratch_;
  std::wstring const path_ = scratch_.File("town.sqlite");
};

TEST_F(SqliteScrollerTest, IdentitiesMayBeSparseNegativeAndInAnyOrder) {
  DbHandle const connection(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!connection);
  Table& table = (*static_cast<Database*>(connection))[0];
  table.Query(nullptr, L"name", /*ascending=*/false);
  Scroller scroller(connection, &table);
  ASSERT_EQ(scroller.Count(), std::size(kIds));
  std::vector<std::wstring> names;
  for (std::uint64_t i = 0; i < scroller.Count(); ++i) names.push_back(NameOf(scroller.At(i)));
  EXPECT_EQ(names, (std::vector<std::wstring>{L"9000000000", L"7", L"12", L"1", L"-3"}));
  EXPECT_EQ(NameOf(scroller.At(0)), L"9000000000");
}

TEST_F(SqliteScrollerTest, ADeletedRowIsNull) {
  DbHandle const connection(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!connection);
  Table& table = (*static_cast<Database*>(connection))[0];
  table.Query(nullptr, L"id", /*ascending=*/true);
  Scroller scroller(connection, &table);
  EXPECT_EQ(NameOf(scroller.At(2)), L"7");
  EXPECT_TRUE(table.Delete(7));
  EXPECT_EQ(NameOf(scroller.At(2)), L"no row");
  EXPECT_EQ(NameOf(scroller.At(3)), L"12");
}

TEST_F(SqliteScrollerTest, TheSourceMayBeClosedBefore) {
  DbHandle connection(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!connection);
  Table& table = (*static_cast<Database*>(connection))[0];
  table.Query();
  Scroller scroller(connection, &table);
  connection = nullptr;
  DbPool::CloseAllFreeConnections();
  EXPECT_EQ(NameOf(scroller.At(0)), L"-3");
}

// A table whose rows are nothing but their identities: every third number, backwards from the first.
class Numbers : public Table {
 public:
  Numbers(TableDef const* def, __int64 count) : Table(def), count_(count), row_(def) {}

  Row const* Next() override {
    if (next_ == count_) return nullptr;
    row_[0] = 1'000'000 - 3 * next_++;
    return &row_;
  }

  bool Insert(Row const&, __int64*, bool) override { return false; }
  __int64 Update(Row const&, FdoFilter*) override { return -1; }
  bool Update(Row const&, __int64) override { return false; }
  __int64 Delete(FdoFilter*) override { return 0; }
  bool Delete(__int64) override { return false; }
  void Query(FdoFilter*, wchar_t const*, bool) override {}
  Row const* Query(__int64) override { return nullptr; }
  void Query(double const* const, FdoFilter*) override {}
  void Query() override {}
  void QueryRange(__int64, __int64) override {}
  void EndQuery() override {}
  __int64 GetRowCount(FdoFilter*, bool) override { return count_; }
  Row const& At() override { return row_; }
  using Table::SetDesiredFields;
  void SetDesiredFields(int const*, int) override {}

 protected:
  void FetchCurrentValue(Value&, int) const override {}

 private:
  __int64 const count_;
  __int64 next_ = 0;
  Row row_;
};

TEST(Scroller, AMillionRowsTakeUnderNineBytesEach) {
  constexpr __int64 kRows = 1'000'000;
  CapturedDiagnostics const diagnostics;
  TableDef const def = MakeTableDef(L"s", L"numbers", L"id:Int64");
  MemoryDatabase database{DatabaseDef()};
  // The first one loads what connections are made with.
  Numbers none(&def, 0);
  Scroller const first(&database, &none);
  Numbers numbers(&def, kRows);
  std::int64_t const before = port::ResidentBytes();
  Scroller scroller(&database, &numbers);
  // The sanitizer puts fences around each block.
  if (!port::kHasAddressSanitizer) {
    EXPECT_LT(port::ResidentBytes() - before, 9 * kRows);
  }
  EXPECT_EQ(scroller.Count(), static_cast<std::uint64_t>(kRows));
  EXPECT_EQ(scroller.At(0), nullptr) << "there is no second connection to such a database";
}

std::vector<OgrFormat> WithRowsOfTheirOwn() {
  std::vector<OgrFormat> formats;
  for (OgrFormat const& format : kOgrFormats) formats.push_back(format);
  return formats;
}

INSTANTIATE_TEST_SUITE_P(Formats, ScrollerTest, testing::ValuesIn(WithRowsOfTheirOwn()),
                         [](auto const& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace fdo
