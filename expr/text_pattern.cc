#include "expr/text_pattern.h"

namespace fdo::internal {
namespace {

// The character behind the one at text.
wchar_t const* NextCharacter(wchar_t const* text) {
  auto const isSurrogate = [](wchar_t unit, unsigned first) {
    return (static_cast<unsigned>(unit) & ~0x3FFu) == first;
  };
  return isSurrogate(text[0], 0xD800) && isSurrogate(text[1], 0xDC00) ? text + 2 : text + 1;
}

}  // namespace

bool MatchesPattern(wchar_t const* text, wchar_t const* pattern) {
  // Where the last % stands, and the text that it stands for ends. An earlier % need not give more again:
  // the last one can take what it would have left.
  wchar_t const* afterRun = nullptr;
  wchar_t const* runEnd = nullptr;
  while (*text != 0) {
    if (*pattern == L'%') {
      afterRun = ++pattern;
      runEnd = text;
    } else if (*pattern == L'_') {
      ++pattern;
      text = NextCharacter(text);
    } else if (*pattern == *text) {
      ++pattern;
      ++text;
    } else if (afterRun != nullptr) {
      pattern = afterRun;
      text = runEnd = NextCharacter(runEnd);
    } else {
      return false;
    }
  }
  while (*pattern == L'%') ++pattern;
  return *pattern == 0;
}

}  // namespace fdo::internal
