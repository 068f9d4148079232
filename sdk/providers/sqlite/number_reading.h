// Numbers in text.
#ifndef SDK_PROVIDERS_SQLITE_NUMBER_READING_H_
#define SDK_PROVIDERS_SQLITE_NUMBER_READING_H_

#include <cstdint>
#include <string_view>
#include <variant>

namespace fdo_sqlite {

typedef std::variant<std::monostate, std::int64_t, double> SqlNumber;

// The number that a text is, blanks around it aside: a whole number where it is written as one and fits.
// Infinities and NaN have no text. Errors: monostate.
SqlNumber NumberInText(std::string_view text);

// The number that a text begins with, 0 when it begins with none.
double LeadingNumber(std::string_view text);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_NUMBER_READING_H_
