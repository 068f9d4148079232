// A reader that gives its values in one call each, against the same one read by the published operations,
// which access by name uses.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/table_fdo.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/captured_diagnostics.h"
#include "testing/exact_value_text.h"
#include "testing/fgf_builder.h"
#include "testing/one_table_store.h"
#include "testing/schema_builder.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

constexpr wchar_t kColumns[] =
    L"id:Int64 flag:Boolean small:Int16 n:Int32 wide:Int64 x:Double d:Decimal s:Single t:String w:DateTime "
    L"b:Blob shape:Geometry";
// As a definition that is not the store's may have them.
constexpr wchar_t kOtherColumns[] =
    L"id:Int64 flag:Int32 small:Int32 n:Int64 wide:Int32 x:Single d:Double s:Double t:DateTime w:String "
    L"b:Geometry shape:Blob";

void FillRows(Table& parcels) {
  Row row(parcels.Def());
  std::vector<unsigned char> const point = Fgf("POINT (1 2)");
  std::vector<unsigned char> const polygon = Fgf("POLYGON ((0 0, 4 0, 4 4, 0 0))");
  parcels.BeginWrite();
  for (int n = 0; n < 4; ++n) {
    row.Invalidate();
    if (n != 1) {  // a row of nulls
      row[L"flag"].Reset(n == 0);
      row[L"small"].Reset(-7 * n);
      row[L"n"].Reset(70000 * n);
      row[L"wide"].Reset(7000000000LL * n);
      row[L"x"].Reset(0.5 * n);
      row[L"d"].Reset(1.25 * n);
      row[L"s"].Reset(0.25 * n);
      row[L"t"].Reset(n == 2 ? L"Stra\u00dfe" : L"", /*copy=*/true);
      row[L"w"].Reset(n == 2 ? L"2024-03-01" : L"2024-03-01T14:30:05.250", /*copy=*/true);
      row[L"b"].Reset(point.data(), 3, /*copy=*/true);
      auto const& shape = n == 2 ? polygon : point;
      row[L"shape"].Reset(shape.data(), static_cast<int>(shape.size()), /*copy=*/true);
    }
    EXPECT_TRUE(parcels.Insert(row, nullptr, /*storeMakesId=*/true));
  }
  parcels.CommitWrite();
}

TEST(DirectCells, GiveWhatThePublishedOperationsGive) {
  CapturedDiagnostics lines;
  ScratchDirectory const scratch;
  DatabaseFdo database;
  MakeOneTableStore(database, scratch.File("parcels.sqlite"), L"parcels", kColumns);
  FillRows(database[0]);

  FdoPtr<FdoIConnection> const connection = database.FdoConnection();
  for (wchar_t const* const columns : {kColumns, kOtherColumns}) {
    TableDef const table = MakeTableDef(database[0].Def()->SchemaName(), L"parcels", columns);
    for (bool const desired : {false, true}) {
      SCOPED_TRACE(std::string(columns == kColumns ? "own types" : "other types") +
                   (desired ? ", desired" : ", lazy"));
      std::wstring read[2];
      std::vector<std::wstring> said[2];
      for (bool const byName : {false, true}) {
        TableFdo parcels(connection, &table, byName);
        std::vector<int> all;
        for (int i = 0; i < table.ColumnCount(); ++i) all.push_back(i);
        if (desired) parcels.SetDesiredFields(all.data(), table.ColumnCount());
        lines.Forget();
        parcels.Query();
        while (Row const* const row = parcels.Next()) {
          for (int const column : all) read[byName] += ExactTextOf((*row)[column]) + L";";
          read[byName] += L"\n";
        }
        said[byName] = lines.Lines();
      }
      EXPECT_EQ(read[0], read[1]);
      EXPECT_EQ(said[0], said[1]);
      EXPECT_EQ(said[0].empty(), columns == kColumns);
      EXPECT_EQ(read[0].find(L"2024-03-01T14:30:05.250") != std::wstring::npos, columns == kColumns);
    }
  }
}

}  // namespace
}  // namespace fdo
