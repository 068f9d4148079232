#include <fdo/schema.h>

#include <memory>

#include "values/name_index.h"

namespace fdo {

TableDef::TableDef(TableDef const& other) { CopyFrom(other); }

TableDef& TableDef::operator=(TableDef const& other) {
  CopyFrom(other);
  return *this;
}

TableDef::~TableDef() { Discard(); }

void TableDef::Initialize(wchar_t const* schemaName, wchar_t const* name, ColumnDef const* columns, int count,
                          int idIndex, int geomIndex, int tag) {
  name_ = name == nullptr ? L"" : name;
  if (schemaName != nullptr) schemaName_ = schemaName;
  tag_ = tag;
  idIndex_ = idIndex;
  geomIndex_ = geomIndex;
  SetColumns(count, [columns](int i) -> ColumnDef const& { return columns[i]; });
}

void TableDef::Initialize(wchar_t const* schemaName, wchar_t const* name, ColumnDef const* const* columns,
                          int count, int idIndex, int geomIndex, int tag) {
  name_ = name == nullptr ? L"" : name;
  if (schemaName != nullptr) schemaName_ = schemaName;
  tag_ = tag;
  idIndex_ = idIndex;
  geomIndex_ = geomIndex;
  SetColumns(count, [columns](int i) -> ColumnDef const& { return *columns[i]; });
}

void TableDef::CopyFrom(TableDef const& other) {
  if (this == &other) return;
  name_ = other.name_;
  schemaName_ = other.schemaName_;
  tag_ = other.tag_;
  idIndex_ = other.idIndex_;
  geomIndex_ = other.geomIndex_;
  SetColumns(other.count_, [&other](int i) -> ColumnDef const& { return other.columns_[i]; });
}

int TableDef::IndexOf(wchar_t const* name) const { return index_ == nullptr ? -1 : index_->Find(name); }

ColumnDef const* TableDef::operator[](wchar_t const* name) const {
  int const i = IndexOf(name);
  return i < 0 ? nullptr : &columns_[i];
}

template <class ColumnAt>
void TableDef::SetColumns(int count, ColumnAt columnAt) {
  // The old columns go last: columnAt may give some of them.
  auto columns = std::make_unique<ColumnDef[]>(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) columns[static_cast<std::size_t>(i)].CopyFrom(columnAt(i));
  auto index = std::make_unique<internal::NameIndex>(
      count, [&](int i) { return columns[static_cast<std::size_t>(i)].Name(); });
  Discard();
  columns_ = columns.release();
  index_ = index.release();
  count_ = count;
}

void TableDef::Discard() {
  delete index_;
  index_ = nullptr;
  delete[] columns_;
  columns_ = nullptr;
  count_ = 0;
}

}  // namespace fdo
