// What functions give.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "expr/function_table.h"

namespace fdo {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Call(wchar_t const* name, std::vector<Value> const& arguments) {
  internal::FunctionInfo const* const info = internal::FindFunction(name);
  int const number = internal::FormFor(info->number, static_cast<int>(arguments.size()));
  return TextOf(ExprEvalTestPeer::Call(number, arguments, info->arguments == internal::kAnyCount));
}

struct Case {
  wchar_t const* name;
  std::vector<Value> arguments;
  char const* result;
};

void Expect(std::vector<Case> const& cases) {
  for (Case const& test : cases) {
    std::string shown = ToUtf8(test.name);
    for (Value const& argument : test.arguments) shown += " " + TextOf(argument);
    EXPECT_EQ(Call(test.name, test.arguments), test.result) << shown;
  }
}

TEST(ExprFunctions, Conversions) {
  Expect({
      {L"tostring", {Value(L"x")}, "'x'"},
      {L"tostring", {Value(42)}, "'42'"},
      {L"tostring", {Value(0.1)}, "'0.1'"},
      {L"tostring", {Value()}, "NULL"},
      {L"tostring", {Value("ab", 2)}, "NULL"},
      {L"todouble", {Value(L"2.5x")}, "2.5"},
      {L"todouble", {Value(3)}, "3.0"},
      {L"todouble", {Value(true)}, "1.0"},
      {L"todouble", {Value()}, "0.0"},
      {L"tofloat", {Value(L"0.1")}, "0.1000000014901161"},
      {L"tofloat", {Value(0.1)}, "0.1"},
      {L"toint32", {Value(-2.7)}, "-2"},
      {L"toint32", {Value(4294967297.0)}, "1"},
      {L"toint32", {Value(1LL << 40)}, "1099511627776"},
      {L"toint64", {Value(L"42x")}, "42"},
      {L"toint64", {Value(true)}, "1"},
      {L"toint64", {Value(kNaN)}, "-9223372036854775808"},
      {L"toint64", {Value(1e300)}, "-9223372036854775808"},
      {L"todatetime", {Value(L"2024-03-01")}, "'2024-03-01'"},
      {L"todatetime", {Value(5)}, "5"},
  });
}

TEST(ExprFunctions, Mathematics) {
  Expect({
      {L"sin", {Value(0)}, "0.0"},
      {L"cos", {Value(0)}, "1.0"},
      {L"tan", {Value(-0.0)}, "-0.0"},
      {L"asin", {Value(1)}, "1.570796326794897"},
      {L"acos", {Value(1)}, "0.0"},
      {L"acos", {Value(0)}, "1.570796326794897"},
      {L"atan", {Value(1)}, "0.7853981633974483"},
      {L"atan", {Value(kInfinity)}, "1.570796326794897"},
      {L"atan2", {Value(1), Value(0)}, "1.570796326794897"},
      {L"atan2", {Value(0), Value(1)}, "0.0"},
      {L"sqrt", {Value(9)}, "3.0"},
      {L"sqrt", {Value(L"16")}, "4.0"},
      {L"ln", {Value(1)}, "0.0"},
      {L"ln", {Value(0)}, "-inf"},
      {L"log", {Value(1000)}, "3.0"},
      {L"exp", {Value(0)}, "1.0"},
      {L"exp", {Value(1000)}, "inf"},
      {L"pow", {Value(2), Value(10)}, "1024.0"},
      {L"power", {Value(2), Value(-1)}, "0.5"},
      {L"pow", {Value(0), Value(0)}, "1.0"},
  });
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(13, {Value(-1)}))));
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(10, {Value(2)}))));
}

TEST(ExprFunctions, FloorAndCeilGoThroughAnInteger) {
  Expect({
      {L"floor", {Value(2.7)}, "2.0"},
      {L"floor", {Value(-2.1)}, "-3.0"},
      {L"floor", {Value(-3.0)}, "-3.0"},
      {L"floor", {Value(0.5)}, "0.0"},
      {L"floor", {Value(-0.0)}, "-0.0"},
      {L"floor", {Value(1e300)}, "1e+300"},
      {L"floor", {Value(-1e19)}, "-1e+19"},
      {L"floor", {Value(kInfinity)}, "inf"},
      {L"floor", {Value(7)}, "7.0"},
      {L"ceil", {Value(2.1)}, "3.0"},
      {L"ceil", {Value(-2.9)}, "-2.0"},
      {L"ceil", {Value(-0.5)}, "0.0"},
      {L"ceil", {Value(-0.0)}, "-0.0"},
      {L"ceil", {Value(-kInfinity)}, "-inf"},
      {L"ceil", {Value(9.3e18)}, "9.3e+18"},
  });
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(19, {Value(kNaN)}))));
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(20, {Value(kNaN)}))));
}

TEST(ExprFunctions, HalvesRoundUp) {
  Expect({
      {L"round", {Value(2.5)}, "3.0"},
      {L"round", {Value(-2.5)}, "-2.0"},
      {L"round", {Value(0.49999999999999994)}, "1.0"},  // the sum is 1
      {L"round", {Value(-0.4)}, "0.0"},
      {L"round", {Value(1e300)}, "1e+300"},
      {L"round", {Value(1.25), Value(1)}, "1.3"},
      {L"round", {Value(1234.5), Value(-2)}, "1200.0"},
      {L"round", {Value(1250), Value(-2)}, "1300.0"},
      {L"round", {Value(2.5), Value(0)}, "3.0"},
      {L"round", {Value(-2.5), Value(L"0")}, "-2.0"},
      {L"round", {Value(1.5), Value(2.9)}, "1.5"},
  });
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(34, {Value(1), Value(400)}))));
}

TEST(ExprFunctions, TruncGoesTowardZero) {
  Expect({
      {L"trunc", {Value(2.9)}, "2"},
      {L"trunc", {Value(-2.9)}, "-2"},
      {L"trunc", {Value(L"-7.5")}, "-7"},
      {L"trunc", {Value(kInfinity)}, "-9223372036854775808"},
      {L"trunc", {Value(1.29), Value(1)}, "1.2"},
      {L"trunc", {Value(-1.29), Value(1)}, "-1.2"},
      {L"trunc", {Value(1299), Value(-2)}, "1200.0"},
      {L"trunc", {Value(2.9), Value(0)}, "2.0"},
      {L"trunc", {Value(-0.3), Value(0)}, "-0.0"},
      {L"trunc", {Value(1e300), Value(2)}, "1e+300"},
  });
}

TEST(ExprFunctions, SignsAndRemainders) {
  Expect({
      {L"abs", {Value(-3)}, "3.0"},
      {L"abs", {Value(-0.0)}, "0.0"},
      {L"sign", {Value(12.5)}, "1"},
      {L"sign", {Value(-0.0)}, "0"},
      {L"sign", {Value(-1)}, "-1"},
      {L"sign", {Value(kNaN)}, "-1"},
      {L"sign", {Value()}, "0"},
      {L"remainder", {Value(-7), Value(3)}, "2.0"},
      {L"remainder", {Value(7), Value(-3)}, "-2.0"},
      {L"remainder", {Value(7.5), Value(2)}, "1.5"},
      {L"mod", {Value(-7), Value(3)}, "-1"},
      {L"mod", {Value(7), Value(-3)}, "1"},
      {L"mod", {Value(7.9), Value(L"4")}, "3"},
  });
  EXPECT_TRUE(std::isnan(static_cast<double>(ExprEvalTestPeer::Call(28, {Value(1), Value(0)}))));
}

TEST(ExprFunctions, ConcatJoinsTextForms) {
  Expect({
      {L"concat", {Value(L"a"), Value(3), Value(2.5)}, "'a32.5'"},
      {L"concat", {}, "''"},
      {L"concat", {Value(L"a"), Value(), Value("xy", 2), Value(L"b")}, "'ab'"},
      {L"concat", {Value()}, "''"},
  });
  // A flag's text form is not its word; whatever it is, it is what Value gives.
  Value const flag(true);
  std::wstring const expected = std::wstring(L"a3") + static_cast<wchar_t const*>(flag);
  EXPECT_STREQ(static_cast<wchar_t const*>(ExprEvalTestPeer::Call(25, {Value(L"a"), Value(3), flag}, true)),
               expected.c_str());
  Value undefined;
  undefined.Invalidate();
  EXPECT_EQ(Call(L"concat", {Value(L"a"), undefined}), "'a'");
}

TEST(ExprFunctions, IfChooses) {
  Expect({
      {L"if", {Value(true), Value(1), Value(2)}, "1"},
      {L"if", {Value(0), Value(1), Value(2)}, "2"},
      {L"if", {Value(1.0), Value(1), Value(2)}, "2"},  // a double is never true
      {L"if", {Value(L"TRUE"), Value(L"x"), Value()}, "'x'"},
      {L"if", {Value(), Value(L"x"), Value()}, "NULL"},
  });
}

TEST(ExprFunctions, LookupSelectsTheFirstEqualKey) {
  Value const none(L"none");
  Expect({
      {L"lookup", {Value(2), none, Value(1), Value(L"one"), Value(2), Value(L"two")}, "'two'"},
      {L"lookup", {Value(5), none, Value(1), Value(L"one")}, "'none'"},
      {L"lookup", {Value(1), none, Value(1), Value(L"one"), Value(1), Value(L"again")}, "'one'"},
      {L"lookup", {Value(2), none, Value(L"2"), Value(L"as text")}, "'as text'"},
      {L"lookup", {Value(), none, Value(), Value(L"null")}, "'null'"},
      {L"lookup", {Value(1), none}, "'none'"},
  });
}

TEST(ExprFunctions, LookupWithoutAValueForItsLastKeySelectsTheDefault) {
  Value const none(L"none");
  Expect({
      {L"lookup", {Value(2), none, Value(2)}, "'none'"},
      {L"lookup", {Value(2), none, Value(1), Value(L"one"), Value(2)}, "'none'"},
      {L"lookup", {Value(1), none, Value(1), Value(L"one"), Value(2)}, "'one'"},
      {L"lookup", {Value(1)}, "NULL"},
      {L"lookup", {}, "NULL"},
  });
}

TEST(ExprFunctions, RandomIsBetweenZeroAndOne) {
  double least = 1;
  double greatest = 0;
  for (int i = 0; i < 2000; ++i) {
    Value const value = ExprEvalTestPeer::Call(23, {});
    ASSERT_EQ(value.Type(), Value::kDouble);
    double const number = static_cast<double>(value);
    // A multiple of the smallest step.
    EXPECT_NEAR(number * 32767, std::round(number * 32767), 1e-6);
    least = std::min(least, number);
    greatest = std::max(greatest, number);
  }
  EXPECT_GE(least, 0);
  EXPECT_LE(greatest, 1);
  EXPECT_GT(greatest - least, 0.9);
}

TEST(ExprFunctions, CurrentDateIsADate) {
  Value const value = ExprEvalTestPeer::Call(24, {});
  ASSERT_EQ(value.Type(), Value::kString);
  std::string const text = ToUtf8(static_cast<wchar_t const*>(value));
  ASSERT_EQ(text.size(), 10u);
  std::string form = text;
  for (char& unit : form) unit = unit >= '0' && unit <= '9' ? '0' : unit;
  EXPECT_EQ(form, "0000-00-00");
  EXPECT_GT(text, "2024-01-01");
}

TEST(ExprFunctions, NumbersWithoutAFunctionLeaveTheStack) {
  for (int const number : {-1, 0, 17, 39, 1000})
    EXPECT_EQ(TextOf(ExprEvalTestPeer::Call(number, {Value(5)})), "5");
}

TEST(ExprFunctions, ResultsOwnTheirText) {
  Value const text(L"x");
  EXPECT_EQ(ExprEvalTestPeer::Call(1, {Value(5)}).Type(), Value::kString);
  EXPECT_EQ(ExprEvalTestPeer::Call(31, {Value(true), text, text}).Type(), Value::kString);
}

// The end of the process; what the processor calls it is the platform's.
TEST(ExprEvalDeathTest, ModByZero) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(ExprEvalTestPeer::Call(30, {Value(1), Value(0)}), "");
}
TEST(ExprEvalDeathTest, IntegerDivisionByZero) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(EvaluatedExpression(L"1 / 0"), "");
}

TEST(ExprFunctions, WithoutTrapsWhereOptionsSaySo) {
  ExprOptions const all{/*allConditions=*/true, /*nullIsUnknown=*/false};
  EXPECT_EQ(EvaluatedExpression(L"mod(7, 0)", nullptr, all), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"mod(7, -1)", nullptr, all), "0");
  EXPECT_EQ(EvaluatedExpression(L"mod(-7, 3)", nullptr, all), "-1");
  EXPECT_EQ(EvaluatedExpression(L"7 / 0", nullptr, all), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"7 / 0.0", nullptr, all), "inf");
  EXPECT_EQ(EvaluatedExpression(L"7 / 2", nullptr, all), "3");
  EXPECT_EQ(EvaluatedExpression(L"(-9223372036854775807 - 1) / -1", nullptr, all), "9.223372036854776e+18");
}

}  // namespace
}  // namespace fdo
