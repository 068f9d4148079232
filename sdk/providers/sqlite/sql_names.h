// Names in SQL, and as the interface shows them.
#ifndef SDK_PROVIDERS_SQLITE_SQL_NAMES_H_
#define SDK_PROVIDERS_SQLITE_SQL_NAMES_H_

#include <string>

#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {

// "name", for SQL.
inline std::string QuotedName(std::string const& sqlName) {
  std::string quoted = "\"";
  for (char const unit : sqlName) quoted.append(unit == '"' ? 2 : 1, unit);
  return quoted + "\"";
}

// 'text', for SQL.
inline std::string QuotedText(std::string const& text) {
  std::string quoted = "'";
  for (char const unit : text) quoted.append(unit == '\'' ? 2 : 1, unit);
  return quoted + "'";
}

// Shows a name of the file as a name of the interface, where a period and a colon separate.
inline std::wstring ShownName(std::string const& sqlName) {
  std::wstring name = fdo_sdk::WideFromUtf8(sqlName);
  for (wchar_t& unit : name) {
    if (unit == L'.' || unit == L':') unit = L'_';
  }
  return name;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SQL_NAMES_H_
