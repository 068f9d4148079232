// How a value is made, asked, copied and changed.
#include <fdo/value.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "values/value_test_peer.h"

namespace fdo {
namespace {

constexpr __int64 kMaxInt = std::numeric_limits<__int64>::max();
constexpr __int64 kMinInt = std::numeric_limits<__int64>::min();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

unsigned char const kBytes[] = {1, 2, 0, 255};

wchar_t const* TextOf(Value const& value) { return value; }
__int64 IntegerOf(Value const& value) { return value; }
double DoubleOf(Value const& value) { return value; }

Value Undefined() {
  Value value;
  value.Invalidate();
  return value;
}

TEST(ValueMaking, EachConstructorGivesItsKind) {
  EXPECT_EQ(1, Value().Type());
  EXPECT_EQ(2, Value(true).Type());
  EXPECT_EQ(3, Value(-1).Type());
  EXPECT_EQ(3, Value(1L).Type());
  EXPECT_EQ(3, Value(1LL).Type());
  EXPECT_EQ(3, Value(kMaxInt).Type());
  EXPECT_EQ(4, Value(1.0).Type());
  EXPECT_EQ(4, Value(1.0f).Type());
  EXPECT_EQ(5, Value(L"abc").Type());
  EXPECT_EQ(6, Value(kBytes, 4).Type());
  EXPECT_EQ(-1, IntegerOf(Value(-1))) << "an int is sign-extended";
}

TEST(ValueMaking, NullPointersGiveNull) {
  EXPECT_TRUE(Value(static_cast<wchar_t const*>(nullptr)).IsNull());
  Value const blob(static_cast<void const*>(nullptr), 10);
  EXPECT_TRUE(blob.IsNull());
  EXPECT_EQ(0, blob.BlobLen());
  for (bool copy : {true, false}) {
    Value value(5);
    value.Reset(static_cast<wchar_t const*>(nullptr), copy);
    EXPECT_TRUE(value.IsNull());
    value.Reset(static_cast<void const*>(nullptr), 10, copy);
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(0, value.BlobLen());
  }
}

TEST(ValueMaking, ResetGivesEachKind) {
  Value value(L"old");
  value.Reset(7);
  EXPECT_EQ(3, value.Type());
  value.Reset(7L);
  EXPECT_EQ(3, value.Type());
  value.Reset(true);
  EXPECT_EQ(2, value.Type());
  value.Reset(0.1f);
  EXPECT_EQ(4, value.Type());
  EXPECT_EQ(static_cast<double>(0.1f), DoubleOf(value)) << "a float is widened exactly";
  value.Reset(L"copied", true);
  EXPECT_EQ(5, value.Type());
  value.Reset(L"lent", false);
  EXPECT_EQ(13, value.Type());
  value.Reset(kBytes, 4, true);
  EXPECT_EQ(6, value.Type());
  EXPECT_EQ(4, value.BlobLen());
  value.Reset(kBytes, 4, false);
  EXPECT_EQ(14, value.Type());
  EXPECT_EQ(4, value.BlobLen());
  value.Reset();
  EXPECT_EQ(1, value.Type());
  EXPECT_EQ(0, value.BlobLen());
  value.Invalidate();
  EXPECT_EQ(0, value.Type());
  EXPECT_FALSE(value.IsValid());
}

// A pointer or text of another width would quietly become a flag.
TEST(ValueMaking, OtherPointersDoNotCompile) {
  static_assert(std::is_constructible_v<Value, wchar_t const*>);
  static_assert(std::is_constructible_v<Value, wchar_t*>);
  static_assert(!std::is_constructible_v<Value, char const*>);
  static_assert(!std::is_constructible_v<Value, char16_t const*>);
  static_assert(!std::is_constructible_v<Value, void*>);
  static_assert(!std::is_constructible_v<Value, Value*>);
  static_assert(!std::is_assignable_v<Value&, char const*>);
  static_assert(!std::is_constructible_v<Value, unsigned long>, "which number would it be?");
  static_assert(std::is_nothrow_move_constructible_v<Value> && std::is_nothrow_move_assignable_v<Value>);
  static_assert(std::is_standard_layout_v<Value>);
}

TEST(ValueOwnership, TextIsCopiedOrBorrowed) {
  wchar_t text[] = L"abc";
  Value const owned(text);
  Value borrowed;
  borrowed.Reset(text, false);
  EXPECT_NE(text, TextOf(owned));
  EXPECT_EQ(text, TextOf(borrowed));
  EXPECT_TRUE(owned == borrowed);
  text[0] = L'x';
  EXPECT_STREQ(L"abc", TextOf(owned));
  EXPECT_STREQ(L"xbc", TextOf(borrowed));
}

TEST(ValueOwnership, BytesAreCopiedOrBorrowed) {
  Value const owned(kBytes, sizeof(kBytes));
  ASSERT_NE(nullptr, owned.AsBlob());
  EXPECT_NE(kBytes, owned.AsBlob());
  EXPECT_EQ(0, std::memcmp(kBytes, owned.AsBlob(), sizeof(kBytes)));
  Value borrowed;
  borrowed.Reset(kBytes, sizeof(kBytes), false);
  EXPECT_EQ(kBytes, borrowed.AsBlob());
}

TEST(ValueOwnership, OwnedBytesOfNoLengthHaveAnAddress) {
  Value const empty(kBytes, 0);
  EXPECT_EQ(6, empty.Type());
  EXPECT_NE(nullptr, empty.AsBlob());
  EXPECT_EQ(0, empty.BlobLen());
  EXPECT_TRUE(empty < Value(kBytes, 1));
}

// The length fills the half of the word that would be the top of a cached text's address.
TEST(ValueOwnership, BorrowedBytesOfGreatLengthAreNotFreed) {
  for (int length : {1, 16, INT_MAX, -1}) {
    Value value;
    value.Reset(kBytes, length, false);
    EXPECT_EQ(length, value.BlobLen());
    value.Reset(1);
    EXPECT_EQ(3, value.Type());
    value.Reset(kBytes, length, false);
    value.Invalidate();
    EXPECT_EQ(0, value.Type());
  }
}

TEST(ValueOwnership, CopiesOwnWhatTheySee) {
  std::wstring const text(L"lent");
  Value borrowed;
  borrowed.Reset(text.c_str(), false);
  Value const copy(borrowed);
  EXPECT_EQ(5, copy.Type());
  EXPECT_NE(text.c_str(), TextOf(copy));

  borrowed.Reset(kBytes, 4, false);
  Value assigned(L"old");
  assigned = borrowed;
  EXPECT_EQ(6, assigned.Type());
  EXPECT_NE(kBytes, assigned.AsBlob());
  EXPECT_TRUE(assigned == borrowed);

  EXPECT_EQ(0, Value(Undefined()).Type());
  assigned.CopyFrom(Undefined());
  EXPECT_EQ(0, assigned.Type());
}

TEST(ValueOwnership, AssigningToItselfChangesNothing) {
  Value value(L"abc");
  Value const& same = value;
  wchar_t const* const text = value;
  value = same;
  EXPECT_EQ(text, TextOf(value));
  value.CopyFrom(same);
  EXPECT_STREQ(L"abc", TextOf(value));
}

TEST(ValueOwnership, CopyOfAViewOfItselfIsWhole) {
  Value value(L"abc");
  Value view;
  view.Reset(static_cast<wchar_t const*>(value), false);
  value = view;
  EXPECT_EQ(5, value.Type());
  EXPECT_STREQ(L"abc", TextOf(value));
}

TEST(ValueOwnership, MovingTakesAndLeavesNull) {
  Value source(L"abc");
  wchar_t const* const text = source;
  Value target(std::move(source));
  EXPECT_EQ(text, TextOf(target));
  EXPECT_TRUE(source.IsNull());

  Value number(5);
  wchar_t const* const cached = number;
  target = std::move(number);
  EXPECT_EQ(cached, TextOf(target)) << "the cached text moves, too";
  EXPECT_TRUE(number.IsNull());
}

TEST(ValueOwnership, ShallowCopyBorrows) {
  struct {
    Value source;
    int type;
  } const cases[] = {{Undefined(), 0}, {Value(), 1},      {Value(true), 2},      {Value(7), 3},
                     {Value(2.5), 4},  {Value(L"t"), 13}, {Value(kBytes, 4), 14}};
  for (auto const& c : cases) {
    Value view(L"old");
    ValueTestPeer::ShallowCopy(view, c.source);
    EXPECT_EQ(c.type, view.Type());
    EXPECT_EQ(c.source.AsBlob(), view.AsBlob());
    EXPECT_EQ(c.source.BlobLen(), view.BlobLen());
    if (c.type == 13) {
      EXPECT_EQ(TextOf(c.source), TextOf(view));
    }
    if (c.type == 3) {
      EXPECT_EQ(7, IntegerOf(view));
    }
    EXPECT_TRUE(ValueTestPeer::IsConsistent(view));
  }
}

TEST(ValueOwnership, ShallowCopyLeavesACachedTextBehind) {
  Value const number(5);
  wchar_t const* const text = number;
  Value view;
  ValueTestPeer::ShallowCopy(view, number);
  EXPECT_EQ(0, view.BlobLen());
  EXPECT_NE(text, TextOf(view));
}

struct Conversion {
  char const* what;
  Value value;
  bool flag;
  __int64 integer;
  double number;
};

TEST(ValueConversions, EveryKind) {
  Value borrowed;
  borrowed.Reset(L"-3.75", false);
  Conversion const cases[] = {
      {"undefined", Undefined(), false, 0, 0.0},
      {"null", Value(), false, 0, 0.0},
      {"true", Value(true), true, 1, 1.0},
      {"false", Value(false), false, 0, 0.0},
      {"integer", Value(-9), true, -9, -9.0},
      {"zero", Value(0), false, 0, 0.0},
      {"largest", Value(kMaxInt), true, kMaxInt, 9223372036854775807.0},
      {"double", Value(-2.7), false, -2, -2.7},
      {"text", Value(L"42x"), false, 42, 42.0},
      {"borrowed text", borrowed, false, -3, -3.75},
      {"bytes", Value(kBytes, 4), false, 0, 0.0},
  };
  for (Conversion const& c : cases) {
    EXPECT_EQ(c.flag, c.value.AsBool()) << c.what;
    EXPECT_EQ(c.flag, static_cast<bool>(c.value)) << c.what;
    EXPECT_EQ(c.integer, IntegerOf(c.value)) << c.what;
    EXPECT_EQ(c.number, DoubleOf(c.value)) << c.what;
  }
}

TEST(ValueToBool, DoubleIsNeverTrue) {
  for (double number : {1.0, 2.5, -1.0, kInfinity, kNaN}) EXPECT_FALSE(Value(number).AsBool()) << number;
}

TEST(ValueToBool, OnlyTheWordTrueIsTrue) {
  for (wchar_t const* text : {L"true", L"TRUE", L"tRuE"}) EXPECT_TRUE(Value(text).AsBool());
  for (wchar_t const* text : {L"yes", L"", L"1", L"true ", L" true", L"tru", L"truer", L"\x0442rue"}) {
    EXPECT_FALSE(Value(text).AsBool());
  }
}

TEST(ValueToInteger, DoublesAreTruncatedOrTheLeast) {
  struct {
    double number;
    __int64 integer;
  } const cases[] = {{2.7, 2},
                     {-2.7, -2},
                     {-0.0, 0},
                     {9223372036854774784.0, 9223372036854774784},
                     {9223372036854775808.0, kMinInt},
                     {-9223372036854775808.0, kMinInt},
                     {1e300, kMinInt},
                     {-kInfinity, kMinInt},
                     {kNaN, kMinInt}};
  for (auto const& c : cases) EXPECT_EQ(c.integer, IntegerOf(Value(c.number))) << c.number;
}

TEST(ValueText, NumbersAreWrittenAsInC) {
  struct {
    Value value;
    wchar_t const* text;
  } const cases[] = {
      {Value(-5), L"-5"},
      {Value(0), L"0"},
      {Value(kMaxInt), L"9223372036854775807"},
      {Value(kMinInt), L"-9223372036854775808"},
      {Value(0.1), L"0.1"},
      {Value(1e20), L"1e+20"},
      {Value(1e15), L"1000000000000000"},
      {Value(1e16), L"1e+16"},
      {Value(1.0 / 3.0), L"0.3333333333333333"},
      {Value(-0.0), L"-0"},
      {Value(0.0001), L"0.0001"},
      {Value(0.00001), L"1e-05"},
      {Value(1.7976931348623157e308), L"1.797693134862316e+308"},
      {Value(5e-324), L"4.940656458412465e-324"},
      {Value(kInfinity), L"inf"},
      {Value(-kInfinity), L"-inf"},
      {Value(kNaN), L"nan"},
  };
  for (auto const& c : cases) EXPECT_STREQ(c.text, TextOf(c.value));
}

// "true" is t r u e in eight bits each: read sixteen at a time these are 0x7274 and 0x6575.
TEST(ValueText, FlagIsItsNarrowWordReadPairwise) {
  wchar_t const trueText[] = {0x7274, 0x6575, 0};
  wchar_t const falseText[] = {0x6166, 0x736C, 0x65, 0};
  EXPECT_STREQ(trueText, TextOf(Value(true)));
  EXPECT_STREQ(falseText, TextOf(Value(false)));
}

TEST(ValueText, OtherKindsHaveNone) {
  EXPECT_EQ(nullptr, TextOf(Value()));
  EXPECT_EQ(nullptr, TextOf(Undefined()));
  EXPECT_EQ(nullptr, TextOf(Value(kBytes, 4)));
}

TEST(ValueTextCache, SameAddressUntilChanged) {
  Value value(12);
  wchar_t const* const text = value;
  EXPECT_EQ(text, TextOf(value));
  EXPECT_EQ(0u, reinterpret_cast<std::uintptr_t>(text) % 16);
  EXPECT_EQ(3, value.Type()) << "the kind shares a word with the address";
  EXPECT_EQ(12, IntegerOf(value));
  value.Reset(13);
  EXPECT_STREQ(L"13", TextOf(value));
  Value::Neg(value);
  EXPECT_STREQ(L"-13", TextOf(value));
  Value::Add(value, value, Value(1));
  EXPECT_STREQ(L"-12", TextOf(value));
}

TEST(ValueTextCache, CopiesMakeTheirOwn) {
  Value const number(2.5);
  wchar_t const* const text = number;
  Value const copy(number);
  EXPECT_EQ(0, copy.BlobLen());
  EXPECT_NE(text, TextOf(copy));
  EXPECT_STREQ(text, TextOf(copy));
}

TEST(ValueTextCache, BlobLenIsHalfTheCacheAddress) {
  for (Value const& value : {Value(12), Value(true), Value(2.5)}) {
    EXPECT_EQ(0, value.BlobLen());
    auto const address = reinterpret_cast<std::uintptr_t>(TextOf(value));
    EXPECT_EQ(static_cast<int>(static_cast<std::uint32_t>(address >> 32)), value.BlobLen());
    EXPECT_EQ(nullptr, value.AsBlob());
  }
}

TEST(ValueTextCache, ComparingWithTextFillsIt) {
  Value const number(12);
  EXPECT_TRUE(number == Value(L"12"));
  EXPECT_TRUE(ValueTestPeer::IsConsistent(number));
  EXPECT_STREQ(L"12", ValueTestPeer::CachedText(number));
}

}  // namespace
}  // namespace fdo
