// The order over values of all kinds.
#include <fdo/value.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <string>
#include <vector>

namespace fdo {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
unsigned char const kBytes[] = {9, 9, 9};

// A value of each kind, under the letter that the tables use for it.
struct Sample {
  char const* name;
  Value owned;
  Value borrowed;  // the same text or bytes, lent; for other kinds a second value
};

std::vector<Sample> const& Samples() {
  static std::vector<Sample> const samples = [] {
    std::vector<Sample> made(7);
    Value const values[] = {Value(),    Value(),     Value(true),     Value(10),
                            Value(2.5), Value(L"9"), Value(kBytes, 3)};
    char const* const names[] = {"undefined", "null", "true", "10", "2.5", "\"9\"", "bytes"};
    for (std::size_t i = 0; i < made.size(); ++i) made[i] = {names[i], values[i], values[i]};
    made[0].owned.Invalidate();
    made[0].borrowed.Invalidate();
    made[5].borrowed.Reset(L"9", false);
    made[6].borrowed.Reset(kBytes, 3, false);
    return made;
  }();
  return samples;
}

// Rows are the left side, columns the right: undefined, null, true, 10, 2.5, "9", bytes.
constexpr char const* kLess[] = {
    ".......",  // undefined is less than nothing
    "T.TTTTT",  // null sorts first, below even undefined
    "...TT.T",  // true is 1; its text begins with a unit far above "9"
    ".....TT",  // 10 < "9": compared as text
    "...T.TT",  // 2.5 < "9"
    "..T...T",  // "9" is below the text of true
    ".......",  // bytes are above all but undefined and null
};

TEST(ValueOrder, EveryPairOfKinds) {
  auto const& samples = Samples();
  for (std::size_t row = 0; row < samples.size(); ++row) {
    for (std::size_t column = 0; column < samples.size(); ++column) {
      bool const less = kLess[row][column] == 'T';
      bool const greater = kLess[column][row] == 'T';
      for (Value const* left : {&samples[row].owned, &samples[row].borrowed}) {
        for (Value const* right : {&samples[column].owned, &samples[column].borrowed}) {
          SCOPED_TRACE(std::string(samples[row].name) + " and " + samples[column].name + ", codes " +
                       std::to_string(left->Type()) + " and " + std::to_string(right->Type()));
          EXPECT_EQ(less, *left < *right);
          EXPECT_EQ(greater, *left > *right);
          EXPECT_EQ(!greater, *left <= *right);
          EXPECT_EQ(!less, *left >= *right);
          EXPECT_EQ(!less && !greater, *left == *right);
          EXPECT_EQ(less || greater, *left != *right);
          if (row != column) {
            EXPECT_EQ(less, left->DuckTypeLess(*right));
          }
        }
      }
    }
  }
}

TEST(ValueOrder, NullIsBelowAFlag) { EXPECT_TRUE(Value() < Value(false)); }

TEST(ValueOrder, NumbersAndFlags) {
  struct {
    Value left, right;
    bool less, greater;
  } const cases[] = {
      {Value(false), Value(true), true, false},
      {Value(true), Value(2), true, false},
      {Value(true), Value(1), false, false},
      {Value(false), Value(0.5), true, false},
      {Value(0.5), Value(true), true, false},
      {Value(1), Value(1.0), false, false},
      {Value(1), Value(1.5), true, false},
      {Value(-1), Value(1), true, false},
      {Value(9223372036854775807LL), Value(9223372036854775808.0), false, false},
      // A NaN is above every integer and flag, and even with every double.
      {Value(5), Value(kNaN), true, false},
      {Value(true), Value(kNaN), true, false},
      {Value(5.0), Value(kNaN), false, false},
      {Value(kNaN), Value(kNaN), false, false},
  };
  for (auto const& c : cases) {
    EXPECT_EQ(c.less, c.left < c.right) << static_cast<double>(c.left) << " " << static_cast<double>(c.right);
    EXPECT_EQ(c.greater, c.right < c.left)
        << static_cast<double>(c.left) << " " << static_cast<double>(c.right);
    EXPECT_EQ(!c.less && !c.greater, c.left == c.right);
  }
}

TEST(ValueOrder, TextUnitByUnit) {
  wchar_t const* const ascending[] = {L"", L"A", L"Aa", L"B", L"a", L"aB", L"ab", L"\xE9", L"\xFFFD"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      EXPECT_EQ(i < j, Value(ascending[i]) < Value(ascending[j])) << i << " " << j;
      EXPECT_EQ(i == j, Value(ascending[i]) == Value(ascending[j])) << i << " " << j;
    }
  }
}

TEST(ValueOrder, BytesByLengthFirst) {
  unsigned char const low[] = {0, 0, 0};
  unsigned char const high[] = {255, 255};
  EXPECT_TRUE(Value(high, 2) < Value(low, 3));
  EXPECT_FALSE(Value(low, 3) < Value(high, 2));
  EXPECT_TRUE(Value(low, 2) < Value(high, 2));
  EXPECT_TRUE(Value(high, 2) == Value(high, 2));
  EXPECT_TRUE(Value(low, 0) == Value(high, 0));
}

TEST(ValueOrder, ANumberEqualsItsText) {
  EXPECT_TRUE(Value(1) == Value(1.0));
  EXPECT_TRUE(Value(1) == Value(L"1"));
  EXPECT_TRUE(Value(0.1) == Value(L"0.1"));
  EXPECT_FALSE(Value(1) == Value(L"01"));
  EXPECT_FALSE(Value(true) == Value(L"true")) << "a flag's text is not the readable word";
}

TEST(ValueOrder, UndefinedEqualsAllButNull) {
  Value undefined;
  undefined.Invalidate();
  for (Value const& value : {Value(1), Value(2.5), Value(true), Value(L"x"), Value(kBytes, 3)}) {
    EXPECT_TRUE(undefined == value);
  }
  EXPECT_FALSE(undefined == Value());
  EXPECT_TRUE(Value() == Value());
}

TEST(ValueOrder, SetsKeepOneOfEachEqual) {
  std::set<Value> values;
  for (Value const& value : {Value(1), Value(1.0), Value(L"1"), Value(), Value(), Value(2)})
    values.insert(value);
  EXPECT_EQ(3u, values.size());
}

}  // namespace
}  // namespace fdo
