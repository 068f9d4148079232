#ifndef TOOLS_QUILLON_DATE_READING_H_
#define TOOLS_QUILLON_DATE_READING_H_

#include <optional>
#include <string_view>

namespace fdo::tool {

// A date, a time or both, as text of any format has them.
struct DateReading {
  int year = 0, month = 0, day = 0;
  int hour = 0, minute = 0;
  double seconds = 0;

  bool operator==(DateReading const&) const = default;
};

// Reads "2024-03-01", "2024/03/01 14:30:05.25", "14:30:05" and the like; a time zone behind it is not
// looked at. Nothing for what is no date.
std::optional<DateReading> ReadDate(std::wstring_view text);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_DATE_READING_H_
