#include <gtest/gtest.h>

#include <cwchar>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

// From text like "[1,5)": brackets are inclusive, an empty side does not bound.
FdoPtr<FdoPropertyValueConstraintRange> Range(std::wstring const& text) {
  std::size_t const comma = text.find(L',');
  std::wstring const min = text.substr(1, comma - 1);
  std::wstring const max = text.substr(comma + 1, text.size() - comma - 2);
  auto const bound = [](std::wstring const& digits) -> FdoDataValue* {
    return digits.empty() ? nullptr : FdoInt32Value::Create(static_cast<FdoInt32>(std::stoi(digits)));
  };
  FdoPtr<FdoDataValue> minValue = bound(min);
  FdoPtr<FdoDataValue> maxValue = bound(max);
  FdoPtr<FdoPropertyValueConstraintRange> range = FdoPropertyValueConstraintRange::Create(minValue, maxValue);
  range->SetMinInclusive(text.front() == L'[');
  range->SetMaxInclusive(text.back() == L']');
  return range;
}

FdoPtr<FdoPropertyValueConstraintList> List(std::initializer_list<FdoInt32> numbers) {
  FdoPtr<FdoPropertyValueConstraintList> list = FdoPropertyValueConstraintList::Create();
  FdoPtr<FdoDataValueCollection> values = list->GetConstraintList();
  for (FdoInt32 const number : numbers) values->Add(FdoPtr<FdoDataValue>(FdoInt32Value::Create(number)));
  return list;
}

bool Holds(FdoPropertyValueConstraint* outer, FdoPropertyValueConstraint* inner) {
  return outer->Contains(inner);
}

TEST(RangeConstraint, BoundsAreExclusiveUnlessSet) {
  struct Case {
    wchar_t const* range;
    FdoInt32 value;
    bool allowed;
  };
  Case const cases[] = {
      {L"(1,5)", 1, false}, {L"(1,5)", 2, true},  {L"(1,5)", 5, false}, {L"[1,5]", 1, true},
      {L"[1,5]", 5, true},  {L"[1,5]", 0, false}, {L"[1,5]", 6, false}, {L"(,5)", -9, true},
      {L"(1,)", 99, true},  {L"(1,)", 1, false},  {L"(,)", 0, true},
  };
  for (Case const& c : cases) {
    FdoPtr<FdoDataValue> value = FdoInt32Value::Create(c.value);
    EXPECT_EQ(Range(c.range)->Contains(value.p), c.allowed)
        << FdoStringP(c.range).operator char const*() << " " << c.value;
  }
  FdoPtr<FdoPropertyValueConstraintRange> fresh = FdoPropertyValueConstraintRange::Create();
  EXPECT_FALSE(fresh->GetMinInclusive());
  EXPECT_FALSE(fresh->GetMaxInclusive());
}

TEST(RangeConstraint, NumbersCompareWhateverTheirTypes) {
  FdoPtr<FdoDataValue> half = FdoDoubleValue::Create(4.5);
  FdoPtr<FdoDataValue> text = FdoStringValue::Create(L"4");
  EXPECT_TRUE(Range(L"(1,5)")->Contains(half.p));
  EXPECT_FALSE(Range(L"(1,5)")->Contains(text.p));
}

TEST(Constraint, ANullValueIsAlwaysAllowed) {
  FdoPtr<FdoDataValue> null = FdoInt32Value::Create();
  EXPECT_TRUE(Range(L"(1,5)")->Contains(null.p));
  EXPECT_TRUE(List({})->Contains(null.p));
}

TEST(RangeConstraint, HoldsNarrowerRangesAndLists) {
  struct Case {
    wchar_t const* outer;
    wchar_t const* inner;
    bool holds;
  };
  Case const cases[] = {
      {L"(1,5)", L"(1,5)", true}, {L"(1,5)", L"[1,5)", false}, {L"[1,5]", L"(1,5)", true},
      {L"(1,5)", L"[2,4]", true}, {L"(1,5)", L"[2,9]", false}, {L"(1,5)", L"(2,)", false},
      {L"(,)", L"(2,)", true},    {L"(1,)", L"[2,9]", true},   {L"(1,)", L"(,9]", false},
  };
  for (Case const& c : cases) {
    EXPECT_EQ(Holds(Range(c.outer), Range(c.inner)), c.holds)
        << FdoStringP(c.outer).operator char const*() << " " << FdoStringP(c.inner).operator char const*();
  }
  EXPECT_TRUE(Holds(Range(L"(1,5)"), List({2, 3})));
  EXPECT_FALSE(Holds(Range(L"(1,5)"), List({2, 5})));
}

TEST(RangeConstraint, EqualsTheSameBounds) {
  EXPECT_TRUE(Range(L"[1,5)")->Equals(Range(L"[1,5)")));
  EXPECT_FALSE(Range(L"[1,5)")->Equals(Range(L"(1,5)")));
  EXPECT_FALSE(Range(L"[1,5)")->Equals(Range(L"[1,6)")));
  EXPECT_FALSE(Range(L"[1,5)")->Equals(Range(L"[1,)")));
  EXPECT_TRUE(Range(L"[1,)")->Equals(Range(L"[1,]")));
  EXPECT_FALSE(Range(L"[1,5)")->Equals(List({1})));
  EXPECT_FALSE(Range(L"[1,5)")->Equals(nullptr));
}

TEST(ListConstraint, HoldsWhatIsListed) {
  FdoPtr<FdoDataValue> two = FdoInt64Value::Create(FdoInt64{2});
  FdoPtr<FdoDataValue> four = FdoInt32Value::Create(4);
  EXPECT_TRUE(List({1, 2, 3})->Contains(two.p));
  EXPECT_FALSE(List({1, 2, 3})->Contains(four.p));
  EXPECT_TRUE(Holds(List({1, 2, 3}), List({3, 1})));
  EXPECT_FALSE(Holds(List({1, 2, 3}), List({3, 4})));
  EXPECT_FALSE(Holds(List({1, 2, 3}), Range(L"[1,3]")));
  EXPECT_TRUE(List({1, 2})->Equals(List({2, 1})));
  EXPECT_FALSE(List({1, 2})->Equals(List({2, 1, 3})));
}

TEST(Constraint, SharesItsValues) {
  FdoPtr<FdoDataValue> value = FdoInt32Value::Create(1);
  FdoPtr<FdoPropertyValueConstraintRange> range = FdoPropertyValueConstraintRange::Create(value, value);
  EXPECT_EQ(value->GetRefCount(), 3);
  EXPECT_EQ(FdoPtr<FdoDataValue>(range->GetMinValue()).p, value.p);
  range->SetMinValue(nullptr);
  EXPECT_EQ(FdoPtr<FdoDataValue>(range->GetMaxValue()).p, value.p);
  FdoPtr<FdoDataPropertyDefinition> property = FdoDataPropertyDefinition::Create(L"Lanes", nullptr);
  property->SetValueConstraint(range);
  EXPECT_EQ(FdoPtr<FdoPropertyValueConstraint>(property->GetValueConstraint()).p, range.p);
  EXPECT_EQ(range->GetConstraintType(), FdoPropertyValueConstraintType_Range);
  EXPECT_EQ(List({})->GetConstraintType(), FdoPropertyValueConstraintType_List);
  property = nullptr;
  range = nullptr;
  EXPECT_EQ(value->GetRefCount(), 1);
}

}  // namespace
}  // namespace fdo_sdk
