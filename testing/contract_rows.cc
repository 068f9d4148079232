#include "testing/contract_rows.h"

#include <fdo/text_conversion.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr unsigned kSeed = 20240301;
constexpr int kRowCount = 40;

std::optional<double> NumberIn(Value const& cell) {
  if (cell.IsNull()) return std::nullopt;
  return static_cast<double>(cell);
}

std::optional<std::wstring> TextIn(Value const& cell) {
  if (cell.IsNull()) return std::nullopt;
  return std::wstring(static_cast<wchar_t const*>(cell));
}

}  // namespace

void SetContractSchema(DatabaseDef& def) {
  SetTables(def, L"test",
            {MakeTableDef(L"test", L"town", L"id:Int64 shape:Geometry name:String n:Int32 x:Double")});
}

void SetContractRow(Row& row, ContractRow const& from) {
  std::vector<unsigned char> const stream = Fgf(from.geometry);
  row[row.Def()->IndexOfGeom()].Reset(stream.data(), static_cast<int>(stream.size()), /*copy=*/true);
  row[L"name"].Reset(from.name ? from.name->c_str() : nullptr, /*copy=*/true);
  row[L"n"].Reset(from.n);
  if (from.x) {
    row[L"x"].Reset(*from.x);
  } else {
    row[L"x"].Reset();
  }
}

void InsertContractRows(Table& table, std::vector<ContractRow> const& rows) {
  Row row(table.Def());
  table.BeginWrite();
  for (ContractRow const& from : rows) {
    SetContractRow(row, from);
    EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/true)) << "row " << from.n;
  }
  table.CommitWrite();
}

std::vector<ContractRow> RandomContractRows() {
  // The engine's numbers are the same everywhere; the library's distributions are not.
  std::mt19937 random(kSeed);
  auto const below = [&](unsigned end) { return static_cast<int>(random() % end); };
  std::vector<ContractRow> rows;
  for (int i = 0; i < kRowCount; ++i) {
    ContractRow row;
    row.n = (i * 17 + 5) % kRowCount * 3 - 50;  // 17 and the count have no common divisor
    if (below(7) != 0) row.name = L"w\u00f6rd " + std::to_wstring(below(9));
    if (below(5) != 0) row.x = (below(16000) - 8000) / 8.0;
    int const left = below(90);
    std::string const y = std::to_string(below(100));
    row.geometry = "LINESTRING (" + std::to_string(left) + " " + y + ", " +
                   std::to_string(left + 1 + below(9)) + " " + y + ")";
    rows.push_back(std::move(row));
  }
  return rows;
}

std::ostream& operator<<(std::ostream& out, ScannedRow const& row) {
  out << "id " << row.id << " n " << row.n << " name "
      << (row.name ? '"' + ToUtf8(row.name->c_str()) + '"' : "null") << " x "
      << (row.x ? std::to_string(*row.x) : "null") << " box";
  for (double ordinate : row.box) out << ' ' << ordinate;
  return out;
}

ScannedRow Scanned(Row const& row) {
  ScannedRow scanned{row.ID(), row[L"n"], TextIn(row[L"name"]), NumberIn(row[L"x"]), {}};
  row.GeomBBOX(scanned.box.data(), -1);
  return scanned;
}

std::vector<ScannedRow> ScanRest(Table& table) {
  std::vector<ScannedRow> rows;
  while (Row const* row = table.Next()) rows.push_back(Scanned(*row));
  return rows;
}

bool BoxesMeet(std::array<double, 4> const& a, double const* b) {
  return a[0] <= b[2] && b[0] <= a[2] && a[1] <= b[3] && b[1] <= a[3];
}

}  // namespace fdo
