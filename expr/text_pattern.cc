#include "expr/text_pattern.h"

#include <cstdint>

namespace fdo::internal {
namespace {

// Takes the character at text; where two units are one character, both.
std::uint32_t Take(wchar_t const*& text) {
  auto const isSurrogate = [](wchar_t unit, std::uint32_t first) {
    return (static_cast<std::uint32_t>(unit) & ~0x3FFu) == first;
  };
  auto const lead = static_cast<std::uint32_t>(*text++);
  if (!isSurrogate(text[-1], 0xD800) || !isSurrogate(*text, 0xDC00)) return lead;
  return 0x10000 + ((lead & 0x3FF) << 10) + (static_cast<std::uint32_t>(*text++) & 0x3FF);
}

// The bracket that closes the set behind an opening one; null when there is none.
wchar_t const* EndOfSet(wchar_t const* set) {
  if (*set == L'^') ++set;
  if (*set == L']') ++set;
  while (*set != 0 && *set != L']') ++set;
  return *set == 0 ? nullptr : set;
}

bool IsInSet(std::uint32_t character, wchar_t const* set, wchar_t const* end) {
  bool const isInverted = *set == L'^';
  if (isInverted) ++set;
  bool found = false;
  std::uint32_t before = 0;  // the character that a range can begin with
  while (set < end) {
    std::uint32_t const member = Take(set);
    if (member == L'-' && before != 0 && set < end) {
      found = found || (character >= before && character <= Take(set));
      before = 0;
    } else {
      found = found || character == member;
      before = member;
    }
  }
  return found != isInverted;
}

// Takes one character of the text and what of the pattern stands for it.
// Requires: neither is at its end; the pattern is not at a %.
bool TakeOne(wchar_t const*& text, wchar_t const*& pattern) {
  std::uint32_t const character = Take(text);
  if (*pattern == L'_') {
    ++pattern;
    return true;
  }
  if (*pattern == L'[') {
    if (wchar_t const* const end = EndOfSet(pattern + 1)) {
      wchar_t const* const set = pattern + 1;
      pattern = end + 1;
      return IsInSet(character, set, end);
    }
  }
  return character == Take(pattern);
}

}  // namespace

bool MatchesPattern(wchar_t const* text, wchar_t const* pattern) {
  // Where the last % ends, and the text that it stands for. An earlier % need not give more again: the last
  // one can take what it would have left.
  wchar_t const* afterRun = nullptr;
  wchar_t const* runEnd = nullptr;
  while (*text != 0) {
    if (*pattern == L'%') {
      afterRun = ++pattern;
      runEnd = text;
    } else if (*pattern == 0 || !TakeOne(text, pattern)) {
      if (afterRun == nullptr) return false;
      Take(runEnd);
      text = runEnd;
      pattern = afterRun;
    }
  }
  while (*pattern == L'%') ++pattern;
  return *pattern == 0;
}

}  // namespace fdo::internal
