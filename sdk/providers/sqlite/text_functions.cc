// SQL functions of texts and dates. A null argument gives null but for fdo_concat, where it adds nothing.
#include <charconv>
#include <string>

#include "FdoCommon.h"
#include "sdk/providers/sqlite/date_key.h"
#include "sdk/providers/sqlite/like_pattern.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/providers/sqlite/value_reading.h"

namespace fdo_sqlite {
namespace {

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

void ResultText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// A double has up to 16 digits here, in the shorter of the two forms: 0.1, 1e+20.
std::string TextOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_FLOAT) return std::string(BytesOf(value));
  char text[40];
  char* const end =
      std::to_chars(text, text + sizeof text, sqlite3_value_double(value), std::chars_format::general, 16)
          .ptr;
  return std::string(text, end);
}

void ToString(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    if (!IsNull(arguments[0])) ResultText(context, TextOf(arguments[0]));
  });
}

void Concat(sqlite3_context* context, int count, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    std::string whole;
    for (int i = 0; i < count; ++i) {
      if (!IsNull(arguments[i])) whole += TextOf(arguments[i]);
    }
    ResultText(context, whole);
  });
}

template <FdoStringP (FdoStringP::*map)() const>
void Mapped(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    if (IsNull(arguments[0])) return;
    FdoStringP const text(std::string(BytesOf(arguments[0])).c_str());
    FdoStringP const mapped = (text.*map)();
    ResultText(context, static_cast<char const*>(mapped));
  });
}

bool IsTail(char unit) { return (static_cast<unsigned char>(unit) & 0xC0) == 0x80; }

std::int64_t CountCharacters(std::string_view text) {
  std::int64_t count = 0;
  for (char const unit : text) count += IsTail(unit) ? 0 : 1;
  return count;
}

// The bytes before the character at that place, counted from 0.
std::size_t BytesBefore(std::string_view text, std::int64_t place) {
  std::size_t at = 0;
  while (at < text.size()) {
    if (!IsTail(text[at]) && place-- == 0) break;
    ++at;
  }
  return at;
}

// Places count from 1, 0 is 1, and those below 0 count from the end.
void Substr(sqlite3_context* context, int count, sqlite3_value** arguments) {
  for (int i = 0; i < count; ++i) {
    if (IsNull(arguments[i])) return;
  }
  std::string_view const text = BytesOf(arguments[0]);
  std::int64_t const characters = CountCharacters(text);
  std::int64_t const asked = sqlite3_value_int64(arguments[1]);
  std::int64_t const first = asked > 0 ? asked - 1 : asked == 0 ? 0 : characters + asked;
  std::int64_t length = count > 2 ? sqlite3_value_int64(arguments[2]) : characters;
  if (first < 0 || first >= characters || length <= 0) {
    ResultText(context, "");
    return;
  }
  if (length > characters - first) length = characters - first;
  std::size_t const begin = BytesBefore(text, first);
  ResultText(context, text.substr(begin, BytesBefore(text.substr(begin), length)));
}

// GLOB's pattern for one of LIKE.
void Glob(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    if (!IsNull(arguments[0])) ResultText(context, GlobOfLike(BytesOf(arguments[0])));
  });
}

// Null for what is no date.
template <std::string (*write)(FdoDateTime const&)>
void Date(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    FdoDateTime date;
    if (!IsNull(arguments[0]) && ReadDateTime(arguments[0], date)) ResultText(context, write(date));
  });
}

SqlFunction Scalar(char const* name, int arity, decltype(SqlFunction::run) run) {
  return {name, arity, true, run, nullptr, nullptr};
}

}  // namespace

std::vector<SqlFunction> const& TextFunctions() {
  static std::vector<SqlFunction> const kFunctions = {
      Scalar("fdo_tostring", 1, ToString),
      Scalar("fdo_concat", -1, Concat),
      Scalar("fdo_upper", 1, Mapped<&FdoStringP::Upper>),
      Scalar("fdo_lower", 1, Mapped<&FdoStringP::Lower>),
      Scalar("fdo_substr", 2, Substr),
      Scalar("fdo_substr", 3, Substr),
      Scalar("fdo_glob", 1, Glob),
      Scalar("fdo_date", 1, Date<DateTextOf>),
      Scalar("fdo_date_key", 1, Date<DateKeyOf>),
  };
  return kFunctions;
}

}  // namespace fdo_sqlite
