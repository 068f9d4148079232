#include "sdk/providers/sqlite/like_pattern.h"

namespace fdo_sqlite {
namespace {

// The place of the bracket that closes the set behind an opening one. Errors: npos.
std::size_t EndOfSet(std::string_view pattern, std::size_t set) {
  if (set < pattern.size() && pattern[set] == '^') ++set;
  if (set < pattern.size() && pattern[set] == ']') ++set;
  return pattern.find(']', set);
}

}  // namespace

std::string GlobOfLike(std::string_view pattern) {
  std::string glob;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    char const c = pattern[i];
    if (c == '%') {
      glob += '*';
    } else if (c == '_') {
      glob += '?';
    } else if (c == '[') {
      std::size_t const end = EndOfSet(pattern, i + 1);
      if (end == std::string_view::npos) {
        glob += "[[]";
      } else {
        glob += pattern.substr(i, end - i + 1);
        i = end;
      }
    } else if (c == '*' || c == '?') {
      glob += '[';
      glob += c;
      glob += ']';
    } else {
      glob += c;
    }
  }
  return glob;
}

}  // namespace fdo_sqlite
