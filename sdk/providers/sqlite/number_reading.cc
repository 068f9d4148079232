#include "sdk/providers/sqlite/number_reading.h"

#include <charconv>

namespace fdo_sqlite {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kUnits = "0123456789+-.eE";

// Without blanks and a plus sign before it, which from_chars does not take.
std::string_view FromSign(std::string_view text) {
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  text.remove_prefix(first);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

// Only what numbers are made of: from_chars would take the words for infinity and NaN too.
std::string_view NumberPart(std::string_view text) { return text.substr(0, text.find_first_not_of(kUnits)); }

template <class Number>
bool ReadAll(std::string_view text, Number& number) {
  char const* const end = text.data() + text.size();
  std::from_chars_result const read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end;
}

}  // namespace

SqlNumber NumberInText(std::string_view text) {
  text = FromSign(text);
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  if (text.empty() || NumberPart(text).size() != text.size()) return {};
  std::int64_t whole = 0;
  if (ReadAll(text, whole)) return whole;
  double real = 0;
  if (ReadAll(text, real)) return real;
  return {};
}

double LeadingNumber(std::string_view text) {
  text = NumberPart(FromSign(text));
  double real = 0;
  std::from_chars(text.data(), text.data() + text.size(), real);
  return real;
}

}  // namespace fdo_sqlite
