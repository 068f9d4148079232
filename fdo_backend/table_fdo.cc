// The table itself and its cursor.
#include <fdo/table_fdo.h>

#include <Fdo.h>

#include <algorithm>
#include <utility>

#include "access/boundary.h"
#include "fdo_backend/insert_values.h"
#include "fdo_backend/reader_cell.h"

namespace fdo {

TableFdo::TableFdo(FdoIConnection* connection, TableDef const* def, bool accessByName)
    : Table(def),
      row_(this),
      accessByName_(accessByName),
      connection_(FDO_SAFE_ADDREF(connection)) {
  // Asking for the cell fetches it, which needs the members: without a reader it stays undefined.
  if (def->ColumnCount() > 0) cells_ = &row_[0];
}

TableFdo::~TableFdo() { TableFdo::EndQuery(); }

void TableFdo::EndQuery() {
  if (reader_ == nullptr) return;
  // Forgotten first: the table is idle even when the reader fails to close.
  FdoPtr<FdoIFeatureReader> const reader(reader_.Detach());
  AtBoundary([&] { reader->Close(); });
}

Row const* TableFdo::Next() {
  return AtBoundary<Row const*>(nullptr, [&]() -> Row const* {
    if (reader_ == nullptr || !reader_->ReadNext()) {
      EndQuery();
      row_.Invalidate();
      return nullptr;
    }
    if (positions_.empty()) {
      row_.Invalidate();
    } else {
      for (int const column : desired_) ConvertValue(cells_[column], column);
    }
    return &row_;
  });
}

void TableFdo::FetchCurrentValue(Value& cell, int column) const { ConvertValue(cell, column); }

void TableFdo::ConvertValue(Value& cell, int column) const {
  if (reader_ == nullptr) return cell.Invalidate();
  ColumnDef const& definition = (*def_)[column];
  bool const converted = AtBoundary(false, [&] {
    if (accessByName_) {
      internal::ReadCell(*reader_, definition.Name(), definition.Type(), cell);
      return true;
    }
    FdoInt32 const position = positions_.empty() ? column : positions_[static_cast<std::size_t>(column)];
    if (position < 0) {
      cell.Invalidate();
    } else {
      internal::ReadCell(*reader_, position, definition.Type(), cell);
    }
    return true;
  });
  // What the cell held was the last row's, and its lender may be gone.
  if (!converted) cell.Invalidate();
}

void TableFdo::SetDesiredFields(int const* columns, int count) {
  positions_.clear();
  desired_.clear();
  if (columns == nullptr || count == 0) return;
  positions_.assign(static_cast<std::size_t>(def_->ColumnCount()), -1);
  for (int k = 0; k < count; ++k) positions_[static_cast<std::size_t>(columns[k])] = k;
  for (int column = 0; column < def_->ColumnCount(); ++column) {
    if (positions_[static_cast<std::size_t>(column)] >= 0) desired_.push_back(column);
  }
}

}  // namespace fdo
