// Adding, subtracting, multiplying, dividing and negating values.
#include <fdo/value.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace fdo {
namespace {

constexpr __int64 kMaxInt = std::numeric_limits<__int64>::max();
constexpr __int64 kMinInt = std::numeric_limits<__int64>::min();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
unsigned char const kBytes[] = {1, 2};

using Operation = void (*)(Value&, Value const&, Value const&);
struct NamedOperation {
  char const* name;
  Operation apply;
};
constexpr NamedOperation kOperations[] = {
    {"Add", Value::Add}, {"Sub", Value::Sub}, {"Mul", Value::Mul}, {"Div", Value::Div}};

Value Undefined() {
  Value value;
  value.Invalidate();
  return value;
}
Value Lent(wchar_t const* text) {
  Value value;
  value.Reset(text, false);
  return value;
}

void ExpectInteger(__int64 expected, Value const& value) {
  EXPECT_EQ(3, value.Type());
  EXPECT_EQ(expected, static_cast<__int64>(value));
}
void ExpectDouble(double expected, Value const& value) {
  EXPECT_EQ(4, value.Type());
  EXPECT_EQ(expected, static_cast<double>(value));
  EXPECT_EQ(std::signbit(expected), std::signbit(static_cast<double>(value)));
}

TEST(ValueArithmetic, TwoIntegersGiveAnInteger) {
  struct {
    Operation apply;
    __int64 left, right, result;
  } const cases[] = {
      {Value::Add, 1, 2, 3},
      {Value::Add, kMaxInt, 1, kMinInt},
      {Value::Sub, 1, 2, -1},
      {Value::Sub, kMinInt, 1, kMaxInt},
      {Value::Mul, -3, 4, -12},
      {Value::Mul, kMaxInt, 2, -2},
      {Value::Mul, kMinInt, -1, kMinInt},
      {Value::Div, 7, -2, -3},
      {Value::Div, -7, 2, -3},
      {Value::Div, 7, 7, 1},
  };
  for (auto const& c : cases) {
    Value result(L"old");
    c.apply(result, Value(c.left), Value(c.right));
    ExpectInteger(c.result, result);
  }
}

TEST(ValueArithmetic, TwoDoublesGiveADouble) {
  struct {
    Operation apply;
    double left, right, result;
  } const cases[] = {
      {Value::Add, 0.5, 0.25, 0.75},         {Value::Sub, 0.5, 0.75, -0.25},
      {Value::Mul, 1.5, -2.0, -3.0},         {Value::Div, 1.0, 4.0, 0.25},
      {Value::Div, 1.0, 0.0, kInfinity},     {Value::Div, -1.0, 0.0, -kInfinity},
      {Value::Mul, 1e300, 1e300, kInfinity},
  };
  for (auto const& c : cases) {
    Value result;
    c.apply(result, Value(c.left), Value(c.right));
    ExpectDouble(c.result, result);
  }
  Value result;
  Value::Div(result, Value(0.0), Value(0.0));
  EXPECT_TRUE(std::isnan(static_cast<double>(result)));
}

TEST(ValueArithmetic, DifferentCodesGiveTheDoubleOfBothNumbers) {
  struct {
    Value left, right;
    double sum;
  } const cases[] = {
      {Value(1), Value(2.0), 3.0},
      {Value(true), Value(1), 2.0},
      {Value(), Value(5), 5.0},
      {Undefined(), Value(5), 5.0},
      {Value(), Undefined(), 0.0},
      {Value(L"1.5"), Value(1), 2.5},
      {Value(L"1.5"), Lent(L"2x"), 3.5},
      {Value(L"none"), Value(1), 1.0},
      {Value(kBytes, 2), Value(1), 1.0},
      {Value(kBytes, 2), Value(), 0.0},
      {Value(9007199254740993LL), Value(0.0), 9007199254740992.0},
  };
  for (auto const& c : cases) {
    Value result(L"old");
    Value::Add(result, c.left, c.right);
    ExpectDouble(c.sum, result);
    Value::Add(result, c.right, c.left);
    ExpectDouble(c.sum, result);
  }
  Value result;
  Value::Div(result, Value(1), Value());
  ExpectDouble(kInfinity, result);
}

TEST(ValueArithmetic, EqualCodesThatAreNoNumbersLeaveTheResultUntouched) {
  Value lentBytes;
  lentBytes.Reset(kBytes, 2, false);
  Value const operands[] = {Undefined(), Value(), Value(true), Value(L"2"), Value(kBytes, 2)};
  auto const expectUntouched = [](Value const& operand, Value const& other) {
    for (NamedOperation const& operation : kOperations) {
      Value result(77);
      operation.apply(result, operand, other);
      EXPECT_EQ(3, result.Type()) << operation.name << " of code " << operand.Type();
      EXPECT_EQ(77, static_cast<__int64>(result));
    }
  };
  for (Value const& operand : operands) expectUntouched(operand, operand);
  expectUntouched(Lent(L"2"), Lent(L"3"));
  expectUntouched(lentBytes, lentBytes);
}

TEST(ValueArithmetic, OwnedAndBorrowedTextAreDifferentCodes) {
  Value result(77);
  Value::Mul(result, Value(L"2"), Lent(L"3"));
  ExpectDouble(6.0, result);
}

TEST(ValueArithmetic, TheResultMayBeAnOperand) {
  Value value(5);
  Value::Add(value, value, value);
  ExpectInteger(10, value);
  Value::Sub(value, Value(1.5), value);
  ExpectDouble(-8.5, value);
  Value text(L"2.5");
  Value::Mul(text, text, Value(2));
  ExpectDouble(5.0, text);
}

TEST(ValueArithmetic, NegationInPlace) {
  struct {
    Value value;
    Value negated;
  } const cases[] = {
      {Value(5), Value(-5)},         {Value(kMinInt), Value(kMinInt)}, {Value(2.5), Value(-2.5)},
      {Value(0.0), Value(-0.0)},     {Value(true), Value(-1.0)},       {Value(false), Value(-0.0)},
      {Value(L"1.5x"), Value(-1.5)}, {Value(L""), Value(-0.0)},        {Value(), Value(-0.0)},
      {Undefined(), Value(-0.0)},    {Value(kBytes, 2), Value(-0.0)},
  };
  for (auto const& c : cases) {
    Value value(c.value);
    Value::Neg(value);
    if (c.negated.Type() == 3) {
      ExpectInteger(static_cast<__int64>(c.negated), value);
    } else {
      ExpectDouble(static_cast<double>(c.negated), value);
    }
  }
  Value lent = Lent(L"4");
  Value::Neg(lent);
  ExpectDouble(-4.0, lent);
}

TEST(ValueArithmeticDeathTest, DividingIntegersByZeroIsNotGuarded) {
  Value result;
  Value const one(1);
  Value const zero(0);
  EXPECT_DEATH(Value::Div(result, one, zero), "");
}

TEST(ValueArithmeticDeathTest, DividingTheLeastIntegerByMinusOneIsNotGuarded) {
  Value result;
  Value const least(kMinInt);
  Value const minusOne(-1);
  EXPECT_DEATH(Value::Div(result, least, minusOne), "");
}

}  // namespace
}  // namespace fdo
