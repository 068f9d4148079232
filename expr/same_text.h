// Texts compared unit by unit, in place.
#ifndef EXPR_SAME_TEXT_H_
#define EXPR_SAME_TEXT_H_

namespace fdo::internal {

// Most texts that differ do so early, where a call would not pay; and the loop over the tests of a filter is
// faster without one.
inline bool IsSameText(wchar_t const* a, wchar_t const* b) {
  while (*a == *b) {
    if (*a == 0) return true;
    ++a;
    ++b;
  }
  return false;
}

// The same where the texts of many rows are to be told from one: texts that differ in the first or second
// unit, as most do, are told without a jump, which no processor could foresee.
inline bool IsSameAsLiteral(wchar_t const* text, wchar_t const* literal) {
  bool same = text[0] == literal[0];
  // 0 where there is no second unit to look at, in either text.
  int const second = same & (literal[0] != 0);
  same &= text[second] == literal[second];
  if (!same || literal[second] == 0) return same;
  return IsSameText(text + second + 1, literal + second + 1);
}

// Below 0, 0 or above 0, as wcscmp.
inline int CompareText(wchar_t const* a, wchar_t const* b) {
  while (*a == *b && *a != 0) {
    ++a;
    ++b;
  }
  return *a < *b ? -1 : *a > *b ? 1 : 0;
}

}  // namespace fdo::internal

#endif  // EXPR_SAME_TEXT_H_
