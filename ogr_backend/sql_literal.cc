#include "ogr_backend/sql_literal.h"

#include <fdo/text_conversion.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace fdo::internal {
namespace {

constexpr double kExactIntegers = 0x1p53;
constexpr int kLongestFraction = 15;

std::string InParentheses(std::string const& text) { return std::string("(") + text + ")"; }

// Whether a text of so many decimals that reads as the number is the number, and short enough for every
// reader to see that.
bool IsExactDecimal(double number, std::string const& text) {
  if (number == std::floor(number)) return number < kExactIntegers;
  std::size_t const point = text.find('.');
  if (point == std::string::npos || text.find('e') != std::string::npos) return false;
  auto const decimals = static_cast<int>(text.size() - point - 1);
  if (decimals > kLongestFraction) return false;
  // With all its decimals a fraction with the denominator 2^n has n of them.
  double const scaled = std::ldexp(number, decimals);
  return scaled == std::floor(scaled) && scaled < kExactIntegers &&
         number * std::pow(10, decimals) < kExactIntegers;
}

// As an odd integer, multiplied or divided by powers of two, none of which is rounded.
std::string AsQuotient(double number) {
  int exponent = 0;
  double const fraction = std::frexp(number, &exponent);
  auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, std::numeric_limits<double>::digits));
  exponent -= std::numeric_limits<double>::digits;
  for (; mantissa % 2 == 0; mantissa /= 2) ++exponent;
  std::string text = std::to_string(mantissa);
  constexpr int kStep = 30;
  char const* const sign = exponent < 0 ? " / " : " * ";
  for (int left = std::abs(exponent); left > 0; left -= kStep) {
    text += sign + std::to_string(std::uint64_t{1} << std::min(left, kStep)) + ".0";
  }
  return InParentheses(text);
}

}  // namespace

std::optional<std::string> QuotedName(std::string const& name, FilterLanguage language) {
  // In SQL a quote is doubled; GDAL's dialect takes a backslash before it.
  if (language == FilterLanguage::kGdal && name.find('\\') != std::string::npos) return {};
  std::string quoted = "\"";
  for (char const unit : name) {
    if (unit == '"') quoted += IsSql(language) ? '"' : '\\';
    quoted += unit;
  }
  return quoted + '"';
}

std::optional<std::string> QuotedText(std::wstring const& text, FilterLanguage language) {
  for (wchar_t const unit : text) {
    auto const code = static_cast<std::uint32_t>(unit);
    if (code > 0xFFFF || code >> 11 == 0x1B) return {};
  }
  std::string const narrow = ToUtf8(text.c_str());
  std::string quoted = "'";
  for (std::size_t i = 0; i < narrow.size(); ++i) {
    // GDAL's dialect reads a backslash before a quote as part of the quote.
    bool const beforeQuote = i + 1 == narrow.size() || narrow[i + 1] == '\'';
    if (language == FilterLanguage::kGdal && narrow[i] == '\\' && beforeQuote) return {};
    if (narrow[i] == '\'') quoted += '\'';
    quoted += narrow[i];
  }
  return quoted + '\'';
}

std::optional<std::string> IntegerText(long long number, FilterLanguage language) {
  if (number >= 0) return std::to_string(number);
  if (number == std::numeric_limits<long long>::min() && language != FilterLanguage::kSqlite) return {};
  // A minus sign must not meet another one, which would begin a comment.
  return InParentheses(std::to_string(number));
}

std::string RealText(double number, FilterLanguage language) {
  double const size = std::fabs(number);
  char digits[40];
  // Shortest digits that read back as the same number; the point keeps it a real number.
  std::to_chars_result const end = std::to_chars(digits, digits + sizeof(digits), size);
  std::string text(digits, end.ptr);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  if (language == FilterLanguage::kSqlite && !IsExactDecimal(size, text)) text = AsQuotient(size);
  return std::signbit(number) ? InParentheses("-" + text) : text;
}

}  // namespace fdo::internal
