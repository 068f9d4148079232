#include "sdk/providers/sqlite/store_schema.h"

#include "sdk/providers/sqlite/store_reading.h"

namespace fdo_sqlite {

int StoreClass::ColumnIndex(std::wstring const& propertyName) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].name == propertyName) return static_cast<int>(i);
  }
  return -1;
}

StoreColumn const* StoreClass::Column(std::wstring const& propertyName) const {
  int const index = ColumnIndex(propertyName);
  return index < 0 ? nullptr : &columns[static_cast<std::size_t>(index)];
}

StoreColumn const* StoreClass::RowIdColumn() const {
  for (StoreColumn const& column : columns) {
    if (column.isRowId) return &column;
  }
  return nullptr;
}

StoreClassPtr StoreSchema::Class(FdoIdentifier* name) {
  if (name == nullptr) throw FdoCommandException::Create(L"The command has no class name.");
  return Class(name->GetText());
}

StoreClassPtr StoreSchema::Class(std::wstring const& name) {
  StoreClassPtr const found = FindClass(name);
  if (found != nullptr) return found;
  std::wstring const message = L"There is no class \"" + name + L"\" in \"" + database_.File() + L"\".";
  throw FdoCommandException::Create(message.c_str());
}

StoreClassPtr StoreSchema::FindClass(std::wstring const& name) {
  Refresh();
  std::wstring const scope = std::wstring(kSchemaName) + L":";
  bool const scoped = name.compare(0, scope.size(), scope) == 0;
  std::wstring const plain = scoped ? name.substr(scope.size()) : name;
  for (StoreClassPtr const& candidate : classes_) {
    if (candidate->name == plain) return candidate;
  }
  return nullptr;
}

std::vector<StoreClassPtr> const& StoreSchema::Classes() {
  Refresh();
  return classes_;
}

std::vector<SpatialContext> const& StoreSchema::SpatialContexts() {
  Refresh();
  return spatialContexts_;
}

void StoreSchema::Refresh() {
  if (!version_.IsPrepared()) version_ = database_.Prepare("PRAGMA data_version");
  std::int64_t const version = version_.Step() ? version_.Int64(0) : 0;
  version_.Reset();
  if (version == readVersion_) return;
  StoreContents contents = ReadStore(database_, useFdoMetadata_);
  classes_ = std::move(contents.classes);
  spatialContexts_ = std::move(contents.spatialContexts);
  readVersion_ = version;
  ++generation_;
}

}  // namespace fdo_sqlite
