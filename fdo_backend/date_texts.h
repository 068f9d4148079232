// Date-times as the texts of a table's cells, row after row in the same memory.
#ifndef FDO_BACKEND_DATE_TEXTS_H_
#define FDO_BACKEND_DATE_TEXTS_H_

#include <FdoCommon.h>
#include <fdo/value.h>

#include <utility>
#include <vector>

namespace fdo::internal {

// The text belongs to its cell, as Value has it, and has room for any date-time. When the table moves on, the
// memory is taken back before the cell frees it: a scan allocates nothing for the texts of its rows.
// Requires: what it is handed are always the same cells, which nobody else changes.
class DateTexts {
 public:
  // Leaves the cells that have such a text null.
  // Requires: cells[i] is the cell of column i.
  void TakeBack(Value* cells) {
    for (Text& text : texts_) TakeBack(text, cells[text.column]);
  }

  // The cell, which is that of the column, becomes the text, or null for what has neither year nor hour.
  void Write(FdoDateTime const& moment, int column, Value& cell);

 private:
  struct Text {
    int column;
    Value kept;                        // null while the cell has it
    wchar_t const* address = nullptr;  // of the text, wherever it is
  };

  static void TakeBack(Text& text, Value& cell) {
    if (cell.Type() == Value::kString && static_cast<wchar_t const*>(cell) == text.address) {
      text.kept = std::move(cell);
    }
  }

  Text& TextOf(int column);

  std::vector<Text> texts_;  // of the columns that have been written
};

}  // namespace fdo::internal

#endif  // FDO_BACKEND_DATE_TEXTS_H_
