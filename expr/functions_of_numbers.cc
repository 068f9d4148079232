// Conversions, mathematics and rounding.
#include <cmath>
#include <cstdlib>

#include "expr/functions.h"

namespace fdo::internal {
namespace {

template <class Calculate>
void Replace(Value*& top, Calculate calculate) {
  top->Reset(calculate(static_cast<double>(*top)));
}

// calculate(a, b): the first argument is on top.
template <class Calculate>
void ReplaceTwo(Value*& top, Calculate calculate) {
  double const a = static_cast<double>(*top);
  top->Reset();
  --top;
  top->Reset(calculate(a, static_cast<double>(*top)));
}

// Whether the truncated number is an integer of 64 bits.
bool FitsInteger(double number) {
  constexpr double kLimit = 9223372036854775808.0;
  return number >= -kLimit && number < kLimit;
}

double FloorOf(double number) {
  if (!FitsInteger(number)) return number;
  double const whole = static_cast<double>(static_cast<long long>(number));
  if (whole == number) return number;
  return number < 0 ? whole - 1 : whole;
}

double CeilingOf(double number) {
  if (!FitsInteger(number)) return number;
  double const whole = static_cast<double>(static_cast<long long>(number));
  if (whole == number) return number;
  return number > 0 ? whole + 1 : whole;
}

// By repeated squaring, so that the last bits are what they have always been.
double PowerOfTen(long long exponent) {
  double power = 1.0;
  double square = 10.0;
  unsigned long long left = exponent < 0 ? 0 - static_cast<unsigned long long>(exponent)
                                         : static_cast<unsigned long long>(exponent);
  for (; left != 0; left >>= 1) {
    if ((left & 1) != 0) power *= square;
    square *= square;
  }
  return exponent < 0 ? 1.0 / power : power;
}

// calculate(a, f), f being the power of ten of the number of digits.
template <class Calculate>
void ReplaceDigits(Value*& top, Calculate calculate) {
  double const a = static_cast<double>(*top);
  top->Reset();
  --top;
  double const factor = PowerOfTen(static_cast<__int64>(*top));
  top->Reset(calculate(a * factor) / factor);
}

// Takes the first argument off.
long long TakeInteger(Value*& top) {
  long long const number = static_cast<__int64>(*top);
  top->Reset();
  --top;
  return number;
}

}  // namespace

void ToDouble(Value*& top) {
  if (top->Type() != Value::kDouble) top->Reset(static_cast<double>(*top));
}
void ToFloat(Value*& top) {
  if (top->Type() != Value::kDouble) top->Reset(static_cast<float>(static_cast<double>(*top)));
}
void ToInt32(Value*& top) {
  if (top->Type() != Value::kInt) top->Reset(static_cast<int>(static_cast<__int64>(*top)));
}
void ToInt64(Value*& top) {
  if (top->Type() != Value::kInt) top->Reset(static_cast<__int64>(*top));
}
void Keep(Value*& /*top*/) {}

void Sine(Value*& top) {
  Replace(top, [](double a) { return std::sin(a); });
}
void Cosine(Value*& top) {
  Replace(top, [](double a) { return std::cos(a); });
}
void Tangent(Value*& top) {
  Replace(top, [](double a) { return std::tan(a); });
}
void ArcSine(Value*& top) {
  Replace(top, [](double a) { return std::asin(a); });
}
void ArcCosine(Value*& top) {
  Replace(top, [](double a) { return std::acos(a); });
}
void ArcTangent(Value*& top) {
  Replace(top, [](double a) { return std::atan(a); });
}
void ArcTangent2(Value*& top) {
  ReplaceTwo(top, [](double a, double b) { return std::atan2(a, b); });
}
void SquareRoot(Value*& top) {
  Replace(top, [](double a) { return std::sqrt(a); });
}
void NaturalLogarithm(Value*& top) {
  Replace(top, [](double a) { return std::log(a); });
}
void DecimalLogarithm(Value*& top) {
  Replace(top, [](double a) { return std::log10(a); });
}
void Exponential(Value*& top) {
  Replace(top, [](double a) { return std::exp(a); });
}
void Power(Value*& top) {
  ReplaceTwo(top, [](double a, double b) { return std::pow(a, b); });
}

void Floor(Value*& top) { Replace(top, FloorOf); }
void Ceiling(Value*& top) { Replace(top, CeilingOf); }
void Absolute(Value*& top) {
  Replace(top, [](double a) { return std::fabs(a); });
}
void Sign(Value*& top) {
  Replace(top, [](double a) { return a > 0 ? 1 : a == 0 ? 0 : -1; });
}
void TruncateToInteger(Value*& top) { top->Reset(static_cast<__int64>(*top)); }
void TruncateDigits(Value*& top) {
  ReplaceDigits(top, [](double scaled) { return std::trunc(scaled); });
}
void RoundToWhole(Value*& top) {
  Replace(top, [](double a) { return FloorOf(a + 0.5); });
}
void RoundDigits(Value*& top) {
  ReplaceDigits(top, [](double scaled) { return FloorOf(scaled + 0.5); });
}
void Remainder(Value*& top) {
  ReplaceTwo(top, [](double a, double b) { return a - FloorOf(a / b) * b; });
}

void Modulo(Value*& top) {
  long long const a = TakeInteger(top);
  top->Reset(a % static_cast<__int64>(*top));
}

void ModuloOrNull(Value*& top) {
  long long const a = TakeInteger(top);
  long long const b = static_cast<__int64>(*top);
  if (b == 0) {
    top->Reset();
  } else {
    top->Reset(b == -1 ? 0LL : a % b);
  }
}

void Random(Value*& top) {
  constexpr double kStep = 3.051850947599719e-5;  // 1 / 32767
  ++top;
  top->Reset((std::rand() & 0x7FFF) * kStep);
}

}  // namespace fdo::internal
