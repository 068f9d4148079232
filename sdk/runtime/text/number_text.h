// Numbers as text, as in the C locale whatever locale the program has set.
#ifndef SDK_RUNTIME_TEXT_NUMBER_TEXT_H_
#define SDK_RUNTIME_TEXT_NUMBER_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fdo_sdk {

// The shortest text that reads as the same number.
std::wstring NumberText(std::int64_t number);
// Requires: finite.
std::wstring NumberText(double number);
std::wstring NumberText(float number);

// As above, with a point or an exponent, so that the number does not look like an integer.
std::wstring RealText(double number);
std::wstring RealText(float number);

// The end of the unsigned number at the start of a text: digits with at most one point, and an exponent;
// 0 when there is none. Sets *isReal when it has a point or an exponent.
std::size_t NumberEnd(std::wstring_view text, bool* isReal);

// Read a whole text that is a number, with an optional minus.
// Errors: false when it is not one, or out of range.
bool ReadNumber(std::wstring_view text, std::int64_t& number);
bool ReadNumber(std::wstring_view text, double& number);
bool ReadNumber(std::wstring_view text, float& number);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_NUMBER_TEXT_H_
