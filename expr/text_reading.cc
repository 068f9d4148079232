#include "expr/text_reading.h"

#include <charconv>
#include <string>
#include <string_view>

#include "values/date_text.h"
#include "values/number_text.h"

namespace fdo::internal {
namespace {

std::wstring_view WithoutBlanks(std::wstring_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

template <class Number>
bool ReadAll(std::string_view text, Number& number) {
  char const* const end = text.data() + text.size();
  std::from_chars_result const result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

// Takes what stands for a form, in which 0 is any digit and all else stands for itself.
bool Take(std::wstring_view& text, std::wstring_view form) {
  if (text.size() < form.size()) return false;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] == L'0' ? !IsDigit(text[i]) : text[i] != form[i]) return false;
  }
  text.remove_prefix(form.size());
  return true;
}

bool TakeTime(std::wstring_view& text) {
  if (!Take(text, L"00:00")) return false;
  if (!Take(text, L":00")) return true;
  if (Take(text, L".")) {
    while (Take(text, L"0")) {
    }
  }
  return true;
}

bool IsInCalendar(FdoDateTime const& value) {
  bool const isDate = value.month >= 1 && value.month <= 12 && value.day >= 1 && value.day <= 31;
  bool const isTime = value.hour >= 0 && value.hour <= 23 && value.minute >= 0 && value.minute <= 59 &&
                      value.seconds >= 0 && value.seconds < 61;
  return (value.year == -1 || isDate) && (value.hour == -1 || isTime);
}

}  // namespace

Value NumberInText(wchar_t const* text) {
  if (text == nullptr) return Value();
  std::wstring_view wide = WithoutBlanks(text);
  if (wide.size() > 1 && wide[0] == L'+' && wide[1] != L'-') wide.remove_prefix(1);
  // What from_chars may see: it takes words for infinity and NaN.
  if (wide.empty() || wide.find_first_not_of(L"0123456789+-.eE") != std::wstring_view::npos) return Value();
  std::string narrow;
  for (wchar_t const unit : wide) narrow += static_cast<char>(unit);
  long long whole = 0;
  if (ReadAll(narrow, whole)) return Value(whole);
  double real = 0;
  return ReadAll(narrow, real) ? Value(real) : Value();
}

Value DateInText(wchar_t const* text) {
  if (text == nullptr) return Value();
  std::wstring_view left = WithoutBlanks(text);
  std::wstring complete(left);
  bool const hasDate = Take(left, L"0000-00-00");
  bool const hasTime =
      left.empty() ? hasDate : (!hasDate || Take(left, L"T") || Take(left, L" ")) && TakeTime(left);
  if (!hasTime || !left.empty()) return Value();
  // A time alone is read with its seconds only.
  if (!hasDate && complete.size() == 5) complete += L":00";
  FdoDateTime value;
  wchar_t formatted[kDateTextSize];
  if (!ParseDateTime(complete.c_str(), value) || !IsInCalendar(value)) return Value();
  return FormatDateTime(value, formatted) > 0 ? Value(static_cast<wchar_t const*>(formatted)) : Value();
}

}  // namespace fdo::internal
