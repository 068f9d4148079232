#include "sdk/providers/sqlite/value_reading.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "sdk/providers/sqlite/date_text.h"
#include "sdk/providers/sqlite/number_reading.h"

namespace fdo_sqlite {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

bool IntegerFromReal(double real, std::int64_t& result) {
  if (!(real >= -kTwoTo63 && real < kTwoTo63) || real != std::trunc(real)) return false;
  result = static_cast<std::int64_t>(real);
  return true;
}

bool EqualsWord(std::string_view text, std::string_view upperCaseWord) {
  if (text.size() != upperCaseWord.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const unit = text[i] >= 'a' && text[i] <= 'z' ? static_cast<char>(text[i] - ('a' - 'A')) : text[i];
    if (unit != upperCaseWord[i]) return false;
  }
  return true;
}

}  // namespace

std::string_view BytesOf(sqlite3_value* value) {
  // Asked for as a blob, a text comes in the file's encoding, which may be UTF-16.
  void const* const bytes = sqlite3_value_type(value) == SQLITE_BLOB
                                ? sqlite3_value_blob(value)
                                : static_cast<void const*>(sqlite3_value_text(value));
  // The order matters: the first call may convert the value.
  std::size_t const size = static_cast<std::size_t>(sqlite3_value_bytes(value));
  return bytes == nullptr ? std::string_view() : std::string_view(static_cast<char const*>(bytes), size);
}

std::string_view TextOf(sqlite3_value* value, char (&buffer)[kNumberTextSize]) {
  if (sqlite3_value_type(value) != SQLITE_FLOAT) return BytesOf(value);
  char* const end = std::to_chars(buffer, buffer + sizeof buffer, sqlite3_value_double(value)).ptr;
  return std::string_view(buffer, static_cast<std::size_t>(end - buffer));
}

bool ReadInteger(sqlite3_value* value, std::int64_t& result) {
  int const type = sqlite3_value_type(value);
  if (type == SQLITE_INTEGER) {
    result = sqlite3_value_int64(value);
    return true;
  }
  if (type == SQLITE_FLOAT) return IntegerFromReal(sqlite3_value_double(value), result);
  std::string_view const text = BytesOf(value);
  std::int64_t whole = 0;
  double real = 0;
  if (ReadNumber(text, whole)) {
    result = whole;
    return true;
  }
  return ReadNumber(text, real) && IntegerFromReal(real, result);
}

bool ReadReal(sqlite3_value* value, double& result) {
  int const type = sqlite3_value_type(value);
  if (type == SQLITE_FLOAT || type == SQLITE_INTEGER) {
    result = sqlite3_value_double(value);
    return true;
  }
  double real = 0;
  if (!ReadNumber(BytesOf(value), real)) return false;
  result = real;
  return true;
}

bool ReadSingle(sqlite3_value* value, float& result) {
  double real = 0;
  if (!ReadReal(value, real)) return false;
  // Half a step beyond the greatest float rounds to infinity; an infinity itself is one in both types.
  if (std::isfinite(real) && std::fabs(real) >= 0x1.ffffffp127) return false;
  result = static_cast<float>(real);
  return true;
}

bool ReadBoolean(sqlite3_value* value, bool& result) {
  if (sqlite3_value_type(value) == SQLITE_INTEGER) {
    result = sqlite3_value_int64(value) != 0;
    return true;
  }
  double real = 0;
  if (ReadReal(value, real)) {
    result = real != 0;
    return true;
  }
  std::string_view const word = WithoutBlanks(BytesOf(value));
  bool const isTrue = EqualsWord(word, "TRUE");
  if (!isTrue && !EqualsWord(word, "FALSE")) return false;
  result = isTrue;
  return true;
}

bool ReadDateTime(sqlite3_value* value, FdoDateTime& result) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_TEXT:
      return ParseDateText(TextBytesOf(value), result);
    case SQLITE_INTEGER:
      return DateFromUnixSeconds(sqlite3_value_int64(value), result);
    case SQLITE_FLOAT:
      return DateFromJulianDay(sqlite3_value_double(value), result);
    default:
      return ParseDateText(BytesOf(value), result);
  }
}

}  // namespace fdo_sqlite
