#include "sdk/runtime/text/literal_text.h"

#include <charconv>
#include <cstdint>

#include "sdk/runtime/text/number_text.h"

namespace fdo_sdk {
namespace {

constexpr std::wstring_view kHexDigits = L"0123456789ABCDEF";

int HexValue(wchar_t digit) {
  if (digit >= L'a' && digit <= L'f') digit = static_cast<wchar_t>(digit - L'a' + L'A');
  auto const value = kHexDigits.find(digit);
  return value == std::wstring_view::npos ? -1 : static_cast<int>(value);
}

int DaysIn(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  bool const leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

bool IsDate(FdoDateTime const& value) {
  return value.year >= 0 && value.month >= 1 && value.month <= 12 && value.day >= 1 &&
         value.day <= DaysIn(value.year, value.month);
}

// Seconds reach 60 because a float rounds 59.9999999 to it, and for leap seconds.
bool IsTime(FdoDateTime const& value) {
  return value.hour >= 0 && value.hour <= 23 && value.minute >= 0 && value.minute <= 59 &&
         value.seconds >= 0.0f && value.seconds <= 60.0f;
}

// Takes the number before the separator, or the whole text for 0, off the front.
// Errors: false.
bool TakeNumber(std::wstring_view& text, wchar_t separator, int most, int& number) {
  std::size_t const end = separator == 0 ? text.size() : text.find(separator);
  if (end == std::wstring_view::npos || end == 0 || end > 5) return false;
  std::int64_t read = 0;
  if (text[0] == L'-' || !ReadNumber(text.substr(0, end), read) || read > most) return false;
  number = static_cast<int>(read);
  text.remove_prefix(separator == 0 ? end : end + 1);
  return true;
}

bool TakeDate(std::wstring_view text, FdoDateTime& value) {
  int year = 0, month = 0, day = 0;
  if (!TakeNumber(text, L'-', INT16_MAX, year) || !TakeNumber(text, L'-', 12, month) ||
      !TakeNumber(text, 0, 31, day)) {
    return false;
  }
  value.year = static_cast<FdoInt16>(year);
  value.month = static_cast<FdoInt8>(month);
  value.day = static_cast<FdoInt8>(day);
  return IsDate(value);
}

bool TakeTime(std::wstring_view text, FdoDateTime& value) {
  int hour = 0, minute = 0;
  if (!TakeNumber(text, L':', 23, hour)) return false;
  bool const hasSeconds = text.find(L':') != std::wstring_view::npos;
  if (!TakeNumber(text, hasSeconds ? L':' : L'\0', 59, minute)) return false;
  value.seconds = 0.0f;
  if (hasSeconds && (NumberEnd(text, nullptr) != text.size() || !ReadNumber(text, value.seconds)))
    return false;
  value.hour = static_cast<FdoInt8>(hour);
  value.minute = static_cast<FdoInt8>(minute);
  return IsTime(value);
}

std::wstring Padded(int number, std::size_t digits) {
  std::wstring const text = std::to_wstring(number);
  return text.size() >= digits ? text : std::wstring(digits - text.size(), L'0') + text;
}

std::wstring DateText(FdoDateTime const& value) {
  return Padded(value.year, 4) + L"-" + Padded(value.month, 2) + L"-" + Padded(value.day, 2);
}

std::wstring TimeText(FdoDateTime const& value) {
  char seconds[64];
  auto const result =
      std::to_chars(seconds, seconds + sizeof seconds, value.seconds, std::chars_format::fixed);
  return Padded(value.hour, 2) + L":" + Padded(value.minute, 2) + (value.seconds < 10.0f ? L":0" : L":") +
         std::wstring(seconds, result.ptr);
}

}  // namespace

std::wstring Quoted(std::wstring_view text, wchar_t quote) {
  std::wstring quoted(1, quote);
  for (wchar_t const unit : text) {
    quoted.push_back(unit);
    if (unit == quote) quoted.push_back(quote);
  }
  quoted.push_back(quote);
  return quoted;
}

std::wstring HexText(FdoByte const* bytes, std::size_t count) {
  std::wstring text;
  for (std::size_t i = 0; i < count; ++i) {
    text.push_back(kHexDigits[bytes[i] >> 4]);
    text.push_back(kHexDigits[bytes[i] & 15]);
  }
  return text;
}

bool ReadHex(std::wstring_view text, std::vector<FdoByte>& bytes) {
  if (text.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    int const high = HexValue(text[i]);
    int const low = HexValue(text[i + 1]);
    if (high < 0 || low < 0) return false;
    bytes.push_back(static_cast<FdoByte>(high * 16 + low));
  }
  return true;
}

bool ReadDateTime(DateTimeForm form, std::wstring_view text, FdoDateTime& value) {
  value = FdoDateTime();
  if (form == DateTimeForm::kDate) return TakeDate(text, value);
  if (form == DateTimeForm::kTime) return TakeTime(text, value);
  std::size_t const blank = text.find(L' ');
  return blank != std::wstring_view::npos && TakeDate(text.substr(0, blank), value) &&
         TakeTime(text.substr(blank + 1), value);
}

bool WriteDateTime(FdoDateTime const& value, DateTimeForm& form, std::wstring& text) {
  if (value.hour == -1) {
    form = DateTimeForm::kDate;
    text = IsDate(value) ? DateText(value) : L"";
  } else if (value.year == -1) {
    form = DateTimeForm::kTime;
    text = IsTime(value) ? TimeText(value) : L"";
  } else {
    form = DateTimeForm::kTimestamp;
    text = IsDate(value) && IsTime(value) ? DateText(value) + L" " + TimeText(value) : L"";
  }
  return !text.empty();
}

}  // namespace fdo_sdk
