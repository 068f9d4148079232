// The functions of expressions, listed once: the compiler, the stack check, the machine, the printed program
// and docs/expression_machine.md look here.
#ifndef EXPR_FUNCTION_TABLE_H_
#define EXPR_FUNCTION_TABLE_H_

#include <cstddef>
#include <iterator>

#include "expr/functions.h"

namespace fdo::internal {

inline constexpr int kAnyCount = -1;  // any number of arguments, their count on top of them

using Function = void (*)(Value*& top);

// How a function takes null where null is unknown.
enum class OfNull { kIsNull, kIsItsOwn };

// What the arguments of a function are meant to be, and what it gives. The machine takes whatever comes;
// whoever runs filters on a store that is stricter looks here.
enum class Takes { kNumbers, kNumberOrText, kDateOrText, kPoint, kAnything };
enum class Gives { kInteger, kReal, kText, kDate, kItsSecond };

struct FunctionInfo {
  int number;
  wchar_t const* name;  // null for a form that is another function with more arguments
  int arguments;
  Takes takes;
  Gives gives;
  Function apply;
  Function applySafely;  // where nothing may trap or refuse
  OfNull ofNull;
  char const* result;  // of arguments a, b, c
};

// A second name of a function is a second row.
inline constexpr FunctionInfo kFunctions[] = {
    {1, L"tostring", 1, Takes::kAnything, Gives::kText, ToText, ToText, OfNull::kIsItsOwn,
     "text of a; null of null"},
    {2, L"todouble", 1, Takes::kNumberOrText, Gives::kReal, ToDouble, ToDouble, OfNull::kIsNull,
     "a as a double"},
    {3, L"tofloat", 1, Takes::kNumberOrText, Gives::kReal, ToFloat, ToFloat, OfNull::kIsNull,
     "a, unless a double, rounded to a float, as a double"},
    {4, L"toint32", 1, Takes::kNumberOrText, Gives::kInteger, ToInt32, ToInt32, OfNull::kIsNull,
     "a, unless an integer, as its low 32 bits"},
    {5, L"toint64", 1, Takes::kNumberOrText, Gives::kInteger, ToInt64, ToInt64, OfNull::kIsNull,
     "a as an integer"},
    {6, L"todatetime", 1, Takes::kDateOrText, Gives::kDate, Keep, Keep, OfNull::kIsItsOwn, "a"},
    {7, L"sin", 1, Takes::kNumbers, Gives::kReal, Sine, Sine, OfNull::kIsNull, "double"},
    {8, L"cos", 1, Takes::kNumbers, Gives::kReal, Cosine, Cosine, OfNull::kIsNull, "double"},
    {9, L"tan", 1, Takes::kNumbers, Gives::kReal, Tangent, Tangent, OfNull::kIsNull, "double"},
    {10, L"asin", 1, Takes::kNumbers, Gives::kReal, ArcSine, ArcSine, OfNull::kIsNull, "double"},
    {11, L"acos", 1, Takes::kNumbers, Gives::kReal, ArcCosine, ArcCosine, OfNull::kIsNull, "double"},
    {12, L"atan", 1, Takes::kNumbers, Gives::kReal, ArcTangent, ArcTangent, OfNull::kIsNull, "double"},
    {13, L"sqrt", 1, Takes::kNumbers, Gives::kReal, SquareRoot, SquareRoot, OfNull::kIsNull, "double"},
    {14, L"ln", 1, Takes::kNumbers, Gives::kReal, NaturalLogarithm, NaturalLogarithm, OfNull::kIsNull,
     "natural logarithm, double"},
    {15, L"exp", 1, Takes::kNumbers, Gives::kReal, Exponential, Exponential, OfNull::kIsNull, "double"},
    {16, L"pow", 2, Takes::kNumbers, Gives::kReal, Power, Power, OfNull::kIsNull, "a to the power b, double"},
    {16, L"power", 2, Takes::kNumbers, Gives::kReal, Power, Power, OfNull::kIsNull,
     "a to the power b, double"},
    {18, L"atan2", 2, Takes::kNumbers, Gives::kReal, ArcTangent2, ArcTangent2, OfNull::kIsNull,
     "angle of y = a, x = b, double"},
    {19, L"floor", 1, Takes::kNumbers, Gives::kReal, Floor, Floor, OfNull::kIsNull,
     "double; outside 64 bits a itself"},
    {20, L"ceil", 1, Takes::kNumbers, Gives::kReal, Ceiling, Ceiling, OfNull::kIsNull,
     "double; outside 64 bits a itself"},
    {21, L"abs", 1, Takes::kNumbers, Gives::kReal, Absolute, Absolute, OfNull::kIsNull, "double"},
    {22, L"sign", 1, Takes::kNumbers, Gives::kInteger, Sign, Sign, OfNull::kIsNull,
     "integer 1, 0 or -1; -1 of what is not a number"},
    {23, L"random", 0, Takes::kNumbers, Gives::kReal, Random, Random, OfNull::kIsItsOwn,
     "double from 0 to 1, both included"},
    {24, L"CurrentDate", 0, Takes::kNumbers, Gives::kDate, CurrentDate, CurrentDate, OfNull::kIsItsOwn,
     "text of today's date in UTC"},
    {25, L"concat", kAnyCount, Takes::kAnything, Gives::kText, Concatenate, Concatenate, OfNull::kIsItsOwn,
     "texts of the arguments, one behind the other"},
    {26, L"trunc", 1, Takes::kNumbers, Gives::kInteger, TruncateToInteger, TruncateToInteger, OfNull::kIsNull,
     "a as an integer"},
    {27, L"round", 1, Takes::kNumbers, Gives::kReal, RoundToWhole, RoundToWhole, OfNull::kIsNull,
     "floor(a + 0.5), double"},
    {28, L"remainder", 2, Takes::kNumbers, Gives::kReal, Remainder, Remainder, OfNull::kIsNull,
     "a - floor(a / b) * b, double"},
    {29, L"log", 1, Takes::kNumbers, Gives::kReal, DecimalLogarithm, DecimalLogarithm, OfNull::kIsNull,
     "logarithm to base 10, double"},
    {30, L"mod", 2, Takes::kNumbers, Gives::kInteger, Modulo, ModuloOrNull, OfNull::kIsNull,
     "integer with the sign of a"},
    {31, L"if", 3, Takes::kAnything, Gives::kItsSecond, If, If, OfNull::kIsItsOwn,
     "b when a is true, else c"},
    {32, L"lookup", kAnyCount, Takes::kAnything, Gives::kItsSecond, Lookup, Lookup, OfNull::kIsItsOwn,
     "the value behind the first key from the third argument on that equals a, else b"},
    {33, nullptr, 2, Takes::kNumbers, Gives::kReal, TruncateDigits, TruncateDigits, OfNull::kIsNull,
     "a cut to b decimal digits, double"},
    {34, nullptr, 2, Takes::kNumbers, Gives::kReal, RoundDigits, RoundDigits, OfNull::kIsNull,
     "a rounded to b decimal digits, double"},
    {35, L"x", 1, Takes::kPoint, Gives::kReal, Ordinate<35, Lender::kRefused>,
     Ordinate<35, Lender::kAccepted>, OfNull::kIsNull, "first ordinate of a point, double"},
    {36, L"y", 1, Takes::kPoint, Gives::kReal, Ordinate<36, Lender::kRefused>,
     Ordinate<36, Lender::kAccepted>, OfNull::kIsNull, "second ordinate of a point, double"},
    {37, L"z", 1, Takes::kPoint, Gives::kReal, Ordinate<37, Lender::kRefused>,
     Ordinate<37, Lender::kAccepted>, OfNull::kIsNull, "Z of a point, else 0.0, double"},
    {38, L"m", 1, Takes::kPoint, Gives::kReal, Ordinate<38, Lender::kRefused>,
     Ordinate<38, Lender::kAccepted>, OfNull::kIsNull, "M of a point, else 0.0, double"},
};

constexpr bool FunctionsAscend() {
  for (std::size_t i = 1; i < std::size(kFunctions); ++i) {
    if (kFunctions[i - 1].number > kFunctions[i].number) return false;
  }
  return true;
}
static_assert(FunctionsAscend(), "rows in numeric order; 17 is never used");

// Functions that have a form with two arguments under a number of its own.
struct TwoArgumentForm {
  int oneArgument;
  int twoArguments;
};
inline constexpr TwoArgumentForm kTwoArgumentForms[] = {{26, 33}, {27, 34}};

inline constexpr int kFunctionNumbers = 39;  // 0 to 38, with gaps

// Null for a number that is no function's; calling it leaves the stack as it is.
FunctionInfo const* FindFunction(long long number);
// The first row of that name, in any case of its letters; null when there is none, and for null.
FunctionInfo const* FindFunction(wchar_t const* name);

// The number that a call with so many arguments is compiled to.
constexpr int FormFor(int number, int arguments) {
  for (TwoArgumentForm const& form : kTwoArgumentForms) {
    if (form.oneArgument == number && arguments == 2) return form.twoArguments;
  }
  return number;
}

}  // namespace fdo::internal

#endif  // EXPR_FUNCTION_TABLE_H_
