#include "sdk/providers/sqlite/number_reading.h"

#include <charconv>

namespace fdo_sqlite {
namespace {

constexpr bool IsBlank(char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }

// What from_chars may see of a text: it takes no plus sign, and takes words for infinity and NaN.
std::string_view NumberPart(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text.substr(0, text.find_first_not_of("0123456789+-.eE"));
}

template <class Number>
bool ReadAll(std::string_view text, Number& number) {
  text = WithoutBlanks(text);
  std::string_view const part = NumberPart(text);
  char const* const end = text.data() + text.size();
  Number read{};
  std::from_chars_result const result = std::from_chars(part.data(), part.data() + part.size(), read);
  if (result.ec != std::errc() || result.ptr != end) return false;
  number = read;
  return true;
}

}  // namespace

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool ReadNumber(std::string_view text, std::int64_t& number) { return ReadAll(text, number); }
bool ReadNumber(std::string_view text, double& number) { return ReadAll(text, number); }

SqlNumber NumberInText(std::string_view text) {
  std::int64_t whole = 0;
  if (ReadNumber(text, whole)) return whole;
  double real = 0;
  if (ReadNumber(text, real)) return real;
  return {};
}

double LeadingNumber(std::string_view text) {
  std::string_view const part = NumberPart(WithoutBlanks(text));
  double real = 0;
  std::from_chars(part.data(), part.data() + part.size(), real);
  return real;
}

}  // namespace fdo_sqlite
