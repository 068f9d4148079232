#include "fdo_backend/visited_column.h"

#include "fdo_backend/reader_cell.h"

namespace fdo::internal {

VisitedColumn::~VisitedColumn() {
  table_.EndQuery();
  table_.row_.Invalidate();
}

void VisitedColumn::VisitCell(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& read,
                              FdoIFeatureReader& reader) {
  // Apart from the rest, whose frame this way does not need.
  if (kind == fdo_sdk::DirectKind::kReal) {
    cell_.Reset(read.real);
  } else {
    Take(kind, read, reader);
  }
  visitor_.Visit(cell_);
}

QUILLON_NEVER_INLINE void VisitedColumn::Take(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& read,
                                              FdoIFeatureReader& reader) {
  table_.dateTexts_->TakeBack(table_.cells_);
  if (!TakeDirectCell(kind, read, *table_.dateTexts_, column_, cell_)) {
    if (table_.reader_ == nullptr) table_.reader_ = FDO_SAFE_ADDREF(&reader);
    table_.ConvertPublished(cell_, column_);
    // As after Next, a row asks once more for a cell that could not be read.
    static_cast<void>(table_.row_[column_]);
  }
}

}  // namespace fdo::internal
