// SQL functions of numbers. A null argument gives null, and so does a result that is no number.
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "sdk/providers/sqlite/number_reading.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/providers/sqlite/value_reading.h"

namespace fdo_sqlite {
namespace {

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

// Doubles from -2^63 to below 2^63 are what a 64-bit integer holds.
constexpr double kTwoTo63 = 9223372036854775808.0;

template <double (*function)(double)>
void Unary(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0])) return;
  sqlite3_result_double(context, function(sqlite3_value_double(arguments[0])));
}

template <double (*function)(double, double)>
void Binary(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  double const a = sqlite3_value_double(arguments[0]);
  sqlite3_result_double(context, function(a, sqlite3_value_double(arguments[1])));
}

double Sin(double a) { return std::sin(a); }
double Cos(double a) { return std::cos(a); }
double Tan(double a) { return std::tan(a); }
double Asin(double a) { return std::asin(a); }
double Acos(double a) { return std::acos(a); }
double Atan(double a) { return std::atan(a); }
double Atan2(double a, double b) { return std::atan2(a, b); }
double Sqrt(double a) { return std::sqrt(a); }
double Ln(double a) { return std::log(a); }
double Log10(double a) { return std::log10(a); }
double LogTo(double base, double a) { return std::log(a) / std::log(base); }
double Exp(double a) { return std::exp(a); }
double Power(double a, double b) { return std::pow(a, b); }
double Floor(double a) { return std::floor(a); }
double Ceil(double a) { return std::ceil(a); }
double Abs(double a) { return std::fabs(a); }
// The sign follows b.
double Remainder(double a, double b) { return a - std::floor(a / b) * b; }
// Half rounds up, towards positive infinity.
double Round(double a) { return std::floor(a + 0.5); }

// By squaring over the digits, inverted for negative ones. 10 to more than 400 is infinite, and less than
// that is 0, as further squaring would have it.
double PowerOfTen(std::int64_t exponent) {
  bool const isNegative = exponent < 0;
  std::int64_t left = isNegative ? (exponent < -400 ? 400 : -exponent) : (exponent > 400 ? 400 : exponent);
  double power = 1;
  for (double factor = 10; left > 0; left >>= 1, factor *= factor) {
    if ((left & 1) != 0) power *= factor;
  }
  return isNegative ? 1 / power : power;
}

template <double (*whole)(double)>
void Decimals(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  double const factor = PowerOfTen(sqlite3_value_int64(arguments[1]));
  sqlite3_result_double(context, whole(sqlite3_value_double(arguments[0]) * factor) / factor);
}

double TowardsZero(double a) { return std::trunc(a); }

void Sign(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0])) return;
  double const a = sqlite3_value_double(arguments[0]);
  sqlite3_result_int(context, a > 0 ? 1 : a == 0 ? 0 : -1);
}

// Null for what does not fit.
void ResultInteger(sqlite3_context* context, double value, double least, double end) {
  double const whole = std::trunc(value);
  if (whole >= least && whole < end) sqlite3_result_int64(context, static_cast<std::int64_t>(whole));
}

void Trunc(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_FLOAT) {
    ResultInteger(context, sqlite3_value_double(arguments[0]), -kTwoTo63, kTwoTo63);
  } else {
    sqlite3_result_value(context, arguments[0]);
  }
}

// With the sign of a; null for a divisor of 0.
void Mod(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
  std::array<std::int64_t, 2> whole = {};
  for (std::size_t i = 0; i < 2; ++i) {
    if (sqlite3_value_type(arguments[i]) == SQLITE_FLOAT) {
      double const cut = std::trunc(sqlite3_value_double(arguments[i]));
      if (!(cut >= -kTwoTo63 && cut < kTwoTo63)) return;
      whole[i] = static_cast<std::int64_t>(cut);
    } else {
      whole[i] = sqlite3_value_int64(arguments[i]);
    }
  }
  if (whole[1] == 0) return;
  // The processor cannot divide the least number by -1.
  sqlite3_result_int64(context, whole[1] == -1 ? 0 : whole[0] % whole[1]);
}

void Random(sqlite3_context* context, int, sqlite3_value**) {
  constexpr int kGreatest = 32767;
  sqlite3_result_double(context, (std::rand() & kGreatest) / double{kGreatest});
}

// The number of a number, or the one that a text begins with.
double NumberOf(sqlite3_value* value) {
  bool const isText = sqlite3_value_type(value) == SQLITE_TEXT;
  return isText ? LeadingNumber(BytesOf(value)) : sqlite3_value_double(value);
}

void ToDouble(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (!IsNull(arguments[0])) sqlite3_result_double(context, NumberOf(arguments[0]));
}

// A double stays as it is.
void ToFloat(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (IsNull(arguments[0])) return;
  double const number = NumberOf(arguments[0]);
  bool const isDouble = sqlite3_value_type(arguments[0]) == SQLITE_FLOAT;
  bool const isBeyond = std::fabs(number) > double{std::numeric_limits<float>::max()};
  sqlite3_result_double(context, isDouble || isBeyond ? number : double{static_cast<float>(number)});
}

// An integer stays as it is.
template <int bits>
void ToInteger(sqlite3_context* context, int, sqlite3_value** arguments) {
  switch (sqlite3_value_type(arguments[0])) {
    case SQLITE_NULL:
      return;
    case SQLITE_INTEGER:
      sqlite3_result_value(context, arguments[0]);
      return;
    default:
      break;
  }
  if (SqlNumber const exact = NumberInText(BytesOf(arguments[0]));
      bits == 64 && std::holds_alternative<std::int64_t>(exact)) {
    sqlite3_result_int64(context, std::get<std::int64_t>(exact));
    return;
  }
  double const end = bits == 64 ? kTwoTo63 : 2147483648.0;
  ResultInteger(context, NumberOf(arguments[0]), -end, end);
}

// The number that a text is, for comparisons; numbers pass.
void NumberOfText(sqlite3_context* context, int, sqlite3_value** arguments) {
  int const type = sqlite3_value_type(arguments[0]);
  if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
    sqlite3_result_value(context, arguments[0]);
  } else if (type == SQLITE_TEXT) {
    SqlNumber const number = NumberInText(BytesOf(arguments[0]));
    if (auto const* whole = std::get_if<std::int64_t>(&number)) sqlite3_result_int64(context, *whole);
    if (auto const* real = std::get_if<double>(&number)) sqlite3_result_double(context, *real);
  }
}

SqlFunction Scalar(char const* name, int arity, decltype(SqlFunction::run) run, bool fixed = true) {
  return {name, arity, fixed, run, nullptr, nullptr};
}

}  // namespace

std::vector<SqlFunction> const& NumberFunctions() {
  static std::vector<SqlFunction> const kFunctions = {
      Scalar("fdo_sin", 1, Unary<Sin>),
      Scalar("fdo_cos", 1, Unary<Cos>),
      Scalar("fdo_tan", 1, Unary<Tan>),
      Scalar("fdo_asin", 1, Unary<Asin>),
      Scalar("fdo_acos", 1, Unary<Acos>),
      Scalar("fdo_atan", 1, Unary<Atan>),
      Scalar("fdo_atan2", 2, Binary<Atan2>),
      Scalar("fdo_sqrt", 1, Unary<Sqrt>),
      Scalar("fdo_ln", 1, Unary<Ln>),
      Scalar("fdo_log", 1, Unary<Log10>),
      Scalar("fdo_log", 2, Binary<LogTo>),
      Scalar("fdo_exp", 1, Unary<Exp>),
      Scalar("fdo_power", 2, Binary<Power>),
      Scalar("fdo_floor", 1, Unary<Floor>),
      Scalar("fdo_ceil", 1, Unary<Ceil>),
      Scalar("fdo_abs", 1, Unary<Abs>),
      Scalar("fdo_sign", 1, Sign),
      Scalar("fdo_trunc", 1, Trunc),
      Scalar("fdo_trunc", 2, Decimals<TowardsZero>),
      Scalar("fdo_round", 1, Unary<Round>),
      Scalar("fdo_round", 2, Decimals<Round>),
      Scalar("fdo_remainder", 2, Binary<Remainder>),
      Scalar("fdo_mod", 2, Mod),
      Scalar("fdo_random", 0, Random, false),
      Scalar("fdo_todouble", 1, ToDouble),
      Scalar("fdo_tofloat", 1, ToFloat),
      Scalar("fdo_toint32", 1, ToInteger<32>),
      Scalar("fdo_toint64", 1, ToInteger<64>),
      Scalar("fdo_number", 1, NumberOfText),
  };
  return kFunctions;
}

}  // namespace fdo_sqlite
