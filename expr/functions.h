// What the functions of expressions do. Each works on the stack whose top element is at top: it takes its
// arguments off, of which the first is on top, and leaves its result.
#ifndef EXPR_FUNCTIONS_H_
#define EXPR_FUNCTIONS_H_

#include <fdo/value.h>

namespace fdo::internal {

// Conversions.
void ToText(Value*& top);
void ToDouble(Value*& top);
void ToFloat(Value*& top);
void ToInt32(Value*& top);
void ToInt64(Value*& top);
void Keep(Value*& top);

// Mathematics, of the arguments converted to double.
void Sine(Value*& top);
void Cosine(Value*& top);
void Tangent(Value*& top);
void ArcSine(Value*& top);
void ArcCosine(Value*& top);
void ArcTangent(Value*& top);
void ArcTangent2(Value*& top);
void SquareRoot(Value*& top);
void NaturalLogarithm(Value*& top);
void DecimalLogarithm(Value*& top);
void Exponential(Value*& top);
void Power(Value*& top);

// Rounding and signs.
void Floor(Value*& top);
void Ceiling(Value*& top);
void Absolute(Value*& top);
void Sign(Value*& top);
void TruncateToInteger(Value*& top);
void TruncateDigits(Value*& top);
void RoundToWhole(Value*& top);
void RoundDigits(Value*& top);
void Remainder(Value*& top);
// Deliberate: a divisor of zero is not looked at (ExprEvalDeathTest.ModByZero).
void Modulo(Value*& top);
void ModuloOrNull(Value*& top);

// Everything else.
void Random(Value*& top);
void CurrentDate(Value*& top);
void Concatenate(Value*& top);
void If(Value*& top);
void Lookup(Value*& top);

// x, y, z and m are numbered as functions 35 to 38.
enum class Lender { kRefused, kAccepted };
// Replaces the point on top by one of its ordinates; 0.0 for what is no point, and for borrowed bytes and
// text where the lender is refused.
void ReplaceByOrdinate(int which, Lender lender, Value& point);
template <int which, Lender lender>
void Ordinate(Value*& top) {
  ReplaceByOrdinate(which, lender, *top);
}

}  // namespace fdo::internal

#endif  // EXPR_FUNCTIONS_H_
