#include "testing/memory_table.h"

#include <fdo/geometry_stream.h>
#include <fdo/text_conversion.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace fdo {
namespace {

bool BoxesMeet(double const* a, double const* b) {
  return a[0] <= b[2] && b[0] <= a[2] && a[1] <= b[3] && b[1] <= a[3];
}

bool GeometryMeets(Value const& cell, double const* box) {
  if (cell.AsBlob() == nullptr) return false;
  double cellBox[4];
  FgfBox(cell.AsBlob(), cell.AsBlob() + cell.BlobLen(), cellBox);
  return BoxesMeet(cellBox, box);
}

}  // namespace

void MemoryTable::FailAtCall(int n, std::function<void()> fail) {
  callsUntilFailure_ = n;
  fail_ = std::move(fail);
}

void MemoryTable::Called(std::string call) {
  calls_.push_back(std::move(call));
  CountCall();
}

void MemoryTable::CountCall() const {
  if (callsUntilFailure_ > 0 && --callsUntilFailure_ == 0) fail_();
}

bool MemoryTable::Matches(FdoFilter* filter, Cells const& cells) const {
  return filter == nullptr || !matches || matches(filter, cells);
}

__int64 MemoryTable::IdOf(Cells const& cells) const {
  return def_->HasID() ? static_cast<__int64>(cells[static_cast<std::size_t>(def_->IndexOfID())]) : 0;
}

__int64 MemoryTable::NextId() const {
  __int64 last = 0;
  for (Cells const& cells : records) last = std::max(last, IdOf(cells));
  return last + 1;
}

bool MemoryTable::Insert(Row const& row, __int64* newId, bool storeMakesId) {
  CountCall();
  Cells cells(static_cast<std::size_t>(def_->ColumnCount()));
  for (std::size_t i = 0; i < cells.size(); ++i) {
    Value const& cell = row[static_cast<int>(i)];
    if (cell.IsValid()) cells[i] = cell;
  }
  if (storeMakesId && def_->HasID()) cells[static_cast<std::size_t>(def_->IndexOfID())] = Value(NextId());
  if (newId != nullptr) *newId = IdOf(cells);
  records.push_back(std::move(cells));
  return true;
}

template <class Accept>
__int64 MemoryTable::UpdateWhere(Row const& row, Accept accept) {
  CountCall();
  __int64 updated = 0;
  for (Cells& cells : records) {
    if (!accept(cells)) continue;
    ++updated;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      int const column = static_cast<int>(i);
      if (column != def_->IndexOfID() && row[column].IsValid()) cells[i] = row[column];
    }
  }
  return updated;
}

__int64 MemoryTable::Update(Row const& row, FdoFilter* filter) {
  return UpdateWhere(row, [&](Cells const& cells) { return Matches(filter, cells); });
}

bool MemoryTable::Update(Row const& row, __int64 id) {
  return UpdateWhere(row, [&](Cells const& cells) { return IdOf(cells) == id; }) == 1;
}

__int64 MemoryTable::Delete(FdoFilter* filter) {
  CountCall();
  return static_cast<__int64>(
      std::erase_if(records, [&](Cells const& cells) { return Matches(filter, cells); }));
}

bool MemoryTable::Delete(__int64 id) {
  CountCall();
  return std::erase_if(records, [&](Cells const& cells) { return IdOf(cells) == id; }) == 1;
}

template <class Accept>
void MemoryTable::Start(Accept accept) {
  result_.clear();
  next_ = 0;
  shown_ = desired_;
  row_.Invalidate();
  lent_.clear();
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (accept(records[i])) result_.push_back(i);
  }
}

void MemoryTable::Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) {
  std::string call = filter == nullptr ? "Query" : "Query filter";
  if (orderBy != nullptr) call += " order by " + ToUtf8(orderBy) + (ascending ? "" : " descending");
  Called(std::move(call));
  Start([&](Cells const& cells) { return Matches(filter, cells); });
  if (orderBy == nullptr) return;
  auto const column = static_cast<std::size_t>(def_->IndexOf(orderBy));
  std::stable_sort(result_.begin(), result_.end(), [&](std::size_t left, std::size_t right) {
    if (!ascending) std::swap(left, right);
    return records[left][column] < records[right][column];
  });
}

Row const* MemoryTable::Query(__int64 id) {
  Called("Query id " + std::to_string(id));
  Start([&](Cells const& cells) { return IdOf(cells) == id; });
  return Next();
}

void MemoryTable::Query(double const* const box, FdoFilter* filter) {
  Called(filter == nullptr ? "Query box" : "Query box filter");
  double const corners[] = {std::min(box[0], box[2]), std::min(box[1], box[3]), std::max(box[0], box[2]),
                            std::max(box[1], box[3])};
  auto const geometry = static_cast<std::size_t>(def_->IndexOfGeom());
  Start(
      [&](Cells const& cells) { return GeometryMeets(cells[geometry], corners) && Matches(filter, cells); });
}

void MemoryTable::Query() { Query(nullptr, nullptr, true); }

void MemoryTable::QueryRange(__int64 first, __int64 last) {
  Called("QueryRange " + std::to_string(first) + " " + std::to_string(last));
  Start([&](Cells const& cells) { return first <= IdOf(cells) && IdOf(cells) < last; });
}

void MemoryTable::EndQuery() {
  Called("EndQuery");
  result_.clear();
  next_ = 0;
}

__int64 MemoryTable::GetRowCount(FdoFilter* filter, bool allowScan) {
  Called(allowScan ? "GetRowCount scan" : "GetRowCount");
  return std::count_if(records.begin(), records.end(),
                       [&](Cells const& cells) { return Matches(filter, cells); });
}

Row const* MemoryTable::Next() {
  CountCall();
  row_.Invalidate();
  lent_.clear();
  if (next_ >= result_.size()) return nullptr;
  lent_ = records[result_[next_++]];
  return &row_;
}

void MemoryTable::SetDesiredFields(int const* columns, int count) {
  std::string call = "SetDesiredFields";
  desired_.clear();
  if (columns != nullptr) desired_.assign(columns, columns + count);
  for (int column : desired_) call += " " + std::to_string(column);
  // Not counted as a call that may fail: it is how a failed operation cleans up.
  calls_.push_back(desired_.empty() ? call + " all" : call);
}

void MemoryTable::FetchCurrentValue(Value& cell, int column) const {
  CountCall();
  ++fetchCount_;
  if (!shown_.empty() && std::find(shown_.begin(), shown_.end(), column) == shown_.end()) {
    throw std::logic_error("column " + std::to_string(column) + " is not among the desired fields");
  }
  Value const& lent = lent_.at(static_cast<std::size_t>(column));
  switch (lent.Type() & ~Value::kBorrowed) {
    case Value::kString:
      cell.Reset(static_cast<wchar_t const*>(lent), false);
      break;
    case Value::kBlob:
      cell.Reset(lent.AsBlob(), lent.BlobLen(), false);
      break;
    default:
      cell = lent;
      break;
  }
}

bool MemoryDatabase::Connect(wchar_t const* source, wchar_t const* provider, wchar_t const*, bool, bool) {
  connectionString_ = source == nullptr ? L"" : source;
  providerName_ = provider == nullptr ? L"" : provider;
  return true;
}

bool MemoryDatabase::SetSchema(DatabaseDef const& def) {
  ClearSchema();
  def_ = new DatabaseDef;
  def_->CopyFrom(def);
  tables_ = new Table*[static_cast<std::size_t>(def_->Count())]();
  for (int i = 0; i < def_->Count(); ++i) tables_[i] = new MemoryTable(&(*def_)[i]);
  return true;
}

Table* MemoryDatabase::DuplicateTable(Table* table) {
  auto* copy = new MemoryTable(table->Def());
  copy->records = static_cast<MemoryTable*>(table)->records;
  copy->matches = static_cast<MemoryTable*>(table)->matches;
  return copy;
}

}  // namespace fdo
