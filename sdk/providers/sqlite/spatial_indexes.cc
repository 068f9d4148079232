#include "sdk/providers/sqlite/spatial_indexes.h"

#include "sdk/providers/sqlite/box_rows_function.h"

namespace fdo_sqlite {

SpatialIndexes::SpatialIndexes(Database& database) : database_(database) {
  int const code = RegisterBoxRows(database_.Handle(), *this);
  if (code != SQLITE_OK) database_.Fail(code, L"prepare the spatial indexes of");
}

int SpatialIndexes::NumberOf(IndexedColumn const& column) {
  auto const found = numbers_.find(column);
  if (found != numbers_.end()) return found->second;
  indexes_.push_back(std::make_unique<SpatialIndex>(database_, column));
  int const number = static_cast<int>(indexes_.size());
  numbers_.emplace(column, number);
  return number;
}

void SpatialIndexes::Settle() noexcept {
  for (auto const& index : indexes_) {
    if (index->IsWritten()) index->Fold();
  }
}

}  // namespace fdo_sqlite
