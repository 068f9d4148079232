#include "values/date_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

#include "values/number_text.h"

namespace fdo::internal {
namespace {

// Collects the text of one date-time; a float's text is 43 characters at most, so it all fits.
class TextWriter {
 public:
  void Put(char unit) { *end_++ = static_cast<wchar_t>(unit); }

  // As "%0<width>d".
  void PutInteger(int value, int width) {
    if (width == 2 && value >= 0 && value < 100) {
      Put(static_cast<char>('0' + value / 10));
      Put(static_cast<char>('0' + value % 10));
      return;
    }
    if (value < 0) {
      Put('-');
      value = -value;
      --width;
    }
    char digits[8];
    int count = 0;
    do {
      digits[count++] = static_cast<char>('0' + value % 10);
      value /= 10;
    } while (value != 0);
    for (; width > count; --width) Put('0');
    while (count > 0) Put(digits[--count]);
  }

  // As "%06.3f".
  void PutSeconds(float seconds) {
    constexpr float kMaxFast = 1000000.0f;
    if (!std::signbit(seconds) && seconds < kMaxFast) {
      // 24 bits times a thousand are exact in a double, so this rounds once, halves to even.
      double const exact = static_cast<double>(seconds) * 1000.0;
      int thousandths = static_cast<int>(exact);
      double const rest = exact - thousandths;
      if (rest > 0.5 || (rest == 0.5 && thousandths % 2 == 1)) ++thousandths;
      PutInteger(thousandths / 1000, 2);
      Put('.');
      PutInteger(thousandths % 1000, 3);
    } else if (std::isfinite(seconds)) {
      // A sign, or the many digits, fill the six characters.
      char digits[64];
      PutText(digits, std::to_chars(std::begin(digits), std::end(digits), static_cast<double>(seconds),
                                    std::chars_format::fixed, 3)
                          .ptr);
    } else {
      char const* const word = std::isnan(seconds) ? (std::signbit(seconds) ? "  -nan" : "   nan")
                                                   : (std::signbit(seconds) ? "  -inf" : "   inf");
      PutText(word, word + 6);
    }
  }

  int CopyTo(wchar_t (&text)[kDateTextSize]) const {
    auto const length = std::min<std::ptrdiff_t>(end_ - text_, kDateTextSize - 1);
    std::copy_n(text_, length, text);
    text[length] = 0;
    return static_cast<int>(length);
  }

 private:
  void PutText(char const* begin, char const* end) {
    while (begin != end) Put(*begin++);
  }

  wchar_t text_[96];
  wchar_t* end_ = text_;
};

bool HasTwoDigits(int number) { return number >= 0 && number <= 99; }

struct DigitPair {
  wchar_t tens, ones;
};

constexpr std::array<DigitPair, 100> kDigitPairs = [] {
  std::array<DigitPair, 100> pairs{};
  for (unsigned i = 0; i < pairs.size(); ++i) {
    pairs[i] = {static_cast<wchar_t>(L'0' + i / 10), static_cast<wchar_t>(L'0' + i % 10)};
  }
  return pairs;
}();

// Requires: number < 100.
wchar_t* PutTwoDigits(wchar_t* to, unsigned number) {
  to[0] = kDigitPairs[number].tens;
  to[1] = kDigitPairs[number].ones;
  return to + 2;
}

// Writes a date and time whose every field fits its places, with whole thousandths of a second. That
// is nearly every one there is, and a scan writes one for each row.
// Gives: false, and no text, for any other.
bool FormatUsual(FdoDateTime const& value, wchar_t (&text)[kDateTextSize]) {
  if (value.year < 0 || value.year > 9999 || !HasTwoDigits(value.month) || !HasTwoDigits(value.day) ||
      !HasTwoDigits(value.hour) || !HasTwoDigits(value.minute) || !(value.seconds >= 0.0f) ||
      !(value.seconds < 100.0f) || std::signbit(value.seconds)) {
    return false;
  }
  double const thousandths = static_cast<double>(value.seconds) * 1000.0;
  auto const whole = static_cast<unsigned>(thousandths);
  if (whole != thousandths) return false;

  auto const year = static_cast<unsigned>(value.year);
  wchar_t* to = PutTwoDigits(PutTwoDigits(text, year / 100), year % 100);
  *to++ = L'-';
  to = PutTwoDigits(to, static_cast<unsigned>(value.month));
  *to++ = L'-';
  to = PutTwoDigits(to, static_cast<unsigned>(value.day));
  *to++ = L'T';
  to = PutTwoDigits(to, static_cast<unsigned>(value.hour));
  *to++ = L':';
  to = PutTwoDigits(to, static_cast<unsigned>(value.minute));
  *to++ = L':';
  to = PutTwoDigits(to, whole / 1000);
  *to++ = L'.';
  to = PutTwoDigits(to, whole % 1000 / 10);
  *to++ = static_cast<wchar_t>(L'0' + whole % 10);
  *to = 0;
  return true;
}

constexpr wchar_t kUsualForm[] = L"0000-00-00T00:00:00.000";
constexpr int kUsualLength = 23;

bool IsDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }

// Whether the units from begin on have the form of those places, up to the first that has not. The places are
// known when this is compiled, and so no loop.
template <std::size_t begin, std::size_t... place>
bool HasForm(wchar_t const* text, std::index_sequence<place...>) {
  return (... && (kUsualForm[begin + place] == L'0' ? IsDigit(text[begin + place])
                                                    : text[begin + place] == kUsualForm[begin + place]));
}

// Reads what FormatUsual writes, and the same without thousandths.
// Errors: false for any other text; value is then untouched.
bool ParseUsual(wchar_t const* text, FdoDateTime& value) {
  constexpr std::size_t kToSeconds = 19;
  constexpr std::size_t kBehind = kUsualLength - kToSeconds;
  if (!HasForm<0>(text, std::make_index_sequence<kToSeconds>())) return false;
  bool const hasThousandths = HasForm<kToSeconds>(text, std::make_index_sequence<kBehind>());
  if (text[hasThousandths ? kUsualLength : kToSeconds] != 0) return false;

  auto const digit = [text](int place) { return static_cast<int>(text[place] - L'0'); };
  auto const pair = [digit](int place) { return digit(place) * 10 + digit(place + 1); };
  value.year = static_cast<FdoInt16>(pair(0) * 100 + pair(2));
  value.month = static_cast<FdoInt8>(pair(5));
  value.day = static_cast<FdoInt8>(pair(8));
  value.hour = static_cast<FdoInt8>(pair(11));
  value.minute = static_cast<FdoInt8>(pair(14));
  int const thousandths = hasThousandths ? pair(20) * 10 + digit(22) : 0;
  // The double is nowhere halfway between two floats unless the number is, so that this rounds once.
  value.seconds = static_cast<float>((pair(17) * 1000 + thousandths) / 1000.0);
  return true;
}

// Reads fields as one call of swscanf does: from the first that fails on, nothing is read.
class FieldReader {
 public:
  explicit FieldReader(wchar_t const* text) : next_(text) {}

  int Count() const { return count_; }

  // "%d". A number beyond 64 bits is clamped, then its low 32 bits are taken.
  void Integer(int& field) {
    if (failed_) return;
    long long number;
    wchar_t const* const end = ReadInteger(next_, number);
    if (Took(end)) field = static_cast<int>(static_cast<std::uint32_t>(number));
  }

  // "%f". Unlike strtof this refuses a word or a hexadecimal number that breaks off.
  void Real(float& field) {
    if (failed_) return;
    float number;
    wchar_t const* const end = ReadReal(next_, number);
    if (EndsInTheMiddle(end)) {
      failed_ = true;
    } else if (Took(end)) {
      field = number;
    }
  }

  void Literal(wchar_t unit) {
    if (failed_) return;
    failed_ = *next_ != unit;
    ++next_;
  }

  // A blank in the format: any number of blanks, none included.
  void Blanks() {
    while (!failed_ && IsBlank(*next_)) ++next_;
  }

 private:
  bool Took(wchar_t const* end) {
    failed_ = end == next_;
    next_ = end;
    if (!failed_) ++count_;
    return !failed_;
  }

  // Whether text goes on after the number as only a longer one does: "0x" and no digit, "infi" and no
  // "infinity".
  bool EndsInTheMiddle(wchar_t const* end) const {
    wchar_t const* begin = next_;
    while (IsBlank(*begin)) ++begin;
    if (*begin == L'-' || *begin == L'+') ++begin;
    if (end - begin == 1) return *begin == L'0' && LowerCase(*end) == L'x' && end[1] != L'.';
    return end - begin == 3 && LowerCase(*begin) == L'i' && LowerCase(*end) == L'i';
  }

  wchar_t const* next_;
  int count_ = 0;
  bool failed_ = false;
};

struct Marks {
  bool date = false;  // a hyphen, before anything else
  bool time = false;  // a colon
  bool letterT = false;
  bool blank = false;
};

// What tells the forms apart stands within the first characters.
Marks FindMarks(wchar_t const* text) {
  constexpr int kScanned = 30;
  Marks marks;
  for (int i = 0; i < kScanned && text[i] != 0; ++i) {
    switch (text[i]) {
      case L'-':
        marks.date = true;
        break;
      case L':':
        marks.time = true;
        return marks;
      case L' ':
        marks.blank = true;
        return marks;
      case L'T':
        marks.letterT = true;
        return marks;
      default:
        break;
    }
  }
  return marks;
}

}  // namespace

int FormatDateTime(FdoDateTime const& value, wchar_t (&text)[kDateTextSize]) {
  if (FormatUsual(value, text)) return kUsualLength;
  bool const hasDate = value.year != -1;
  bool const hasTime = value.hour != -1;
  TextWriter writer;
  if (hasDate) {
    writer.PutInteger(value.year, 4);
    writer.Put('-');
    writer.PutInteger(value.month, 2);
    writer.Put('-');
    writer.PutInteger(value.day, 2);
  }
  if (hasDate && hasTime) writer.Put('T');
  if (hasTime) {
    writer.PutInteger(value.hour, 2);
    writer.Put(':');
    writer.PutInteger(value.minute, 2);
    writer.Put(':');
    writer.PutSeconds(value.seconds);
  }
  return writer.CopyTo(text);
}

bool ParseDateTime(wchar_t const* text, FdoDateTime& value) {
  if (text == nullptr) return false;
  if (ParseUsual(text, value)) return true;
  Marks const marks = FindMarks(text);
  bool const timeOnly = marks.time && !marks.date;
  bool const dateOnly = marks.date && !marks.time && !marks.letterT && !marks.blank;
  if (!marks.date && !marks.time && !marks.letterT && !marks.blank) return false;

  int year = -1, month = -1, day = -1, hour = -1, minute = -1;
  float seconds = 0.0f;
  FieldReader fields(text);
  if (!timeOnly) {
    fields.Integer(year);
    fields.Literal(L'-');
    fields.Integer(month);
    fields.Literal(L'-');
    fields.Integer(day);
  }
  if (!timeOnly && !dateOnly) {
    if (marks.letterT) {
      fields.Literal(L'T');
    } else {
      fields.Blanks();
    }
  }
  if (!dateOnly) {
    fields.Integer(hour);
    fields.Literal(L':');
    fields.Integer(minute);
    fields.Literal(L':');
    fields.Real(seconds);
  }
  if (fields.Count() != 3 && fields.Count() != 5 && fields.Count() != 6) return false;

  value.year = static_cast<FdoInt16>(year);
  value.month = static_cast<FdoInt8>(month);
  value.day = static_cast<FdoInt8>(day);
  value.hour = static_cast<FdoInt8>(hour);
  value.minute = static_cast<FdoInt8>(minute);
  value.seconds = seconds;
  return true;
}

}  // namespace fdo::internal
