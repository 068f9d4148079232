// Numbers to text and back, always as the C locale writes and reads them, on the library's wide text.
#ifndef VALUES_NUMBER_TEXT_H_
#define VALUES_NUMBER_TEXT_H_

namespace fdo::internal {

// Room for the text of any number written here, its terminator included.
inline constexpr int kNumberTextSize = 32;

// Write the number in decimal, a double as "%.16g" does, and end it with a 0 character.
// Gives: the length without the terminator.
int FormatInteger(long long value, wchar_t (&text)[kNumberTextSize]);
int FormatReal(double value, wchar_t (&text)[kNumberTextSize]);

// The two readers take the longest number that stands behind leading blanks (blank, tab, line breaks)
// and ignore what follows it. They give the position after the number, or text itself when there is
// none; value is then 0.

// An optional sign and decimal digits; clamped to 64 bits.
wchar_t const* ReadInteger(wchar_t const* text, long long& value);

// What strtod and strtof read: a decimal number with an optional fraction and exponent, a hexadecimal
// one behind "0x", or in any case "inf", "infinity", "nan", "nan(letters)". Correctly rounded; too
// large is an infinity, too small a zero.
template <class Real>
wchar_t const* ReadReal(wchar_t const* text, Real& value);
extern template wchar_t const* ReadReal(wchar_t const* text, double& value);
extern template wchar_t const* ReadReal(wchar_t const* text, float& value);

// Compares with the letters A to Z taken as a to z.
bool EqualIgnoringCase(wchar_t const* left, wchar_t const* right);

constexpr bool IsBlank(wchar_t unit) { return unit == L' ' || (unit >= L'\t' && unit <= L'\r'); }
constexpr bool IsDigit(wchar_t unit) { return unit >= L'0' && unit <= L'9'; }
constexpr wchar_t LowerCase(wchar_t unit) {
  return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + (L'a' - L'A')) : unit;
}
constexpr bool IsHexDigit(wchar_t unit) {
  return IsDigit(unit) || (LowerCase(unit) >= L'a' && LowerCase(unit) <= L'f');
}

}  // namespace fdo::internal

#endif  // VALUES_NUMBER_TEXT_H_
