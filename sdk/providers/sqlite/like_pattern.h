// The patterns of LIKE, as SQLite's GLOB has them.
#ifndef SDK_PROVIDERS_SQLITE_LIKE_PATTERN_H_
#define SDK_PROVIDERS_SQLITE_LIKE_PATTERN_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace fdo_sqlite {

// The longest pattern in bytes that SQLite matches.
inline constexpr std::size_t kLongestGlob = 50000;

// In: % any run of characters, _ one, [abc] and [a-f] one of them, [^abc] one that is none of them; an
// opening bracket without its closing one is an ordinary character, and so is a wildcard in brackets: [%].
// Units: UTF-8 both.
std::string GlobOfLike(std::string_view pattern);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_LIKE_PATTERN_H_
