// Numbers in text.
#ifndef SDK_PROVIDERS_SQLITE_NUMBER_READING_H_
#define SDK_PROVIDERS_SQLITE_NUMBER_READING_H_

#include <cstdint>
#include <string_view>
#include <variant>

namespace fdo_sqlite {

// Without the blanks around it: spaces, tabs and ends of lines.
std::string_view WithoutBlanks(std::string_view text);

// The number that a text is, blanks around it aside. Infinities and NaN have no text.
// Errors: false for all else, and for what the type cannot hold; number is then untouched.
bool ReadNumber(std::string_view text, std::int64_t& number);
bool ReadNumber(std::string_view text, double& number);

typedef std::variant<std::monostate, std::int64_t, double> SqlNumber;

// The same: a whole number where it is written as one and fits. Errors: monostate.
SqlNumber NumberInText(std::string_view text);

// The number that a text begins with, 0 when it begins with none.
double LeadingNumber(std::string_view text);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_NUMBER_READING_H_
