#include "sdk/providers/sqlite/result_cursor.h"

#include <cwchar>

#include "sdk/providers/sqlite/column_types.h"
#include "sdk/providers/sqlite/data_version.h"
#include "sdk/providers/sqlite/date_text.h"
#include "sdk/providers/sqlite/sql_fragment.h"

namespace fdo_sqlite {

using fdo_sdk::DirectCell;
using fdo_sdk::DirectKind;

namespace {

wchar_t const* NameOf(int type) {
  return type == kGeometryColumn ? L"geometry" : TypeName(static_cast<FdoDataType>(type));
}

// For a value that is not of the type that is read without a conversion.
DirectKind NullOrNone(int stored) { return stored == SQLITE_NULL ? DirectKind::kNull : DirectKind::kNone; }

}  // namespace

ResultCursor::ResultCursor(Statement statement, ResultColumnsPtr columns, CursorSparesPtr spares)
    : columns_(std::move(columns)), spares_(std::move(spares)), statement_(std::move(statement)) {
  if (spares_ != nullptr) buffers_ = std::move(spares_->buffers);
  bool const hasRow = statement_.Step();
  preparedAnew_ = fdo_sqlite::WasPreparedAnew(statement_);
  // Without a row nothing is to keep the file locked for reading.
  if (!hasRow) End();
  place_ = hasRow ? Place::kBeforeRow : Place::kBeforeEnd;
}

bool ResultCursor::MoveFirst() {
  if (place_ == Place::kClosed) RefusePlace();
  ++buffers_.row;
  if (place_ != Place::kBeforeRow) return End();
  place_ = Place::kOnRow;
  return true;
}

bool ResultCursor::End() noexcept {
  place_ = Place::kAfterEnd;
  readyCells_ = 0;
  if (statement_.IsPrepared() && spares_ != nullptr) {
    statement_.Reset();
    spares_->statement = std::move(statement_);
    spares_->buffers = std::move(buffers_);
  }
  statement_ = Statement();
  return false;
}

void ResultCursor::Close() noexcept {
  End();
  place_ = Place::kClosed;
}

FdoInt32 ResultCursor::IndexOf(FdoString* name) {
  if (name == nullptr) fdo_sqlite::Refuse(L"The name of a property is missing.");
  for (FdoInt32 const likely : {lastIndex_ + 1, lastIndex_}) {
    if (likely >= 0 && likely < columns_->Count() &&
        std::wcscmp(columns_->At(likely).name.c_str(), name) == 0) {
      return lastIndex_ = likely;
    }
  }
  int const found = columns_->Find(name);
  if (found < 0) fdo_sqlite::Refuse(L"There is no property \"" + std::wstring(name) + L"\" in the reader.");
  return lastIndex_ = found;
}

void ResultCursor::MakeCells(FdoInt32 index) {
  if (index < 0 || index >= columns_->Count()) RefuseIndex(index);
  if (place_ != Place::kOnRow) RefusePlace();
  if (buffers_.cells == nullptr) {
    buffers_.cells = std::make_unique<Cell[]>(static_cast<std::size_t>(columns_->Count()));
    for (int i = 0; i < columns_->Count(); ++i) buffers_.cells.get()[i].columnType = columns_->At(i).type;
  }
  LocateValues();
  readyCells_ = static_cast<std::uint32_t>(columns_->Count());
}

void ResultCursor::LocateValues() {
  for (FdoInt32 i = 0; i < columns_->Count(); ++i)
    buffers_.cells[static_cast<std::size_t>(i)].value = ValueAt(i);
}

FdoDateTime ResultCursor::DateTime(FdoInt32 index) {
  Cell const& cell = CellAt(index, FdoDataType_DateTime);
  FdoDateTime result;
  if (!ReadDateTime(cell.value, result)) RefuseValue(index);
  return result;
}

float ResultCursor::Single(FdoInt32 index) {
  Cell const& cell = CellAt(index, FdoDataType_Single);
  float result = 0;
  if (!ReadSingle(cell.value, result)) RefuseValue(index);
  return result;
}

FdoString* ResultCursor::Text(FdoInt32 index) {
  Cell const& cell = CellAt(index, FdoDataType_String);
  char number[kNumberTextSize];
  std::string_view const text =
      cell.type == SQLITE_TEXT ? TextBytesOf(cell.value) : TextOf(cell.value, number);
  if (text.data() == nullptr) RequireBytes(index, cell);
  return Decode(index, text);
}

FdoString* ResultCursor::Decode(FdoInt32 index, std::string_view text) {
  if (buffers_.texts == nullptr) {
    buffers_.texts = std::make_unique<WideBuffer[]>(static_cast<std::size_t>(columns_->Count()));
  }
  return buffers_.texts[static_cast<std::size_t>(index)].Decode(text);
}

// An empty blob has no address either; for the rest, a number or a text in another encoding may have found no
// memory to become a text in.
void ResultCursor::RequireBytes(FdoInt32 index, Cell const& cell) {
  if (cell.type == SQLITE_NULL) RefuseValue(index);
  if (cell.type != SQLITE_BLOB) {
    fdo_sqlite::Refuse(L"There is not enough memory to read the property \"" + ColumnAt(index).name + L"\".");
  }
}

std::string_view ResultCursor::Bytes(FdoInt32 index) {
  int const type = ColumnAt(index).type;
  Cell const& cell = CellAt(index, type == FdoDataType_CLOB ? FdoDataType_CLOB : FdoDataType_BLOB);
  std::string_view const bytes = BytesOf(cell.value);
  if (bytes.data() == nullptr) RequireBytes(index, cell);
  return bytes;
}

GeometryBytes ResultCursor::Geometry(FdoInt32 index) {
  GeometryBytes const fgf = ReadGeometry(index, CellAt(index, kGeometryColumn));
  if (fgf.IsNull()) fdo_sqlite::Refuse(L"The property \"" + ColumnAt(index).name + L"\" is null.");
  return fgf;
}

// Whether it is null and what it is are asked one after the other; it is read once a row.
GeometryBytes ResultCursor::ReadGeometry(FdoInt32 index, Cell const& cell) {
  if (buffers_.geometries == nullptr) {
    buffers_.geometries = std::make_unique<GeometrySlot[]>(static_cast<std::size_t>(columns_->Count()));
  }
  GeometrySlot& slot = buffers_.geometries[static_cast<std::size_t>(index)];
  if (slot.row == buffers_.row) return slot.fgf;
  if (!slot.stored) slot.stored.emplace(columns_->At(index).format);
  slot.fgf = slot.stored->Fgf(cell.value);
  slot.row = buffers_.row;
  return slot.fgf;
}

DirectKind ResultCursor::LocateAndRead(FdoInt32 index, FdoInt32 type, DirectCell& result) {
  // Cells that are cut off are null for the getters.
  if (IsCutOff()) return DirectKind::kNone;
  MakeCells(index);
  return ReadDirectly(index, type, result);
}

DirectKind ResultCursor::DirectInteger(sqlite3_value* value, FdoInt32 type, DirectCell& result) {
  int const stored = sqlite3_value_type(value);
  if (stored != SQLITE_INTEGER) return NullOrNone(stored);
  std::int64_t const number = sqlite3_value_int64(value);
  if (type == FdoDataType_Boolean) {
    result.flag = number != 0;
    return DirectKind::kFlag;
  }
  // What lies beyond the type must all be as the sign.
  int const bits = type == FdoDataType_Int16 ? 15 : type == FdoDataType_Int32 ? 31 : 63;
  if (number >> bits != number >> 63) return DirectKind::kNone;
  result.integer = number;
  return DirectKind::kInteger;
}

DirectKind ResultCursor::DirectReal(sqlite3_value* value, DirectCell& result) {
  int const stored = sqlite3_value_type(value);
  if (stored != SQLITE_FLOAT && stored != SQLITE_INTEGER) return NullOrNone(stored);
  result.real = sqlite3_value_double(value);
  return DirectKind::kReal;
}

DirectKind ResultCursor::DirectText(FdoInt32 index, sqlite3_value* value, DirectCell& result) {
  int const stored = sqlite3_value_type(value);
  if (stored != SQLITE_TEXT) return NullOrNone(stored);
  std::string_view const text = TextBytesOf(value);
  if (text.data() == nullptr) return DirectKind::kNone;
  result.text = Decode(index, text);
  return DirectKind::kText;
}

DirectKind ResultCursor::DirectMoment(sqlite3_value* value, DirectCell& result) {
  int const stored = sqlite3_value_type(value);
  if (stored != SQLITE_TEXT) return NullOrNone(stored);
  if (!ParseDateText(TextBytesOf(value), moment_)) return DirectKind::kNone;
  result.moment = &moment_;
  return DirectKind::kMoment;
}

DirectKind ResultCursor::DirectGeometry(FdoInt32 index, Cell const& cell, DirectCell& result) {
  GeometryBytes const fgf = ReadGeometry(index, cell);
  result.bytes = fgf.data;
  result.size = static_cast<FdoInt32>(fgf.size);
  return fgf.IsNull() ? DirectKind::kNull : DirectKind::kBytes;
}

void ResultCursor::RefuseIndex(FdoInt32 index) const {
  fdo_sqlite::Refuse(L"There is no property at position " + std::to_wstring(index) + L" in the reader.");
}

void ResultCursor::RefuseType(FdoInt32 index) const {
  ResultColumn const& column = ColumnAt(index);
  fdo_sqlite::Refuse(L"The property \"" + column.name + L"\" is of another type: " + NameOf(column.type) +
                     L".");
}

void ResultCursor::RefusePlace() const {
  fdo_sqlite::Refuse(place_ == Place::kClosed ? L"The reader is closed." : L"The reader stands on no row.");
}

void ResultCursor::RefuseValue(FdoInt32 index) {
  ResultColumn const& column = ColumnAt(index);
  Cell const& cell = CellAt(index);
  if (cell.type == SQLITE_NULL) fdo_sqlite::Refuse(L"The property \"" + column.name + L"\" is null.");
  char number[kNumberTextSize];
  std::string_view const text = TextOf(cell.value, number).substr(0, 100);
  WideBuffer shown;
  fdo_sqlite::Refuse(L"The value \"" + std::wstring(shown.Decode(text)) +
                     L"\" that is stored for the property \"" + column.name + L"\" does not fit its type, " +
                     NameOf(column.type) + L".");
}

}  // namespace fdo_sqlite
