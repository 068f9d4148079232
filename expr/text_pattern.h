// The patterns of LIKE.
#ifndef EXPR_TEXT_PATTERN_H_
#define EXPR_TEXT_PATTERN_H_

namespace fdo::internal {

// Whether the whole text matches: % stands for any run of characters, _ for exactly one, every other
// character for itself, upper and lower case apart. A character above U+FFFF that wchar_t holds in two
// units is one. Takes at most the product of both lengths in steps.
bool MatchesPattern(wchar_t const* text, wchar_t const* pattern);

}  // namespace fdo::internal

#endif  // EXPR_TEXT_PATTERN_H_
