// Rows that an insert command takes in one call each, against the same rows given to it value by value.
#include "sdk/extensions/direct_insert.h"

#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/table_fdo.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "access/boundary.h"
#include "fdo_backend/insert_values.h"
#include "fdo_backend/table_command.h"
#include "testing/captured_diagnostics.h"
#include "testing/fgf_builder.h"
#include "testing/one_table_store.h"
#include "testing/schema_builder.h"
#include "testing/sqlite_file.h"

namespace fdo {
namespace {

constexpr wchar_t kColumns[] =
    L"id:Int64 flag:Boolean byte:Byte small:Int16 n:Int32 wide:Int64 x:Double d:Decimal s:Single t:String "
    L"w:DateTime b:Blob c:Clob shape:Geometry";
// As a definition that is not the store's may have them: then no value is of its column's type.
constexpr wchar_t kOtherColumns[] =
    L"id:Int64 flag:Int32 byte:Int64 small:Int32 n:Int16 wide:Double x:Single d:String s:Double t:Int32 "
    L"w:String b:Clob c:String shape:Blob";
constexpr char kStored[] =
    "SELECT id, flag, byte, small, n, wide, x, d, s, t, w, quote(b), typeof(c), quote(c), quote(shape) "
    "FROM parcels ORDER BY id";

// A store with the table "parcels", the same each time.
class Parcels {
 public:
  Parcels() {
    MakeOneTableStore(database_, file_.File(), L"parcels", kColumns);
    file_.Run(
        "CREATE UNIQUE INDEX once ON parcels (t);"
        "CREATE TRIGGER refuse BEFORE INSERT ON parcels WHEN new.n = 13 BEGIN SELECT RAISE(ABORT, "
        "'unlucky'); "
        "END");
  }

  TableFdo& Table() { return static_cast<TableFdo&>(database_[0]); }
  FdoPtr<FdoIConnection> Connection() { return FdoPtr<FdoIConnection>(database_.FdoConnection()); }
  std::string Stored() const { return file_.Rows(kStored); }
  std::wstring File() const { return file_.File(); }
  // The definition of the table with other columns.
  TableDef Defined(wchar_t const* columns) {
    return MakeTableDef(Table().Def()->SchemaName(), L"parcels", columns);
  }

 private:
  SqliteFile file_;
  DatabaseFdo database_;
};

// What a table did before commands took rows in one call.
class ValueByValue {
 public:
  ValueByValue(FdoIConnection* connection, TableDef const& def)
      : insert_(internal::MakeTableCommand<FdoIInsert>(connection, FdoCommandType_Insert, def.Name())),
        values_(def, *FdoPtr<FdoPropertyValueCollection>(insert_->GetPropertyValues())) {}

  bool Insert(Row const& row, __int64* newId, bool storeMakesId) {
    values_.FillFrom(row, storeMakesId);
    bool const inserted = AtBoundary(false, [&] {
      FdoPtr<FdoIFeatureReader> const reader = insert_->Execute();
      *newId = reader->ReadNext() ? reader->GetInt64(L"id") : 0;
      return true;
    });
    values_.SetAllNull();
    return inserted;
  }

 private:
  FdoPtr<FdoIInsert> insert_;
  internal::InsertValues values_;
};

// Cells of every kind, those among them that no column takes.
std::vector<Value> Cells() {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  std::vector<Value> cells(2);
  cells[0].Invalidate();
  cells.emplace_back(true);
  for (__int64 const number : {0LL, 7LL, -1LL, 255LL, 300LL, 70'000LL, -7'000'000'000LL}) {
    cells.emplace_back(number);
  }
  for (double const number : {0.0, 0.1, -2.5, 1e300, kInfinite, std::numeric_limits<double>::quiet_NaN()}) {
    cells.emplace_back(number);
  }
  for (wchar_t const* const text :
       {L"", L"7", L"high", L"TRUE", L"2.5", L"2024-03-01", L"2024-03-01T14:30:05.250", L"07:05:03",
        L"2024-13-32", L"2024-02-30 25:00:00", L"Stra\u00dfe \U0001F600", L"\xD800 alone"}) {
    cells.emplace_back(text);
  }
  auto const addBytes = [&](std::vector<unsigned char> const& bytes, std::size_t size) {
    cells.emplace_back();
    static constexpr unsigned char kNoBytes = 0;
    cells.back().Reset(size == 0 ? &kNoBytes : bytes.data(), static_cast<int>(size), /*copy=*/true);
  };
  for (std::string_view const text :
       {"POINT (1 2)", "POINT Z (1 2 3)", "POINT ZM (1 2 3 4)", "LINESTRING M (0 0 1, 2 2 1)",
        "POLYGON ((0 0, 4 0, 4 4, 0 0))", "MULTIPOINT (1 2, 3 4)", "MULTILINESTRING ((0 0, 1 1), (2 2, 3 3))",
        "MULTIPOLYGON (((0 0, 4 0, 4 4, 0 0)))", "GEOMETRYCOLLECTION (POINT (1 2), LINESTRING (0 0, 1 1))",
        "CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0)))",
        "CURVEPOLYGON ((0 0 (CIRCULARARCSEGMENT (1 1, 2 0), CIRCULARARCSEGMENT (1 -1, 0 0))))"}) {
    std::vector<unsigned char> const fgf = Fgf(text);
    addBytes(fgf, fgf.size());
  }
  std::vector<unsigned char> const point = Fgf("POINT (1 2)");
  addBytes(point, point.size() - 1);
  addBytes(point, 0);
  addBytes({'t', 'e', 'x', 't'}, 4);
  addBytes({'a', 0, 'b'}, 3);
  addBytes({0xC3, 0x28}, 2);
  return cells;
}

// Inserts rows by both ways into stores that are alike, and compares what each of them says.
class BothWays {
 public:
  explicit BothWays(wchar_t const* columns)
      : directDef_(direct_.Defined(columns)),
        table_(direct_.Connection(), &directDef_, /*accessByName=*/false),
        publishedDef_(published_.Defined(columns)),
        byValue_(std::make_unique<ValueByValue>(published_.Connection(), publishedDef_)) {
    table_.BeginWrite();
  }

  TableDef const& Def() const { return directDef_; }

  bool Insert(Row const& row, bool storeMakesId, std::string const& what) {
    __int64 directId = -7;
    lines_.Forget();
    bool const inserted = table_.Insert(row, &directId, storeMakesId);
    std::vector<std::wstring> const directLines = Lines(direct_);
    __int64 publishedId = -7;
    lines_.Forget();
    EXPECT_EQ(inserted, byValue_->Insert(row, &publishedId, storeMakesId)) << what;
    EXPECT_EQ(directLines, Lines(published_)) << what;
    EXPECT_EQ(directId, publishedId) << what;
    return inserted;
  }

  void ExpectSameStores() {
    table_.CommitWrite();
    byValue_ = nullptr;
    EXPECT_EQ(direct_.Stored(), published_.Stored());
  }
  std::string Stored() const { return direct_.Stored(); }

 private:
  // Without the name of the file.
  std::vector<std::wstring> Lines(Parcels const& parcels) const {
    std::vector<std::wstring> lines = lines_.Lines();
    for (std::wstring& line : lines) {
      std::size_t const place = line.find(parcels.File());
      if (place != std::wstring::npos) line.erase(place, parcels.File().size());
    }
    return lines;
  }

  CapturedDiagnostics lines_;
  Parcels direct_;
  TableDef directDef_;
  TableFdo table_;
  Parcels published_;
  TableDef publishedDef_;
  std::unique_ptr<ValueByValue> byValue_;
};

TEST(DirectInsert, EveryCellIsStoredOrRefusedAsItsValueIs) {
  std::vector<Value> const cells = Cells();
  for (wchar_t const* const columns : {kColumns, kOtherColumns}) {
    SCOPED_TRACE(columns == kColumns ? "own types" : "other types");
    BothWays ways(columns);
    Row row(&ways.Def());
    int inserted = 0, refused = 0;
    for (int column = 0; column < ways.Def().ColumnCount(); ++column) {
      for (std::size_t i = 0; i < cells.size(); ++i) {
        for (bool const storeMakesId : {true, false}) {
          if (column != 0 && !storeMakesId) continue;
          row.Invalidate();
          row[column] = cells[i];
          bool const done = ways.Insert(row, storeMakesId,
                                        "column " + std::to_string(column) + ", cell " + std::to_string(i));
          ++(done ? inserted : refused);
        }
      }
    }
    EXPECT_GT(inserted, 300);
    EXPECT_GT(refused, 20);
    ways.ExpectSameStores();
  }
}

TEST(DirectInsert, RowsFollowOneAnother) {
  BothWays ways(kColumns);
  Row row(&ways.Def());
  std::vector<unsigned char> const shapes[] = {Fgf("POINT (1 2)"), Fgf("LINESTRING (0 0, 1 1)")};
  for (int i = 0; i < 40; ++i) {
    row.Invalidate();
    // A null after a value, and the other way round; every 13th fails late, every 11th repeats a text.
    if (i % 2 == 0) row[L"n"].Reset(i);
    if (i == 26) row[L"n"].Reset(13);
    if (i % 3 == 0) row[L"t"].Reset((L"text " + std::to_wstring(i % 33)).c_str(), /*copy=*/true);
    if (i % 4 == 0) row[L"w"].Reset(L"2024-03-01", /*copy=*/true);
    if (i % 5 != 0) row[L"shape"].Reset(shapes[i % 2].data(), static_cast<int>(shapes[i % 2].size()), true);
    if (i % 7 == 0) row[L"id"].Reset(1000 + i);
    bool const done = ways.Insert(row, /*storeMakesId=*/i % 14 != 0, "row " + std::to_string(i));
    EXPECT_EQ(done, i != 26 && i != 33 && i != 36 && i != 39) << i;
  }
  ways.ExpectSameStores();
  EXPECT_NE(ways.Stored().find("1014|"), std::string::npos);
}

TEST(DirectInsert, IsWhatTheSqliteProviderOffers) {
  CapturedDiagnostics const lines;
  Parcels parcels;
  auto const insert =
      internal::MakeTableCommand<FdoIInsert>(parcels.Connection(), FdoCommandType_Insert, L"parcels");
  EXPECT_NE(dynamic_cast<fdo_sdk::DirectInsert*>(insert.p), nullptr);
}

// The values of an insert that an update has filled are not emptied before the next insert.
TEST(DirectInsert, WhatAnUpdateLeftIsInsertedOnce) {
  CapturedDiagnostics const lines;
  Parcels parcels;
  TableFdo& table = parcels.Table();
  Row row(table.Def());
  table.BeginWrite();
  row[L"n"].Reset(1);
  EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/true));
  row[L"n"].Reset(2);
  row[L"t"].Reset(L"left", /*copy=*/false);
  EXPECT_FALSE(table.Update(row, static_cast<__int64>(77)));
  row.Invalidate();
  row[L"n"].Reset(3);
  EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/true));
  EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/true));
  table.CommitWrite();
  std::string const stored = parcels.Stored();
  EXPECT_NE(stored.find("2|NULL|NULL|NULL|3|NULL|NULL|NULL|NULL|left|"), std::string::npos) << stored;
  EXPECT_NE(stored.find("3|NULL|NULL|NULL|3|NULL|NULL|NULL|NULL|NULL|"), std::string::npos) << stored;
}

}  // namespace
}  // namespace fdo
