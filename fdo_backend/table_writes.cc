// How a table writes.
#include <Fdo.h>
#include <fdo/table_fdo.h>

#include "access/boundary.h"
#include "fdo_backend/insert_values.h"
#include "fdo_backend/table_command.h"
#include "sdk/extensions/direct_insert.h"

namespace fdo {
namespace {

// The identity of the feature that the insert's reader tells of; 0 when there is none to be had.
__int64 InsertedId(FdoIFeatureReader& reader, TableDef const& def) {
  if (!reader.ReadNext() || !def.HasID()) return 0;
  wchar_t const* const name = def.ID().Name();
  switch (def.ID().Type()) {
    case ColumnDef::kInt16:
      return reader.GetInt16(name);
    case ColumnDef::kInt32:
      return reader.GetInt32(name);
    case ColumnDef::kInt64:
      return reader.GetInt64(name);
    default:
      return 0;
  }
}

}  // namespace

void TableFdo::PrepareInsert() {
  if (insert_ != nullptr) return;
  auto const insert =
      internal::MakeTableCommand<FdoIInsert>(connection_, FdoCommandType_Insert, def_->Name());
  FdoPtr<FdoPropertyValueCollection> const properties = insert->GetPropertyValues();
  insertValues_ = std::make_unique<internal::InsertValues>(*def_, *properties);
  insert_ = insert;
  directInsert_ = dynamic_cast<fdo_sdk::DirectInsert*>(insert_.p);
}

bool TableFdo::Insert(Row const& row, __int64* newId, bool storeMakesId) {
  PrepareInsert();
  // What an update has left in the values is to be inserted, too.
  fdo_sdk::DirectValue const* direct = nullptr;
  if (directInsert_ != nullptr && insertValues_->AreNull()) {
    direct = insertValues_->DirectlyFrom(row, storeMakesId);
  } else {
    insertValues_->FillFrom(row, storeMakesId);
  }
  bool const inserted = AtBoundary(false, [&] {
    FdoPtr<FdoIFeatureReader> reader;
    FdoIFeatureReader** const wanted = newId == nullptr ? nullptr : &reader.p;
    if (direct != nullptr && !directInsert_->ExecuteWith(direct, wanted)) {
      directInsert_ = nullptr;
      direct = nullptr;
      insertValues_->FillFrom(row, storeMakesId);
    }
    if (direct == nullptr) reader = insert_->Execute();
    if (newId != nullptr) *newId = reader == nullptr ? 0 : InsertedId(*reader, *def_);
    return true;
  });
  insertValues_->SetAllNull();
  if (!writing_) insert_ = nullptr;
  return inserted;
}

__int64 TableFdo::Update(Row const& row, FdoFilter* filter) {
  PrepareInsert();  // for its values
  if (update_ == nullptr) {
    update_ = internal::MakeTableCommand<FdoIUpdate>(connection_, FdoCommandType_Update, def_->Name());
  }
  update_->SetFilter(filter);
  FdoPtr<FdoPropertyValueCollection> const properties = update_->GetPropertyValues();
  insertValues_->FillFrom(row, /*leaveOutId=*/true);
  for (int column = 0; column < def_->ColumnCount(); ++column) {
    // A null, too, is sent, as whatever the scratch value holds.
    if (column != def_->IndexOfID() && row[column].IsValid()) {
      properties->Add(insertValues_->PropertyAt(column));
    }
  }
  __int64 const updated = AtBoundary<__int64>(-1, [&] { return update_->Execute(); });
  properties->Clear();
  if (!writing_) update_ = nullptr;
  return updated;
}

bool TableFdo::Update(Row const& row, __int64 id) {
  FdoPtr<FdoFilter> const filter = GetIdFilter(id);
  return Update(row, filter.p) == 1;
}

__int64 TableFdo::Delete(FdoFilter* filter) {
  if (delete_ == nullptr) {
    delete_ = internal::MakeTableCommand<FdoIDelete>(connection_, FdoCommandType_Delete, def_->Name());
  }
  return AtBoundary<__int64>(0, [&] {
    delete_->SetFilter(filter);
    return delete_->Execute();
  });
}

bool TableFdo::Delete(__int64 id) {
  FdoPtr<FdoFilter> const filter = GetIdFilter(id);
  return Delete(filter.p) > 0;
}

void TableFdo::BeginWrite() { writing_ = true; }

void TableFdo::CommitWrite() {
  insert_ = nullptr;
  update_ = nullptr;
  writing_ = false;
}

}  // namespace fdo
