#include "values/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace fdo::internal {
namespace {

int Widen(char const* begin, char const* end, wchar_t* text) {
  wchar_t* out = text;
  for (char const* c = begin; c != end; ++c) *out++ = static_cast<wchar_t>(*c);
  *out = 0;
  return static_cast<int>(out - text);
}

// Where text has the letters of word in any case, the position after them, else null.
wchar_t const* SkipWord(wchar_t const* text, wchar_t const* word) {
  for (; *word != 0; ++word, ++text) {
    if (LowerCase(*text) != *word) return nullptr;
  }
  return text;
}

template <class Real>
wchar_t const* ReadRealWord(wchar_t const* text, Real& value) {
  if (wchar_t const* end = SkipWord(text, L"inf")) {
    value = std::numeric_limits<Real>::infinity();
    wchar_t const* whole = SkipWord(end, L"inity");
    return whole != nullptr ? whole : end;
  }
  if (wchar_t const* end = SkipWord(text, L"nan")) {
    value = std::numeric_limits<Real>::quiet_NaN();
    if (*end != L'(') return end;
    wchar_t const* close = end + 1;
    while (IsDigit(*close) || *close == L'_' || (LowerCase(*close) >= L'a' && LowerCase(*close) <= L'z'))
      ++close;
    return *close == L')' ? close + 1 : end;
  }
  return nullptr;
}

// The extent of an unsigned number and what is learned while it is found.
struct Extent {
  wchar_t const* end = nullptr;  // null: no number
  std::uint64_t digits = 0;      // all decimal digits as one integer, while digitCount allows
  int digitCount = 0;            // digits behind the leading zeros
  long long exponent = 0;        // of the last digit
  long long magnitude = 0;       // above 0 when a number that does not fit is too large, not too small
};

constexpr int kMaxExactDigits = 18;  // always fit 64 bits

// "p" or "e", an optional sign and digits; without digits nothing is taken.
wchar_t const* ReadExponent(wchar_t const* text, long long& exponent) {
  wchar_t const* p = text + 1;
  bool const negative = *p == L'-';
  if (*p == L'-' || *p == L'+') ++p;
  if (!IsDigit(*p)) return text;
  long long value = 0;
  for (; IsDigit(*p); ++p) {
    if (value < 1'000'000'000'000) value = value * 10 + (*p - L'0');
  }
  exponent = negative ? -value : value;
  return p;
}

template <bool hex>
Extent FindExtent(wchar_t const* text) {
  Extent extent;
  bool any = false;
  bool fraction = false;
  long long integerDigits = 0;  // before the point; below 0 for zeros right behind it
  wchar_t const* p = text;
  for (;; ++p) {
    if (*p == L'.' && !fraction) {
      fraction = true;
      continue;
    }
    if (hex ? !IsHexDigit(*p) : !IsDigit(*p)) break;
    any = true;
    bool const significant = extent.digitCount > 0 || *p != L'0';
    if (significant) {
      if constexpr (!hex) {
        if (extent.digitCount < kMaxExactDigits) {
          extent.digits = extent.digits * 10 + static_cast<std::uint64_t>(*p - L'0');
        }
      }
      if (extent.digitCount <= kMaxExactDigits) ++extent.digitCount;
      if (!fraction) ++integerDigits;
    } else if (fraction) {
      --integerDigits;
    }
    if (fraction) --extent.exponent;
  }
  if (!any) return extent;
  long long exponent = 0;
  wchar_t const marker = LowerCase(*p);
  if (marker == (hex ? L'p' : L'e')) p = ReadExponent(p, exponent);
  extent.end = p;
  extent.exponent += exponent;
  extent.magnitude = integerDigits * (hex ? 4 : 1) + exponent;
  return extent;
}

template <class Real>
struct ExactDecimal;
template <>
struct ExactDecimal<double> {
  static constexpr std::uint64_t kMaxInteger = std::uint64_t{1} << 53;
  static constexpr std::array kPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                         1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
};
template <>
struct ExactDecimal<float> {
  static constexpr std::uint64_t kMaxInteger = std::uint64_t{1} << 24;
  static constexpr std::array kPowers = {1e0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f, 1e9f, 1e10f};
};

// An integer and a power of ten that both fit the type exactly need one rounding only.
template <class Real>
bool FromExactParts(Extent const& extent, Real& value) {
  using Exact = ExactDecimal<Real>;
  if (extent.digitCount > kMaxExactDigits || extent.digits > Exact::kMaxInteger) return false;
  auto const number = static_cast<Real>(extent.digits);
  constexpr long long kMaxPower = Exact::kPowers.size() - 1;
  if (extent.exponent >= 0 && extent.exponent <= kMaxPower) {
    value = number * Exact::kPowers[static_cast<std::size_t>(extent.exponent)];
  } else if (extent.exponent < 0 && -extent.exponent <= kMaxPower) {
    value = number / Exact::kPowers[static_cast<std::size_t>(-extent.exponent)];
  } else {
    return false;
  }
  return true;
}

template <class Real>
Real FromDigits(wchar_t const* begin, Extent const& extent, std::chars_format format) {
  char buffer[256];
  std::string longText;
  char* digits = buffer;
  auto const length = static_cast<std::size_t>(extent.end - begin);
  if (length > sizeof(buffer)) {
    longText.resize(length);
    digits = longText.data();
  }
  for (std::size_t i = 0; i < length; ++i) digits[i] = static_cast<char>(begin[i]);
  Real value = 0;
  if (std::from_chars(digits, digits + length, value, format).ec == std::errc::result_out_of_range) {
    value = extent.magnitude > 0 ? std::numeric_limits<Real>::infinity() : Real{0};
  }
  return value;
}

}  // namespace

int FormatInteger(long long value, wchar_t (&text)[kNumberTextSize]) {
  char digits[kNumberTextSize];
  return Widen(digits, std::to_chars(digits, digits + sizeof(digits), value).ptr, text);
}

int FormatReal(double value, wchar_t (&text)[kNumberTextSize]) {
  // A whole number of up to 15 digits, which most are, has the text of that integer; but not -0.
  constexpr double kWhole = 1e15;
  if (value > -kWhole && value < kWhole) {
    auto const integer = static_cast<long long>(value);
    if (static_cast<double>(integer) == value && (integer != 0 || !std::signbit(value))) {
      return FormatInteger(integer, text);
    }
  }
  char digits[kNumberTextSize];
  return Widen(digits,
               std::to_chars(digits, digits + sizeof(digits), value, std::chars_format::general, 16).ptr,
               text);
}

wchar_t const* ReadInteger(wchar_t const* text, long long& value) {
  value = 0;
  wchar_t const* p = text;
  while (IsBlank(*p)) ++p;
  bool const negative = *p == L'-';
  if (*p == L'-' || *p == L'+') ++p;
  if (!IsDigit(*p)) return text;

  std::uint64_t number = 0;
  for (wchar_t const* const safe = p + kMaxExactDigits; p != safe && IsDigit(*p); ++p) {
    number = number * 10 + static_cast<std::uint64_t>(*p - L'0');
  }
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());
  std::uint64_t const limit = negative ? kMax + 1 : kMax;
  bool clamped = false;
  for (; IsDigit(*p); ++p) {
    auto const digit = static_cast<std::uint64_t>(*p - L'0');
    clamped = clamped || number > (limit - digit) / 10;
    if (!clamped) number = number * 10 + digit;
  }
  if (clamped) number = limit;
  value = static_cast<long long>(negative ? 0 - number : number);
  return p;
}

template <class Real>
wchar_t const* ReadReal(wchar_t const* text, Real& value) {
  value = 0;
  wchar_t const* p = text;
  while (IsBlank(*p)) ++p;
  bool const negative = *p == L'-';
  if (*p == L'-' || *p == L'+') ++p;

  wchar_t const* end = nullptr;
  if (IsDigit(*p) || *p == L'.') {
    if (*p == L'0' && LowerCase(p[1]) == L'x') {
      if (Extent const extent = FindExtent<true>(p + 2); extent.end != nullptr) {
        end = extent.end;
        value = FromDigits<Real>(p + 2, extent, std::chars_format::hex);
      }
    }
    if (end == nullptr) {
      Extent const extent = FindExtent<false>(p);
      end = extent.end;
      if (end != nullptr && !FromExactParts(extent, value)) {
        value = FromDigits<Real>(p, extent, std::chars_format::general);
      }
    }
  } else {
    end = ReadRealWord(p, value);
  }
  if (end == nullptr) return text;
  if (negative) value = -value;
  return end;
}

template wchar_t const* ReadReal(wchar_t const* text, double& value);
template wchar_t const* ReadReal(wchar_t const* text, float& value);

bool EqualIgnoringCase(wchar_t const* left, wchar_t const* right) {
  while (LowerCase(*left) == LowerCase(*right)) {
    if (*left == 0) return true;
    ++left;
    ++right;
  }
  return false;
}

}  // namespace fdo::internal
