// Letters as SQLite compares names: only those of ASCII have a case.
#ifndef SDK_PROVIDERS_SQLITE_ASCII_H_
#define SDK_PROVIDERS_SQLITE_ASCII_H_

#include <string>

namespace fdo_sqlite {

inline std::string UpperAscii(std::string text) {
  for (char& unit : text) {
    if (unit >= 'a' && unit <= 'z') unit = static_cast<char>(unit - 'a' + 'A');
  }
  return text;
}

// Orders names for maps whose keys are names in SQL.
struct SqlNameLess {
  bool operator()(std::string const& left, std::string const& right) const {
    return UpperAscii(left) < UpperAscii(right);
  }
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_ASCII_H_
