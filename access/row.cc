#include <fdo/geometry_stream.h>
#include <fdo/row.h>
#include <fdo/table.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace fdo {
namespace {

constexpr int kMainGeometry = -1;

Value* NewUndefinedCells(TableDef const& def) {
  auto const count = static_cast<std::size_t>(def.ColumnCount());
  auto* cells = new Value[count];
  std::for_each(cells, cells + count, [](Value& cell) { cell.Invalidate(); });
  return cells;
}

}  // namespace

Row::Row(TableDef const* def) : values_(NewUndefinedCells(*def)), def_(def) {}

Row::Row(Table const* table) : values_(NewUndefinedCells(*table->Def())), def_(table->Def()), table_(table) {}

Row::Row(Row const& other) { CopyFrom(other); }

Row& Row::operator=(Row const& other) {
  CopyFrom(other);
  return *this;
}

Row::~Row() { delete[] values_; }

void Row::Invalidate() {
  int const count = def_->ColumnCount();
  for (int i = 0; i < count; ++i) values_[i].Invalidate();
}

void Row::Fetch(Value& cell, int column) const { table_->FetchCurrentValue(cell, column); }

__int64 Row::ID() const { return def_->HasID() ? static_cast<__int64>(Cell(def_->IndexOfID())) : 0; }

void const* Row::Geom() const { return def_->HasGeom() ? Cell(def_->IndexOfGeom()).AsBlob() : nullptr; }

int Row::GeomLen() const { return def_->HasGeom() ? Cell(def_->IndexOfGeom()).BlobLen() : 0; }

void Row::GeomBBOX(double* const box, int column) const {
  if (column == kMainGeometry) column = def_->IndexOfGeom();
  if (column >= 0 && (*def_)[column].Type() == ColumnDef::kGeometry) {
    Value const& cell = Cell(column);
    unsigned char const* const stream = cell.AsBlob();
    if (stream != nullptr && cell.BlobLen() != 0) {
      double streamBox[4];
      FgfBox(stream, stream + std::max(cell.BlobLen(), 0), streamBox);
      std::copy_n(streamBox, 4, box);
      return;
    }
  }
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double const empty[] = {kInfinity, kInfinity, -kInfinity, -kInfinity};
  std::copy_n(empty, 4, box);
}

void Row::CopyFrom(Row const& other) {
  if (def_ != other.def_) {
    auto* cells = new Value[static_cast<std::size_t>(other.def_->ColumnCount())];
    delete[] values_;
    values_ = cells;
    def_ = other.def_;
    table_ = nullptr;
  }
  if (def_ == nullptr) return;
  for (int i = 0; i < def_->ColumnCount(); ++i) values_[i].CopyFrom(other.Cell(i));
}

}  // namespace fdo
