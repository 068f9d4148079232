#include <fdo/scroller.h>

#include <fdo/db_pool.h>

#include <optional>
#include <string>

#include "pool/connection_pool.h"

namespace fdo {
namespace {

constexpr Database* (*GetConnection)(wchar_t const*, wchar_t const*, wchar_t const*,
                                     bool) = DbPool::GetConnection;

}  // namespace

// The second connection and its table, for as long as a scroller needs them.
class Scroller::Reader {
 public:
  Reader(Database const& db, Table& table)
      : connection_((IsForReading(db) ? DbPool::GetConnectionForReading : GetConnection)(
            db.ConnectionString(), db.ProviderName(), nullptr, true)) {
    if (!connection_) return;
    // The connection's own table of that name: its definition lives as long as the connection does.
    std::wstring name = table.Def()->SchemaName();
    if (!name.empty()) name += L':';
    name += table.Def()->Name();
    Table* const own = (*connection_)[name.c_str()];
    table_ = connection_->DuplicateTable(own != nullptr ? own : &table);
  }
  Reader(Reader const&) = delete;
  Reader& operator=(Reader const&) = delete;
  ~Reader() {
    if (table_ != nullptr) connection_->DestroyTable(table_);
  }

  // The row is a copy, so that no query stays open: one that did would keep other connections from writing.
  Row const* At(__int64 id) {
    if (table_ == nullptr) return nullptr;
    Row const* const row = table_->Query(id);
    if (row != nullptr) {
      if (!row_) row_.emplace(table_->Def());
      row_->CopyFrom(*row);
    }
    table_->EndQuery();
    return row == nullptr ? nullptr : &*row_;
  }

 private:
  DbHandle connection_;
  Table* table_ = nullptr;
  std::optional<Row> row_;
};

Scroller::Scroller(Database* db, Table* table) : reader_(std::make_shared<Reader>(*db, *table)) {
  while (Row const* const row = table->Next()) ids_.push_back(row->ID());
}

Row const* Scroller::At(std::uint64_t i) {
  return i < ids_.size() ? reader_->At(ids_[static_cast<std::size_t>(i)]) : nullptr;
}

}  // namespace fdo
