#include "sdk/runtime/text/number_text.h"

#include <charconv>

namespace fdo_sdk {
namespace {

constexpr bool IsDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }

template <class Number>
std::wstring ShortestText(Number number) {
  char text[40];
  auto const result = std::to_chars(text, text + sizeof text, number);
  return std::wstring(text, result.ptr);
}

std::wstring WithPoint(std::wstring text) {
  if (text.find_first_of(L".e") == std::wstring::npos) text += L".0";
  return text;
}

template <class Number>
bool ReadWhole(std::wstring_view text, Number& number) {
  std::string narrow;
  for (wchar_t const unit : text) {
    if (unit < L'+' || unit > L'e') return false;  // all that a number is made of lies between
    narrow.push_back(static_cast<char>(unit));
  }
  auto const result = std::from_chars(narrow.data(), narrow.data() + narrow.size(), number);
  return result.ec == std::errc() && result.ptr == narrow.data() + narrow.size();
}

}  // namespace

std::wstring NumberText(std::int64_t number) { return ShortestText(number); }

std::wstring NumberText(double number) { return ShortestText(number); }

std::wstring NumberText(float number) { return ShortestText(number); }

std::wstring RealText(double number) { return WithPoint(ShortestText(number)); }

std::wstring RealText(float number) { return WithPoint(ShortestText(number)); }

std::size_t NumberEnd(std::wstring_view text, bool* isReal) {
  std::size_t at = 0;
  auto const digits = [&] {
    std::size_t const from = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at > from;
  };
  bool real = false;
  bool const whole = digits();
  if (at < text.size() && text[at] == L'.') {
    ++at;
    if (!digits() && !whole) return 0;
    real = true;
  } else if (!whole) {
    return 0;
  }
  if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
    std::size_t const mantissaEnd = at++;
    if (at < text.size() && (text[at] == L'+' || text[at] == L'-')) ++at;
    if (digits()) {
      real = true;
    } else {
      at = mantissaEnd;
    }
  }
  if (isReal != nullptr) *isReal = real;
  return at;
}

bool ReadNumber(std::wstring_view text, std::int64_t& number) { return ReadWhole(text, number); }

bool ReadNumber(std::wstring_view text, double& number) { return ReadWhole(text, number); }

bool ReadNumber(std::wstring_view text, float& number) { return ReadWhole(text, number); }

}  // namespace fdo_sdk
