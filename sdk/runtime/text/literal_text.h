// The text forms of literals, without the words before them.
#ifndef SDK_RUNTIME_TEXT_LITERAL_TEXT_H_
#define SDK_RUNTIME_TEXT_LITERAL_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

#include "Common/FdoTypes.h"

namespace fdo_sdk {

// The text between two quotes, those in it doubled.
std::wstring Quoted(std::wstring_view text, wchar_t quote);

// Two digits a byte, and back. Errors: false.
std::wstring HexText(FdoByte const* bytes, std::size_t count);
bool ReadHex(std::wstring_view text, std::vector<FdoByte>& bytes);

enum class DateTimeForm { kDate, kTime, kTimestamp };

// "YYYY-MM-DD", "HH:MM:SS[.sss]" or both with a blank between. Seconds may be absent, parts have as many
// digits as they need, and each must lie in its range: years to 32767, seconds to 60.
// Errors: false.
bool ReadDateTime(DateTimeForm form, std::wstring_view text, FdoDateTime& value);

// Errors: false for a value that ReadDateTime would not read.
bool WriteDateTime(FdoDateTime const& value, DateTimeForm& form, std::wstring& text);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_LITERAL_TEXT_H_
