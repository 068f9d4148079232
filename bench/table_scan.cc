#include "bench/table_scan.h"

#include <stdexcept>

#include "bench/cell_checksum.h"

namespace fdo::bench {
namespace {

std::uint64_t CellChecksum(Value const& cell, ColumnDef::DataType type) {
  if (cell.IsNull()) return 0;
  switch (type) {
    case ColumnDef::kBoolean:
    case ColumnDef::kInt16:
    case ColumnDef::kInt32:
    case ColumnDef::kInt64:
      return OfInteger(static_cast<__int64>(cell));
    case ColumnDef::kDouble:
      return OfReal(static_cast<double>(cell));
    case ColumnDef::kString:
      return OfCharacter(static_cast<std::uint32_t>(static_cast<wchar_t const*>(cell)[0]));
    case ColumnDef::kDateTime:
      return OfYearDigit(static_cast<wchar_t const*>(cell)[3] - L'0');
    case ColumnDef::kGeometry:
      return OfGeometry(cell.AsBlob(), static_cast<std::size_t>(cell.BlobLen()));
    default:
      throw std::runtime_error("a column of an unexpected type");
  }
}

}  // namespace

RowChecksum::RowChecksum(TableDef const& def) {
  for (int i = 0; i < def.ColumnCount(); ++i) types_.push_back(def[i].Type());
}

std::uint64_t RowChecksum::Of(Row const& row) const {
  std::uint64_t sum = 0;
  for (std::size_t i = 0; i < types_.size(); ++i) {
    sum += CellChecksum(row[static_cast<int>(i)], types_[i]);
  }
  return sum;
}

Work ScanRest(Table& table) {
  RowChecksum const checksum(*table.Def());
  Work work;
  while (Row const* const row = table.Next()) {
    work.checksum += checksum.Of(*row);
    ++work.amount;
  }
  return work;
}

Work ScanTable(Table& table) {
  table.SetDesiredFields(static_cast<int const*>(nullptr), 0);
  table.Query();
  return ScanRest(table);
}

Work ScanColumn(Table& table, wchar_t const* column) {
  int const wanted = table.Def()->IndexOf(column);
  if (wanted < 0) throw std::runtime_error("no such column");
  ColumnDef::DataType const type = (*table.Def())[wanted].Type();

  Work work;
  table.SetDesiredFields(&wanted, 1);
  table.Query();
  while (Row const* const row = table.Next()) {
    work.checksum += CellChecksum((*row)[wanted], type);
    ++work.amount;
  }
  return work;
}

}  // namespace fdo::bench
