// The patterns of LIKE.
#ifndef EXPR_TEXT_PATTERN_H_
#define EXPR_TEXT_PATTERN_H_

namespace fdo::internal {

// Whether the whole text matches: % stands for any run of characters, _ for exactly one, [abc] and [a-f] for
// one of those, [^abc] for one that is none of them; every other character for itself, upper and lower case
// apart. An opening bracket without its closing one is an ordinary character, and so are wildcards in
// brackets. A character above U+FFFF that wchar_t holds in two units is one. Takes at most the product of
// both lengths in steps.
bool MatchesPattern(wchar_t const* text, wchar_t const* pattern);

}  // namespace fdo::internal

#endif  // EXPR_TEXT_PATTERN_H_
