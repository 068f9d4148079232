// Date-times as the file keeps them: "2024-03-01", "07:05:03" and "2024-03-01T14:30:05.500". These sort as
// text, and SQLite's own date functions read them.
#ifndef SDK_PROVIDERS_SQLITE_DATE_TEXT_H_
#define SDK_PROVIDERS_SQLITE_DATE_TEXT_H_

#include <cstdint>
#include <string_view>

#include "FdoCommon.h"

namespace fdo_sqlite {

// Room for the text of any date-time.
inline constexpr int kDateTextSize = 96;

// Year and hour decide which of the three forms it is. Seconds have three decimals when they are not whole,
// and as many more as the number needs to read back the same.
// Gives: the length; the text ends with no 0.
// Errors: 0 for what is no date or time: neither year nor hour, a part that is missing or out of its range
//   (years 0 to 32767, days to 31 in every month, seconds below 61).
int FormatDateText(FdoDateTime const& value, char (&text)[kDateTextSize]);

// Reads the three forms; also a blank for the T, a time without seconds, and a zone behind the time: "Z", or
// an offset such as "+01:00", which is then taken off. Blanks around the whole are ignored.
// Errors: false for all else; value is then untouched.
bool ParseDateText(std::string_view text, FdoDateTime& value);

// What SQLite's own date functions take numbers for: an integer counts seconds from 1970, a real counts days
// from noon on the 24th of November 4714 BC.
// Errors: false outside the years 0 to 9999; value is then untouched.
bool DateFromUnixSeconds(std::int64_t seconds, FdoDateTime& value);
bool DateFromJulianDay(double day, FdoDateTime& value);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_DATE_TEXT_H_
