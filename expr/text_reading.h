// What a text stands for beside a number or a date.
#ifndef EXPR_TEXT_READING_H_
#define EXPR_TEXT_READING_H_

#include <fdo/value.h>

namespace fdo::internal {

// The number that the whole text is, blanks around it aside: an integer where it is written as one that 64
// bits hold, else a double. Infinities and NaN have no text, nor has a double that is too large or too small.
// Errors: null for all else, and for a null pointer.
Value NumberInText(wchar_t const* text);

// The date, time of day or both that the whole text is, blanks around it aside, as columns hold it:
// "2024-03-01", "14:30:05.500", "2024-03-01T14:30:05.500". A blank may stand for the T, seconds and their
// decimals may be missing.
// Errors: null for all else, and for a null pointer.
Value DateInText(wchar_t const* text);

}  // namespace fdo::internal

#endif  // EXPR_TEXT_READING_H_
