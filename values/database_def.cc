#include <fdo/schema.h>

#include <cwchar>
#include <memory>

#include "values/name_index.h"

namespace fdo {

DatabaseDef::~DatabaseDef() { Cleanup(); }

void DatabaseDef::Initialize(wchar_t const* name, TableDef* tables, int count) {
  std::unique_ptr<TableDef[]> adopted(tables);
  std::wstring newName(name == nullptr ? L"" : name);
  Cleanup();
  name_ = std::move(newName);
  tables_ = adopted.release();
  count_ = count;
  if (count != 0) BuildIndex();
}

void DatabaseDef::CopyFrom(DatabaseDef const& other) {
  if (this == &other) return;
  auto tables = std::make_unique<TableDef[]>(static_cast<std::size_t>(other.count_));
  for (int i = 0; i < other.count_; ++i) tables[static_cast<std::size_t>(i)].CopyFrom(other.tables_[i]);
  Cleanup();
  name_ = other.name_;
  tables_ = tables.release();
  count_ = other.count_;
  BuildIndex();
}

void DatabaseDef::Cleanup() {
  delete index_;
  index_ = nullptr;
  delete[] tables_;
  tables_ = nullptr;
  count_ = 0;
  name_.clear();
}

int DatabaseDef::IndexOf(wchar_t const* name) const {
  if (count_ == 0 || name == nullptr) return -1;
  wchar_t const* const colon = std::wcschr(name, L':');
  if (colon == nullptr) return index_->Find(name);

  std::wstring const schemaName(name, colon);
  wchar_t const* const tableName = colon + 1;
  int const i = index_->Find(tableName);
  if (i < 0 || tables_[i].SchemaName() == schemaName) return i;
  for (int other = 0; other < count_; ++other) {
    if (std::wcscmp(tables_[other].Name(), tableName) == 0 && tables_[other].SchemaName() == schemaName) {
      return other;
    }
  }
  return -1;
}

TableDef const* DatabaseDef::operator[](wchar_t const* name) const {
  int const i = IndexOf(name);
  return i < 0 ? nullptr : &tables_[i];
}

void DatabaseDef::BuildIndex() {
  index_ = new internal::NameIndex(count_, [this](int i) { return tables_[i].Name(); });
}

}  // namespace fdo
