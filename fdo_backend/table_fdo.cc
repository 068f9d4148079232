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
      dateTexts_(std::make_unique<internal::DateTexts>()),
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
  directCells_ = nullptr;
  AtBoundary([&] { reader->Close(); });
}

Row const* TableFdo::Next() {
  return AtBoundary<Row const*>(nullptr, [&]() -> Row const* {
    if (reader_ == nullptr || !reader_->ReadNext()) {
      EndQuery();
      row_.Invalidate();
      return nullptr;
    }
    dateTexts_->TakeBack(cells_);
    // By name a provider may have given a cell outside the desired fields, which is now the last row's.
    if (shown_.positions.empty() || accessByName_) row_.Invalidate();
    for (int const column : shown_.columns) ConvertValue(cells_[column], column);
    return &row_;
  });
}

void TableFdo::FetchCurrentValue(Value& cell, int column) const { ConvertValue(cell, column); }

void TableFdo::ConvertValue(Value& cell, int column) const {
  if (directCells_ == nullptr) return ConvertPublished(cell, column);
  FdoInt32 const position = PositionOf(column);
  if (position < 0) return cell.Invalidate();
  bool const converted = AtBoundary(false, [&] {
    if (!internal::ReadCellDirectly(*directCells_, position, (*def_)[column].Type(), *dateTexts_, column,
                                    cell)) {
      ConvertPublished(cell, column);
    }
    return true;
  });
  if (!converted) cell.Invalidate();
}

// Apart from the way above, whose frame stays small so.
QUILLON_NEVER_INLINE void TableFdo::ConvertPublished(Value& cell, int column) const {
  if (reader_ == nullptr) return cell.Invalidate();
  ColumnDef const& definition = (*def_)[column];
  bool const converted = AtBoundary(false, [&] {
    if (accessByName_) {
      internal::ReadCell(*reader_, definition.Name(), definition.Type(), *dateTexts_, column, cell);
    } else if (FdoInt32 const position = PositionOf(column); position < 0) {
      cell.Invalidate();
    } else {
      internal::ReadCell(*reader_, position, definition.Type(), *dateTexts_, column, cell);
    }
    return true;
  });
  // What the cell held was the last row's, and its lender may be gone.
  if (!converted) cell.Invalidate();
}

void TableFdo::SetDesiredFields(int const* columns, int count) {
  DesiredFields desired;
  if (columns == nullptr || count == 0) {
    desired_ = DesiredFields();
    return;
  }
  auto const columnCount = static_cast<std::size_t>(def_->ColumnCount());
  desired.positions.assign(columnCount, -1);
  for (int k = 0; k < count; ++k) desired.positions[static_cast<std::size_t>(columns[k])] = k;
  for (std::size_t column = 0; column < columnCount; ++column) {
    if (desired.positions[column] >= 0) desired.columns.push_back(static_cast<int>(column));
  }
  desired_ = std::move(desired);
}

}  // namespace fdo
