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
