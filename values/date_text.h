// Date-times as text: "2024-03-01", "14:30:05.500" and "2024-03-01T14:30:05.500".
#ifndef VALUES_DATE_TEXT_H_
#define VALUES_DATE_TEXT_H_

#include <FdoCommon.h>

namespace fdo::internal {

// Room for the text of any date-time, its terminator included.
inline constexpr int kDateTextSize = 64;

// Writes a date as "%04d-%02d-%02d", a time as "%02d:%02d:%06.3f", both with a T between them, as the
// C locale does. Year and hour decide which of the two there is; the other fields are written as they
// are, out of range or absent. What is longer than 63 characters (seconds beyond 10^28) is cut there.
// Gives: the length; 0, and the text "", without year and hour.
int FormatDateTime(FdoDateTime const& value, wchar_t (&text)[kDateTextSize]);

// Reads a date, a time with seconds, or a date and a time with or without seconds, joined by T or
// blanks, with what "%d" and "%f" of the C locale's swscanf take for a number. What follows the last
// field that reads is ignored, and no field's range is checked: a number too large for its field
// keeps its low bits.
// Errors: false for a null pointer and for any other text; value is then untouched.
bool ParseDateTime(wchar_t const* text, FdoDateTime& value);

}  // namespace fdo::internal

#endif  // VALUES_DATE_TEXT_H_
