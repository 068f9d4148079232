// What a property of each type reads, from a value of whatever type SQLite has there: in SQLite types belong
// to values, and a column of numbers may hold text.
//
// A text is a number when all of it is one, blanks around it aside. A number is never cut, wrapped or rounded
// to fit, but for what a double or a float cannot tell apart.
// Errors: false for what the type cannot hold; the result is then untouched.
// Requires: the value is not null.
#ifndef SDK_PROVIDERS_SQLITE_VALUE_READING_H_
#define SDK_PROVIDERS_SQLITE_VALUE_READING_H_

#include <sqlite3.h>

#include <cstdint>
#include <string_view>

#include "FdoCommon.h"

namespace fdo_sqlite {

bool ReadInteger(sqlite3_value* value, std::int64_t& result);
bool ReadReal(sqlite3_value* value, double& result);
// A real beyond the range of a float is one that it cannot hold.
bool ReadSingle(sqlite3_value* value, float& result);
// A number other than 0 is true; so is the text TRUE, in any case, and FALSE is false.
bool ReadBoolean(sqlite3_value* value, bool& result);
// date_text.h tells what numbers and texts mean.
bool ReadDateTime(sqlite3_value* value, FdoDateTime& result);

template <class Integer>
bool ReadIntegerAs(sqlite3_value* value, Integer& result) {
  std::int64_t wide = 0;
  if (!ReadInteger(value, wide) || static_cast<std::int64_t>(static_cast<Integer>(wide)) != wide)
    return false;
  result = static_cast<Integer>(wide);
  return true;
}

// Room for the text of any number.
inline constexpr int kNumberTextSize = 32;

// The value as UTF-8; a real as the shortest text that reads back the same.
// Borrowed: while the statement stands on the row, or while buffer is untouched.
std::string_view TextOf(sqlite3_value* value, char (&buffer)[kNumberTextSize]);

// The bytes of a text. Borrowed: while the statement stands on the row.
// Requires: the type of the value is SQLITE_TEXT.
inline std::string_view TextBytesOf(sqlite3_value* value) {
  auto const* const text = reinterpret_cast<char const*>(sqlite3_value_text(value));
  // The order matters: the first call may convert the value.
  return std::string_view(text, text == nullptr ? 0 : static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// The bytes of a blob or text; those of its text for a number.
// Borrowed: while the statement stands on the row.
std::string_view BytesOf(sqlite3_value* value);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_VALUE_READING_H_
