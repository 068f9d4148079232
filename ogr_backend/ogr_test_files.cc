#include "ogr_backend/ogr_test_files.h"

#include <Fdo.h>
#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "ogr_backend/gdal_absence.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace fdo {

std::vector<Town> const& Towns() {
  static std::vector<Town> const towns = {
      {L"Alpha", 1, 1099511627776LL, 0.5, L"2024-03-01T14:30:05.250", true, "POINT (1 1)"},
      {L"alpha", -2, -1099511627776LL, -1e-3, L"1999-12-31T23:59:59.000", false, "POINT (2 2)"},
      {L"it's", 3, 5, 2.5, L"2000-02-29T00:00:00.000", true, "POINT (3 3)"},
      {L"50%", 4, 6, 1e10, L"2024-03-01T00:00:00.001", false, "POINT (4 4)"},
      {L"K\u00f6ln \u6771", 5, 7, 0.1, L"2024-06-30T12:00:00.500", true, "POINT (5 5)"},
      {nullptr, 0, 0, 0.0, nullptr, false, "POINT (6 6)"},
  };
  return towns;
}

void SetTownSchema(DatabaseDef& def) {
  SetTables(def, L"test",
            {MakeTableDef(L"test", L"town",
                          L"id:Int64 shape:Geometry name:String n:Int32 big:Int64 x:Double d:DateTime "
                          L"flag:Boolean")});
}

void SetGeometry(Row& row, std::string const& text) {
  std::vector<unsigned char> const stream = Fgf(text);
  row[row.Def()->IndexOfGeom()].Reset(stream.data(), static_cast<int>(stream.size()), /*copy=*/true);
}

void SetTown(Row& row, Town const& town) {
  if (town.geometry == nullptr) {
    row[row.Def()->IndexOfGeom()].Reset();
  } else {
    SetGeometry(row, town.geometry);
  }
  row[L"name"].Reset(town.name, /*copy=*/true);
  row[L"n"].Reset(town.n);
  row[L"big"].Reset(town.big);
  row[L"x"].Reset(town.x);
  row[L"d"].Reset(town.date, /*copy=*/true);
  row[L"flag"].Reset(town.flag);
}

std::wstring WriteTowns(ScratchDirectory const& scratch, OgrFormat const& format,
                        std::vector<Town> const& towns) {
  std::wstring const path = scratch.File(format.fileName);
  if (IsWithoutGdal()) return path;
  DatabaseDef def;
  SetTownSchema(def);
  DatabaseOgr database;
  EXPECT_TRUE(database.Create(path.c_str(), nullptr, def)) << ToUtf8(database.LastError());
  if (database.Count() != 1) return path;
  Row row(database[0].Def());
  for (Town const& town : towns) {
    SetTown(row, town);
    EXPECT_TRUE(database[0].Insert(row, nullptr, true)) << ToUtf8(database.LastError());
  }
  return path;
}

std::vector<std::wstring> NamesOf(Table& table) {
  int const column = ColumnOf(table, L"name");
  std::vector<std::wstring> names;
  while (Row const* row = table.Next()) {
    Value const& cell = (*row)[column];
    wchar_t const* const text = cell;
    names.push_back(cell.IsNull() ? L"null" : cell.IsValid() ? text : L"undefined");
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::wstring> NamesWhere(Table& table, wchar_t const* filter) {
  FdoPtr<FdoFilter> const parsed = FdoFilter::Parse(filter);
  table.Query(parsed, nullptr, true);
  return NamesOf(table);
}

int ColumnOf(Table const& table, wchar_t const* name) { return table.Def()->IndexOf(name); }

}  // namespace fdo
