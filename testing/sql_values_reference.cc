#include "testing/sql_values_reference.h"

#include <fdo/text_conversion.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <regex>
#include <string>

namespace fdo {
namespace {

constexpr long double kEnd = 0x1p63L;  // of 64-bit integers

bool IsText(Value const& value) { return (value.Type() & ~Value::kBorrowed) == Value::kString; }
bool IsWhole(Value const& value) { return value.Type() == Value::kBool || value.Type() == Value::kInt; }
bool IsNumber(Value const& value) { return IsWhole(value) || value.Type() == Value::kDouble; }

long double Exact(Value const& value) {
  if (IsWhole(value)) return static_cast<long double>(static_cast<__int64>(value));
  return static_cast<long double>(static_cast<double>(value));
}

std::optional<long double> NumberOf(Value const& value) {
  if (IsNumber(value)) return Exact(value);
  static std::regex const number(R"([ \t-\r]*([+-]?)((\d+)|(\d+\.\d*|\.\d+|\d+)([eE][+-]?\d+)?)[ \t-\r]*)");
  std::string const text = ToUtf8(static_cast<wchar_t const*>(value));
  std::smatch parts;
  if (!std::regex_match(text, parts, number)) return {};
  std::string const digits = parts[1].str() + parts[2].str();
  if (parts[3].matched) {
    long double const whole = std::strtold(digits.c_str(), nullptr);
    if (whole >= -kEnd && whole < kEnd) return whole;
  }
  double const real = std::strtod(digits.c_str(), nullptr);
  if (std::isinf(real)) return {};
  return static_cast<long double>(real);
}

}  // namespace

ReferenceOrder CompareByReference(Value const& left, Value const& right) {
  bool const asNumbers = (IsNumber(left) || IsText(left)) && (IsNumber(right) || IsText(right)) &&
                         !(IsText(left) && IsText(right));
  if (!asNumbers) return left < right ? kReferenceLess : right < left ? kReferenceGreater : kReferenceEqual;
  std::optional<long double> const a = NumberOf(left);
  std::optional<long double> const b = NumberOf(right);
  if (!a || !b) return kReferenceUnknown;
  return *a < *b ? kReferenceLess : *b < *a ? kReferenceGreater : kReferenceEqual;
}

Value CalculateByReference(char op, Value const& left, Value const& right) {
  double const a = static_cast<double>(left);
  double const b = static_cast<double>(right);
  if (op == '/' && b == 0) return Value();
  if (IsWhole(left) && IsWhole(right)) {
    long double const x = Exact(left);
    long double const y = Exact(right);
    // Rounded where it is far outside; a product of that size is as little whole to SQL.
    long double const whole = op == '+' ? x + y : op == '-' ? x - y : op == '*' ? x * y : std::trunc(x / y);
    if (op == '/') {
      // The quotient of integers is cut, and a long double may have rounded it up to the next one.
      if (x == -kEnd && y == -1) return Value(0x1p63);
      long double const rest = x - whole * y;
      bool const isBeyond = rest != 0 && (rest < 0) != (x < 0);
      return Value(static_cast<long long>(isBeyond ? whole - (x / y < 0 ? -1 : 1) : whole));
    }
    if (whole >= -kEnd && whole < kEnd) return Value(static_cast<long long>(whole));
  }
  return Value(op == '+' ? a + b : op == '-' ? a - b : op == '*' ? a * b : a / b);
}

Value LiteralByReference(Value const& text, ColumnDef::DataType type) {
  static std::wregex const form(LR"((\d{4}-\d\d-\d\d)?([T ]?)(\d\d:\d\d(:\d\d(\.\d*)?)?)?)");
  std::wstring const literal = static_cast<wchar_t const*>(text);
  switch (type) {
    case ColumnDef::kInt32:
    case ColumnDef::kInt64:
    case ColumnDef::kDouble:
    case ColumnDef::kBoolean: {
      std::optional<long double> const number = NumberOf(text);
      if (!number) return Value();
      bool const isWhole =
          literal.find_first_of(L".eE") == std::wstring::npos && *number >= -kEnd && *number < kEnd;
      return isWhole ? Value(static_cast<long long>(*number)) : Value(static_cast<double>(*number));
    }
    case ColumnDef::kDateTime:
      // The tests have whole days only.
      return std::regex_match(literal, form) && literal.size() == 10 ? text : Value();
    default:
      return text;
  }
}

}  // namespace fdo
