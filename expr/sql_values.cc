#include "expr/sql_values.h"

#include <cmath>
#include <limits>

#include "expr/text_reading.h"

namespace fdo::internal {
namespace {

constexpr long long kLeast = std::numeric_limits<long long>::min();

int KindOf(Value const& value) { return value.Type() & ~Value::kBorrowed; }
bool IsNumber(int kind) { return kind == Value::kBool || kind == Value::kInt || kind == Value::kDouble; }
bool IsWhole(int kind) { return kind == Value::kBool || kind == Value::kInt; }

template <class Number>
SqlOrder OrderOf(Number left, Number right) {
  return left < right ? SqlOrder::kLess : right < left ? SqlOrder::kGreater : SqlOrder::kEqual;
}

SqlOrder Opposite(SqlOrder order) {
  return order == SqlOrder::kLess      ? SqlOrder::kGreater
         : order == SqlOrder::kGreater ? SqlOrder::kLess
                                       : order;
}

SqlOrder CompareExactly(long long whole, double real) {
  if (std::isnan(real)) return SqlOrder::kUnknown;
  if (real >= 0x1p63) return SqlOrder::kLess;
  if (real < -0x1p63) return SqlOrder::kGreater;
  long long const floor = static_cast<long long>(std::floor(real));
  if (whole != floor) return OrderOf(whole, floor);
  return real > std::floor(real) ? SqlOrder::kLess : SqlOrder::kEqual;
}

// Requires: both are numbers.
SqlOrder CompareNumbers(Value const& left, Value const& right) {
  bool const leftIsWhole = IsWhole(KindOf(left));
  bool const rightIsWhole = IsWhole(KindOf(right));
  long long const a = leftIsWhole ? static_cast<long long>(static_cast<__int64>(left)) : 0;
  long long const b = rightIsWhole ? static_cast<long long>(static_cast<__int64>(right)) : 0;
  if (leftIsWhole && rightIsWhole) return OrderOf(a, b);
  if (leftIsWhole) return CompareExactly(a, static_cast<double>(right));
  if (rightIsWhole) return Opposite(CompareExactly(b, static_cast<double>(left)));
  return OrderOf(static_cast<double>(left), static_cast<double>(right));
}

// Gives: false for a result beyond 64 bits.
bool CalculateWhole(std::int32_t op, long long a, long long b, long long& result) {
  auto const wrapped = [](unsigned long long bits) { return static_cast<long long>(bits); };
  auto const x = static_cast<unsigned long long>(a);
  auto const y = static_cast<unsigned long long>(b);
  switch (op) {
    case OpAdd:
      result = wrapped(x + y);
      return (a < 0) != (b < 0) || (result < 0) == (a < 0);
    case OpSub:
      result = wrapped(x - y);
      return (a < 0) == (b < 0) || (result < 0) == (a < 0);
    case OpMul:
      result = wrapped(x * y);
      if (a == -1) return b != kLeast;
      return a == 0 || result / a == b;
    default:
      if (a == kLeast && b == -1) return false;
      result = a / b;
      return true;
  }
}

double CalculateReal(std::int32_t op, double a, double b) {
  return op == OpAdd ? a + b : op == OpSub ? a - b : op == OpMul ? a * b : a / b;
}

}  // namespace

SqlOrder CompareAsInSql(Value const& left, Value const& right) {
  int const a = KindOf(left);
  int const b = KindOf(right);
  if (IsNumber(a) && IsNumber(b)) return CompareNumbers(left, right);
  if ((a == Value::kString && IsNumber(b)) || (b == Value::kString && IsNumber(a))) {
    Value const number = NumberInText(static_cast<wchar_t const*>(a == Value::kString ? left : right));
    if (number.IsNull()) return SqlOrder::kUnknown;
    return a == Value::kString ? CompareNumbers(number, right) : CompareNumbers(left, number);
  }
  return OrderOf<Value const&>(left, right);
}

bool HoldsOf(SqlOrder order, std::int32_t op) {
  switch (op) {
    case OpLess:
      return order == SqlOrder::kLess;
    case OpLessEqual:
      return order != SqlOrder::kGreater;
    case OpGreater:
      return order == SqlOrder::kGreater;
    case OpGreaterEqual:
      return order != SqlOrder::kLess;
    case OpEqual:
      return order == SqlOrder::kEqual;
    default:
      return order != SqlOrder::kEqual;
  }
}

void CalculateAsInSql(std::int32_t op, Value const& left, Value const& right, Value& result) {
  double const b = static_cast<double>(right);
  if (op == OpDiv && b == 0) {
    result.Reset();
    return;
  }
  double const a = static_cast<double>(left);
  long long whole = 0;
  bool const isWhole = IsWhole(KindOf(left)) && IsWhole(KindOf(right)) &&
                       CalculateWhole(op, static_cast<__int64>(left), static_cast<__int64>(right), whole);
  if (isWhole) {
    result.Reset(whole);
  } else {
    result.Reset(CalculateReal(op, a, b));
  }
}

void NegateAsInSql(Value& value) {
  long long const whole =
      IsWhole(KindOf(value)) ? static_cast<long long>(static_cast<__int64>(value)) : kLeast;
  if (whole == kLeast) {
    value.Reset(-static_cast<double>(value));
  } else {
    value.Reset(-whole);
  }
}

}  // namespace fdo::internal
