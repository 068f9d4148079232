#include "sdk/providers/sqlite/date_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "port/inlining.h"

namespace fdo_sqlite {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr double kJulianDayOf1970 = 2440587.5;
constexpr std::int64_t kFirstSecond = -62167219200;  // 0000-01-01T00:00:00
constexpr std::int64_t kLastSecond = 253402300799;   // 9999-12-31T23:59:59

// "00" to "99", one behind the other.
constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
  }
  return pairs;
}();

// Requires: 0 <= value && value < 100.
char* PutTwoDigits(char* to, int value) {
  char const* const pair = &kDigitPairs[static_cast<std::size_t>(value) * 2];
  to[0] = pair[0];
  to[1] = pair[1];
  return to + 2;
}

// Four digits, or the five that the year has. Requires: 0 <= year && year < 100000.
char* PutYear(char* to, int year) {
  if (year > 9999) {
    *to++ = static_cast<char>('0' + year / 10000);
    year %= 10000;
  }
  return PutTwoDigits(PutTwoDigits(to, year / 100), year % 100);
}

// Two digits of whole seconds, then the fraction if there is one.
char* PutSeconds(char* to, float seconds) {
  int const whole = static_cast<int>(seconds);
  to = PutTwoDigits(to, whole);
  if (seconds == static_cast<float>(whole)) return to;
  char exact[64];
  char* const end = std::to_chars(exact, exact + sizeof exact, seconds, std::chars_format::fixed).ptr;
  char* point = exact;
  while (*point != '.') ++point;
  char* const first = to;
  while (point != end) *to++ = *point++;
  while (to - first < 4) *to++ = '0';
  return to;
}

// Takes numbers and marks off the front of a text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  bool AtEnd() const { return at_ == end_; }
  bool Take(char mark) {
    if (at_ == end_ || *at_ != mark) return false;
    ++at_;
    return true;
  }
  bool TakeNumber(int leastDigits, int mostDigits, int& value) {
    int digits = 0;
    value = 0;
    while (at_ != end_ && *at_ >= '0' && *at_ <= '9' && digits < mostDigits) {
      value = value * 10 + (*at_++ - '0');
      ++digits;
    }
    return digits >= leastDigits;
  }
  bool TakeSeconds(float& seconds) {
    char const* const start = at_;
    int whole = 0;
    if (!TakeNumber(2, 2, whole)) return false;
    if (at_ == end_ || *at_ != '.') {
      seconds = static_cast<float>(whole);
      return true;
    }
    ++at_;
    while (at_ != end_ && *at_ >= '0' && *at_ <= '9') ++at_;
    return std::from_chars(start, at_, seconds, std::chars_format::fixed).ec == std::errc();
  }
  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }
  char Peek(std::size_t ahead) const { return at_[ahead]; }

 private:
  char const* at_;
  char const* end_;
};

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

bool IsDate(FdoDateTime const& value) {
  return value.year >= 0 && value.month >= 1 && value.month <= 12 && value.day >= 1 && value.day <= 31;
}

bool IsTime(FdoDateTime const& value) {
  return value.hour >= 0 && value.hour <= 23 && value.minute >= 0 && value.minute <= 59 &&
         value.seconds >= 0 && value.seconds < 61;
}

bool TakeDate(Scanner& scan, FdoDateTime& value) {
  int year = 0, month = 0, day = 0;
  if (!scan.TakeNumber(4, 5, year) || !scan.Take('-') || !scan.TakeNumber(2, 2, month) || !scan.Take('-') ||
      !scan.TakeNumber(2, 2, day) || year > 32767) {
    return false;
  }
  value.year = static_cast<FdoInt16>(year);
  value.month = static_cast<FdoInt8>(month);
  value.day = static_cast<FdoInt8>(day);
  return IsDate(value);
}

bool TakeTime(Scanner& scan, FdoDateTime& value) {
  int hour = 0, minute = 0;
  if (!scan.TakeNumber(2, 2, hour) || !scan.Take(':') || !scan.TakeNumber(2, 2, minute)) return false;
  value.hour = static_cast<FdoInt8>(hour);
  value.minute = static_cast<FdoInt8>(minute);
  value.seconds = 0;
  if (scan.Take(':') && !scan.TakeSeconds(value.seconds)) return false;
  return IsTime(value);
}

// Days from 1970-01-01 in the calendar of today, taken back to the year 0. Years begin in March here, so
// that the leap day is the last.
std::int64_t DaysFrom(int year, int month, int day) {
  std::int64_t const y = month <= 2 ? year - 1 : year;
  std::int64_t const era = (y >= 0 ? y : y - 399) / 400;
  std::int64_t const yearOfEra = y - era * 400;
  std::int64_t const dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

void SetDate(std::int64_t days, FdoDateTime& value) {
  std::int64_t const shifted = days + 719468;
  std::int64_t const era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  std::int64_t const dayOfEra = shifted - era * 146097;
  std::int64_t const yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  std::int64_t const dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  std::int64_t const fromMarch = (5 * dayOfYear + 2) / 153;
  std::int64_t const month = fromMarch + (fromMarch < 10 ? 3 : -9);
  value.year = static_cast<FdoInt16>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0));
  value.month = static_cast<FdoInt8>(month);
  value.day = static_cast<FdoInt8>(dayOfYear - (153 * fromMarch + 2) / 5 + 1);
}

// Takes a zone off a whole date and time, or a zone without effect off a time alone.
bool TakeZone(Scanner& scan, FdoDateTime& value) {
  if (scan.Take('Z')) return true;
  bool const isAhead = scan.Take('+');
  int hours = 0, minutes = 0;
  if (!isAhead && !scan.Take('-')) return false;
  if (!scan.TakeNumber(2, 2, hours)) return false;
  scan.Take(':');
  if (!scan.AtEnd() && !scan.TakeNumber(2, 2, minutes)) return false;
  if (hours > 15 || minutes > 59) return false;
  if (hours == 0 && minutes == 0) return true;
  if (value.year < 0) return false;
  std::int64_t const offset = (hours * 60 + minutes) * (isAhead ? -1 : 1);
  std::int64_t const minute =
      DaysFrom(value.year, value.month, value.day) * 1440 + value.hour * 60 + value.minute + offset;
  float const seconds = value.seconds;
  if (!DateFromUnixSeconds(minute * 60, value)) return false;
  value.seconds = seconds;
  return true;
}

// Eight characters as one number, the first in its lowest byte.
std::uint64_t Eight(char const* text) {
  static_assert(std::endian::native == std::endian::little, "the first character is the lowest byte");
  std::uint64_t eight;
  std::memcpy(&eight, text, sizeof eight);
  return eight;
}

// A form of eight characters: what is left of each when its own is taken off, a 0 for a digit, must be
// at most 9 where it has a digit, and 0 elsewhere.
struct Form {
  std::uint64_t own;
  std::uint64_t upToTheLimit;  // what added to the greatest that may be left gives 0x7F

  constexpr explicit Form(char const (&form)[9]) : own(0), upToTheLimit(0) {
    for (int i = 8; i-- > 0;) {
      own = own << 8 | static_cast<unsigned char>(form[i]);
      upToTheLimit = upToTheLimit << 8 | (form[i] == '0' ? 0x7Fu - 9 : 0x7Fu);
    }
  }
  // Takes the form off. Errors: false for other characters.
  bool TakeOff(std::uint64_t& eight) const {
    constexpr std::uint64_t kHighBits = 0x8080808080808080u;
    eight ^= own;
    // What an addition carries into the next character is beyond the limit itself.
    return ((eight | (eight + upToTheLimit)) & kHighBits) == 0;
  }
};

constexpr Form kYearAndMonth("0000-00-");
constexpr Form kTime("00:00:00");

// Each digit tenfold and the next one, so that two digits are a number where the first was; a byte holds at
// most 99, and none reaches into the next.
std::uint64_t Pairs(std::uint64_t digits) { return digits * 10 + (digits >> 8); }

unsigned ByteAt(int place, std::uint64_t bytes) { return static_cast<unsigned>(bytes >> (8 * place) & 0xFF); }

// The form that nearly all date-times have, "2024-03-01T14:30:05", eight characters at a time.
// Errors: false; value is then untouched.
bool ParseUsual(std::string_view text, FdoDateTime& value) {
  if (text.size() != 19) return false;
  char const* const at = text.data();
  std::uint64_t date = Eight(at);
  std::uint64_t time = Eight(at + 11);
  unsigned const dayTens = static_cast<unsigned>(at[8]) - '0';
  unsigned const dayOnes = static_cast<unsigned>(at[9]) - '0';
  bool const hasForm = kYearAndMonth.TakeOff(date) && kTime.TakeOff(time) && dayTens <= 9 && dayOnes <= 9 &&
                       (at[10] == 'T' || at[10] == ' ');
  if (!hasForm) return false;
  date = Pairs(date);
  time = Pairs(time);
  FdoDateTime read;
  read.year = static_cast<FdoInt16>(ByteAt(0, date) * 100 + ByteAt(2, date));
  read.month = static_cast<FdoInt8>(ByteAt(5, date));
  read.day = static_cast<FdoInt8>(dayTens * 10 + dayOnes);
  read.hour = static_cast<FdoInt8>(ByteAt(0, time));
  read.minute = static_cast<FdoInt8>(ByteAt(3, time));
  int const second = static_cast<int>(ByteAt(6, time));
  read.seconds = static_cast<float>(second);
  if (!IsDate(read) || !IsTime(read)) return false;
  value = read;
  return true;
}

// Apart from the usual form, whose way stays short so.
QUILLON_NEVER_INLINE bool ParseOther(std::string_view text, FdoDateTime& value) {
  FdoDateTime read;
  Scanner scan(WithoutBlanks(text));
  bool const beginsWithTime = scan.Left() > 2 && scan.Peek(2) == ':';
  if (!beginsWithTime) {
    if (!TakeDate(scan, read)) return false;
    if (scan.AtEnd()) {
      value = read;
      return true;
    }
    if (!scan.Take('T') && !scan.Take(' ')) return false;
  }
  if (!TakeTime(scan, read)) return false;
  if (!scan.AtEnd() && !TakeZone(scan, read)) return false;
  if (!scan.AtEnd()) return false;
  value = read;
  return true;
}

}  // namespace

int FormatDateText(FdoDateTime const& value, char (&text)[kDateTextSize]) {
  bool const hasDate = value.year != -1;
  bool const hasTime = value.hour != -1;
  if ((!hasDate && !hasTime) || (hasDate && !IsDate(value)) || (hasTime && !IsTime(value))) return 0;
  char* to = text;
  if (hasDate) {
    to = PutYear(to, value.year);
    *to++ = '-';
    to = PutTwoDigits(to, value.month);
    *to++ = '-';
    to = PutTwoDigits(to, value.day);
    if (hasTime) *to++ = 'T';
  }
  if (hasTime) {
    to = PutTwoDigits(to, value.hour);
    *to++ = ':';
    to = PutTwoDigits(to, value.minute);
    *to++ = ':';
    to = PutSeconds(to, value.seconds);
  }
  return static_cast<int>(to - text);
}

bool ParseDateText(std::string_view text, FdoDateTime& value) {
  return ParseUsual(text, value) || ParseOther(text, value);
}

bool DateFromUnixSeconds(std::int64_t seconds, FdoDateTime& value) {
  if (seconds < kFirstSecond || seconds > kLastSecond) return false;
  std::int64_t days = seconds / kSecondsPerDay;
  std::int64_t left = seconds % kSecondsPerDay;
  if (left < 0) {
    left += kSecondsPerDay;
    --days;
  }
  SetDate(days, value);
  value.hour = static_cast<FdoInt8>(left / 3600);
  value.minute = static_cast<FdoInt8>(left / 60 % 60);
  value.seconds = static_cast<float>(left % 60);
  return true;
}

bool DateFromJulianDay(double day, FdoDateTime& value) {
  // A double keeps a day of today to about 40 microseconds; a millisecond is what SQLite shows of it.
  double const milliseconds =
      std::floor((day - kJulianDayOf1970) * static_cast<double>(kSecondsPerDay) * 1000 + 0.5);
  if (!(milliseconds >= static_cast<double>(kFirstSecond) * 1000 &&
        milliseconds <= static_cast<double>(kLastSecond) * 1000)) {
    return false;
  }
  std::int64_t const whole = static_cast<std::int64_t>(std::floor(milliseconds / 1000));
  if (!DateFromUnixSeconds(whole, value)) return false;
  value.seconds += static_cast<float>((milliseconds - static_cast<double>(whole) * 1000) / 1000);
  return true;
}

}  // namespace fdo_sqlite
