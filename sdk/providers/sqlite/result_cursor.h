// Moves over the rows of a query and gives their values as the interface has them. The readers are thin
// skins over it.
#ifndef SDK_PROVIDERS_SQLITE_RESULT_CURSOR_H_
#define SDK_PROVIDERS_SQLITE_RESULT_CURSOR_H_

#include <cassert>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "Fdo.h"
#include "sdk/extensions/direct_cells.h"
#include "sdk/providers/sqlite/result_columns.h"
#include "sdk/providers/sqlite/statement.h"
#include "sdk/providers/sqlite/stored_geometry.h"
#include "sdk/providers/sqlite/value_reading.h"
#include "sdk/providers/sqlite/wide_buffer.h"

namespace fdo_sqlite {

// The value of a column in one row.
struct Cell {
  std::uint64_t row = 0;           // to which type belongs
  sqlite3_value* value = nullptr;  // null where it is the generated id
  int type = SQLITE_NULL;          // of SQLite
  int columnType = 0;              // as ResultColumn has it
};

// What was made of the geometry of a column in one row.
struct GeometrySlot {
  std::uint64_t row = 0;
  GeometryBytes fgf;
  std::optional<StoredGeometry> stored;
};

// Values and what they are converted into, by column; made when the first value needs it.
struct CursorBuffers {
  std::unique_ptr<Cell[]> cells;
  std::unique_ptr<WideBuffer[]> texts;
  std::unique_ptr<GeometrySlot[]> geometries;
  std::uint64_t row = 0;  // counts the rows that have used them
};

// What a cursor leaves for the next one of the same query, so that a query that is made over and over, such
// as the look-up of one feature, neither prepares nor allocates again.
struct CursorSpares {
  Statement statement;  // reset; what is bound is still bound
  CursorBuffers buffers;
};

typedef std::shared_ptr<CursorSpares> CursorSparesPtr;

// Moving allocates nothing and converts nothing; a value is converted when it is asked for.
//
// The rows are those of the moment at which the query began: SQLite holds a read transaction on the file from
// then to the last row or Close, and other connections' changes are not seen. Changes by the same connection
// are: a row that is changed or removed before the cursor has come to it shows so, or is missing, and a row
// that is added may come or not.
// Errors: FdoCommandException* for a property that there is not, for a null, for another type than the
//   property's, for a stored value that the type cannot hold, and while there is no row.
class ResultCursor {
 public:
  // Steps to the first row, without standing on it yet. The columns are those of the statement, in order.
  // spares may be null. Errors: as the statement's.
  ResultCursor(Statement statement, ResultColumnsPtr columns, CursorSparesPtr spares);

  // One row that is at hand already: the identity of a feature that was just inserted. Either each column has
  // its value, or all have the id that SQLite generated.
  struct FreeValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
  };
  typedef std::vector<std::unique_ptr<sqlite3_value, FreeValue>> KeptRow;
  ResultCursor(KeptRow row, ResultColumnsPtr columns)
      : columns_(std::move(columns)), keptRow_(std::move(row)), place_(Place::kBeforeRow) {}
  ResultCursor(std::int64_t generatedId, ResultColumnsPtr columns)
      : columns_(std::move(columns)), generatedId_(generatedId), place_(Place::kBeforeRow) {}

  // Rows that something else moves over. Requires: there is one column.
  explicit ResultCursor(ResultColumnsPtr columns) : columns_(std::move(columns)), place_(Place::kBeforeEnd) {}

  // On a row of that value. Requires: the cursor was made for such rows.
  // Borrowed: the value, until the cursor stands on another or closes.
  void StandOn(sqlite3_value* value) {
    ++buffers_.row;
    lentValue_ = value;
    place_ = Place::kOnRow;
    if (readyCells_ != 0) buffers_.cells[0].value = value;
  }

  // Before the row of another generated id. Requires: the cursor was made for one.
  void BeginAgain(std::int64_t generatedId) {
    ++buffers_.row;
    generatedId_ = generatedId;
    readyCells_ = 0;
    place_ = Place::kBeforeRow;
  }

  // Errors: also those of the statement; the cursor is then behind the last row.
  bool MoveNext() {
    if (place_ != Place::kOnRow || !statement_.IsPrepared()) return MoveFirst();
    ++buffers_.row;
    std::uint32_t const ready = readyCells_;
    // Also where the step throws.
    readyCells_ = 0;
    place_ = Place::kAfterEnd;
    if (!statement_.Step()) return End();
    place_ = Place::kOnRow;
    if (ready != 0 && ValueAt(0) != buffers_.cells[0].value) LocateValues();
    readyCells_ = ready;
    return true;
  }

  ~ResultCursor() { End(); }
  ResultCursor(ResultCursor&&) = default;
  ResultCursor& operator=(ResultCursor&&) = delete;

  // Whether the tables have changed since the statement was prepared.
  bool WasPreparedAnew() const { return preparedAnew_; }

  // Gives the statement back, so that its read transaction ends.
  void Close() noexcept;

  ResultColumns const& Columns() const { return *columns_; }
  ResultColumn const& ColumnAt(FdoInt32 index) const {
    if (index < 0 || index >= columns_->Count()) RefuseIndex(index);
    return columns_->At(index);
  }

  // Programs read in the order of the columns, or one column over and over.
  FdoInt32 IndexOf(FdoString* name);

  bool IsNull(FdoInt32 index) {
    Cell const& cell = CellAt(index);
    return cell.columnType == kGeometryColumn ? ReadGeometry(index, cell).IsNull() : cell.type == SQLITE_NULL;
  }
  bool Boolean(FdoInt32 index) {
    Cell const& cell = CellAt(index, FdoDataType_Boolean);
    if (cell.value == nullptr) return generatedId_ != 0;
    if (cell.type == SQLITE_INTEGER) return sqlite3_value_int64(cell.value) != 0;
    bool result = false;
    if (!ReadBoolean(cell.value, result)) RefuseValue(index);
    return result;
  }
  FdoDateTime DateTime(FdoInt32 index);
  float Single(FdoInt32 index);
  // Decimal and Double: there is no getter for Decimal.
  double Double(FdoInt32 index) {
    Cell const& cell = CellAt(index);
    if (cell.columnType != FdoDataType_Double && cell.columnType != FdoDataType_Decimal) RefuseType(index);
    if (cell.type == SQLITE_FLOAT) return sqlite3_value_double(cell.value);
    double result = 0;
    if (!ReadReal(cell.value, result)) RefuseValue(index);
    return result;
  }

  template <class Integer>
  Integer IntegerAt(FdoInt32 index, FdoDataType type) {
    Cell const& cell = CellAt(index, type);
    if (cell.value == nullptr) return static_cast<Integer>(generatedId_);
    Integer result = 0;
    if (cell.type == SQLITE_INTEGER) {
      std::int64_t const stored = sqlite3_value_int64(cell.value);
      result = static_cast<Integer>(stored);
      if (static_cast<std::int64_t>(result) == stored) return result;
    }
    if (!ReadIntegerAs(cell.value, result)) RefuseValue(index);
    return result;
  }

  // Borrowed: until the cursor moves or closes.
  FdoString* Text(FdoInt32 index);
  // BLOB and CLOB. Borrowed: until the cursor moves or closes.
  std::string_view Bytes(FdoInt32 index);
  // FGF. Borrowed: until the cursor moves or closes. Errors: also for a geometry that cannot be read.
  GeometryBytes Geometry(FdoInt32 index);

  // As DirectCells::ReadCell: values that need no conversion but that of text, and of whole numbers to reals.
  // Each kind of value is a function of its own, which this ends with, so that the way to one keeps nothing
  // on the stack for the others.
  fdo_sdk::DirectKind ReadDirectly(FdoInt32 index, FdoInt32 type, fdo_sdk::DirectCell& result) {
    // Without a row there are no cells.
    if (static_cast<std::uint32_t>(index) >= readyCells_ || IsCutOff())
      return LocateAndRead(index, type, result);
    Cell const& cell = buffers_.cells[static_cast<std::size_t>(index)];
    assert(cell.value == ValueAt(index));
    if (cell.columnType != type || cell.value == nullptr) return fdo_sdk::DirectKind::kNone;
    switch (type) {
      case FdoDataType_Boolean:
      case FdoDataType_Int16:
      case FdoDataType_Int32:
      case FdoDataType_Int64:
        return DirectInteger(cell.value, type, result);
      case FdoDataType_Double:
      case FdoDataType_Decimal:
        return DirectReal(cell.value, result);
      case FdoDataType_String:
        return DirectText(index, cell.value, result);
      case FdoDataType_DateTime:
        return DirectMoment(cell.value, result);
      case kGeometryColumn:
        return DirectGeometry(index, cell, result);
      default:
        return fdo_sdk::DirectKind::kNone;
    }
  }

 private:
  enum class Place { kBeforeRow, kBeforeEnd, kOnRow, kAfterEnd, kClosed };

  bool MoveFirst();
  bool End() noexcept;

  // What is asked of a value is first whether it is null, then what it is: SQLite is asked for it once a row.
  // Errors: as those of a getter, of any type.
  Cell const& CellAt(FdoInt32 index) {
    // Without a row there are none; no position below 0 is one, either.
    if (static_cast<std::uint32_t>(index) >= readyCells_) MakeCells(index);
    Cell& cell = buffers_.cells[static_cast<std::size_t>(index)];
    if (cell.row != buffers_.row) ReadCell(cell, index);
    return cell;
  }

  Cell const& CellAt(FdoInt32 index, int columnType) {
    Cell const& cell = CellAt(index);
    if (cell.columnType != columnType) RefuseType(index);
    return cell;
  }

  void ReadCell(Cell& cell, [[maybe_unused]] FdoInt32 index) {
    if (IsCutOff()) LocateValues();
    assert(cell.value == ValueAt(index));
    cell.row = buffers_.row;
    cell.type = cell.value == nullptr ? SQLITE_INTEGER : sqlite3_value_type(cell.value);
  }

  // Whether the connection has been closed, and what it had in the row is gone.
  bool IsCutOff() const { return statement_.IsPrepared() && statement_.Handle() == nullptr; }
  // A row of SQLite is one array, which it fills anew for each row of a statement: while the first value is
  // where it was, so are the others. Asking for each of them would be a tenth of a scan.
  void LocateValues();
  sqlite3_value* ValueAt(FdoInt32 index) const {
    if (statement_.IsPrepared()) return sqlite3_column_value(statement_.Handle(), index);
    return keptRow_.empty() ? lentValue_ : keptRow_[static_cast<std::size_t>(index)].get();
  }

  // Errors: for a position that there is not, and where the cursor stands on no row.
  void MakeCells(FdoInt32 index);
  // Requires: the column is of geometry.
  GeometryBytes ReadGeometry(FdoInt32 index, Cell const& cell);

  void RequireBytes(FdoInt32 index, Cell const& cell);
  FdoString* Decode(FdoInt32 index, std::string_view text);

  fdo_sdk::DirectKind LocateAndRead(FdoInt32 index, FdoInt32 type, fdo_sdk::DirectCell& result);
  static fdo_sdk::DirectKind DirectInteger(sqlite3_value* value, FdoInt32 type, fdo_sdk::DirectCell& result);
  static fdo_sdk::DirectKind DirectReal(sqlite3_value* value, fdo_sdk::DirectCell& result);
  fdo_sdk::DirectKind DirectText(FdoInt32 index, sqlite3_value* value, fdo_sdk::DirectCell& result);
  fdo_sdk::DirectKind DirectMoment(sqlite3_value* value, fdo_sdk::DirectCell& result);
  fdo_sdk::DirectKind DirectGeometry(FdoInt32 index, Cell const& cell, fdo_sdk::DirectCell& result);

  [[noreturn]] void RefuseIndex(FdoInt32 index) const;
  [[noreturn]] void RefuseType(FdoInt32 index) const;
  [[noreturn]] void RefusePlace() const;
  // For a value that could not be read: because it is null, or because it does not fit.
  [[noreturn]] void RefuseValue(FdoInt32 index);

  ResultColumnsPtr columns_;
  CursorSparesPtr spares_;
  Statement statement_;  // not prepared for a kept row, and after the end
  KeptRow keptRow_;
  sqlite3_value* lentValue_ = nullptr;
  std::int64_t generatedId_ = 0;
  Place place_;
  bool preparedAnew_ = false;
  FdoInt32 lastIndex_ = -1;
  FdoDateTime moment_;            // that was read directly
  std::uint32_t readyCells_ = 0;  // how many cells there are; 0 while the cursor stands on no row
  CursorBuffers buffers_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_RESULT_CURSOR_H_
