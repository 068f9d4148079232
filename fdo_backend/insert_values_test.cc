#include "fdo_backend/insert_values.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/schema_builder.h"

namespace fdo::internal {
namespace {

constexpr wchar_t kEveryType[] =
    L"shape:Geometry flag:Boolean byte:Byte at:DateTime cost:Decimal x:Double a:Int16 b:Int32 c:Int64 "
    L"s:Single name:String blob:Blob clob:Clob";
constexpr int kEveryTypeCount = 13;

// The properties of an insert command, filled from rows of a definition.
class InsertValuesTest : public ::testing::Test {
 protected:
  void Make(std::wstring_view columns) {
    def_ = MakeTableDef(L"Land", L"parcels", columns);
    properties_ = FdoPropertyValueCollection::Create();
    values_.emplace(def_, *properties_);
  }
  FdoPtr<FdoValueExpression> ValueAt(int i) {
    FdoPtr<FdoPropertyValue> const property = properties_->GetItem(static_cast<FdoInt32>(i));
    return FdoPtr<FdoValueExpression>(property->GetValue());
  }
  // As expression text.
  std::wstring TextAt(int i) { return ValueAt(i)->ToString(); }

  TableDef def_;
  FdoPtr<FdoPropertyValueCollection> properties_;
  std::optional<InsertValues> values_;
};

TEST_F(InsertValuesTest, EachColumnHasAnEmptyValueOfItsType) {
  Make(kEveryType);
  ASSERT_EQ(properties_->GetCount(), kEveryTypeCount);
  for (int i = 0; i < kEveryTypeCount; ++i) {
    FdoPtr<FdoPropertyValue> const property = properties_->GetItem(static_cast<FdoInt32>(i));
    EXPECT_EQ(FdoPtr<FdoIdentifier>(property->GetName())->GetText(), std::wstring(def_[i].Name()));
    EXPECT_EQ(property.p, values_->PropertyAt(i));
    FdoPtr<FdoValueExpression> const value = property->GetValue();
    if (i == 0) {
      auto* const geometry = dynamic_cast<FdoGeometryValue*>(value.p);
      ASSERT_NE(geometry, nullptr);
      EXPECT_TRUE(geometry->IsNull());
    } else {
      auto* const data = dynamic_cast<FdoDataValue*>(value.p);
      ASSERT_NE(data, nullptr) << i;
      EXPECT_EQ(static_cast<int>(data->GetDataType()), static_cast<int>(def_[i].Type()));
      EXPECT_TRUE(data->IsNull()) << i;
    }
  }
}

TEST_F(InsertValuesTest, ACellIsTakenAsItsColumnsType) {
  Make(kEveryType);
  Row row(&def_);
  unsigned char const bytes[] = {0x61, 0x62, 0x63};
  row[1].Reset(L"TRUE", /*copy=*/true);
  row[2].Reset(200);
  row[3].Reset(L"2024-03-01T14:30:05.5", /*copy=*/true);
  row[4].Reset(L"2.5", /*copy=*/true);
  row[5].Reset(7);
  row[6].Reset(-32768);
  row[7].Reset(L"42x", /*copy=*/true);
  row[8].Reset(static_cast<__int64>(1) << 40);
  row[9].Reset(0.5);
  row[10].Reset(12);
  row[11].Reset(bytes, 3, /*copy=*/true);
  row[12].Reset(bytes, 2, /*copy=*/true);
  row[0].Reset(bytes, 1, /*copy=*/true);
  values_->FillFrom(row, /*leaveOutId=*/false);

  wchar_t const* const expected[] = {
      nullptr, L"TRUE", L"200",    L"TIMESTAMP '2024-03-01 14:30:05.5'",
      L"2.5",  L"7",    L"-32768", L"42",
      nullptr, L"0.5",  L"'12'",   nullptr,
      nullptr,
  };
  for (int i = 0; i < kEveryTypeCount; ++i) {
    if (expected[i] == nullptr) continue;
    FdoPtr<FdoValueExpression> const value = ValueAt(i);
    std::wstring text = value->ToString();
    if (text.size() > 2 && text.substr(text.size() - 2) == L".0") text.resize(text.size() - 2);
    EXPECT_EQ(text, expected[i]) << i;
  }
  EXPECT_EQ(TextAt(8), L"1099511627776");
  auto const bytesAt = [&](int i) {
    FdoPtr<FdoValueExpression> const value = ValueAt(i);
    auto* const geometry = dynamic_cast<FdoGeometryValue*>(value.p);
    FdoPtr<FdoByteArray> const array =
        geometry != nullptr ? geometry->GetGeometry() : dynamic_cast<FdoLOBValue&>(*value.p).GetData();
    return std::string(array->GetData(), array->GetData() + array->GetCount());
  };
  EXPECT_EQ(bytesAt(0), "a");
  EXPECT_EQ(bytesAt(11), "abc");
  EXPECT_EQ(bytesAt(12), "ab");
}

TEST_F(InsertValuesTest, NumbersThatDoNotFitKeepTheirLowBits) {
  Make(L"byte:Byte a:Int16 b:Int32");
  Row row(&def_);
  for (int i = 0; i < 3; ++i) row[i].Reset(static_cast<__int64>(0x100010007));
  values_->FillFrom(row, /*leaveOutId=*/false);
  EXPECT_EQ(TextAt(0), L"7");
  EXPECT_EQ(TextAt(1), L"7");
  EXPECT_EQ(TextAt(2), L"65543");
}

TEST_F(InsertValuesTest, ADateTimeKeepsTheFieldsOfItsText) {
  struct Case {
    wchar_t const* text;
    int year, month, day, hour, minute;
    float seconds;
  };
  Case const cases[] = {
      {L"2024-03-01T14:30:05.5", 2024, 3, 1, 14, 30, 5.5f},
      {L"2024-03-01 14:30", 2024, 3, 1, 14, 30, 0.0f},
      {L"2024-03-01", 2024, 3, 1, -1, -1, 0.0f},
      {L"07:05:03.5", -1, -1, -1, 7, 5, 3.5f},
  };
  Make(L"at:DateTime");
  Row row(&def_);
  for (Case const& test : cases) {
    row[0].Reset(test.text, /*copy=*/false);
    values_->FillFrom(row, /*leaveOutId=*/false);
    FdoPtr<FdoValueExpression> const value = ValueAt(0);
    FdoDateTime const at = static_cast<FdoDateTimeValue*>(value.p)->GetDateTime();
    EXPECT_EQ(at.year, test.year);
    EXPECT_EQ(at.month, test.month);
    EXPECT_EQ(at.day, test.day);
    EXPECT_EQ(at.hour, test.hour);
    EXPECT_EQ(at.minute, test.minute);
    EXPECT_EQ(at.seconds, test.seconds);
  }
}

TEST_F(InsertValuesTest, ATextThatIsNoDateTimeBecomesNull) {
  Make(L"at:DateTime");
  Row row(&def_);
  row[0].Reset(L"2024-03-01", /*copy=*/false);
  for (wchar_t const* const text : {L"14:30", L"", L"soon", L"TIMESTAMP '2024-03-01 14:30:05'"}) {
    row[0].Reset(L"2024-03-01", /*copy=*/false);
    values_->FillFrom(row, /*leaveOutId=*/false);
    EXPECT_NE(TextAt(0), L"NULL");
    row[0].Reset(text, /*copy=*/false);
    values_->FillFrom(row, /*leaveOutId=*/false);
    EXPECT_EQ(TextAt(0), L"NULL");
  }
}

TEST_F(InsertValuesTest, NullAndUndefinedCellsLeaveWhatIsThere) {
  Make(L"n:Int32 name:String");
  Row row(&def_);
  row[0].Reset(5);
  row[1].Reset(L"five", /*copy=*/true);
  values_->FillFrom(row, /*leaveOutId=*/false);
  row[0].Reset();
  row[1].Invalidate();
  values_->FillFrom(row, /*leaveOutId=*/false);
  EXPECT_EQ(TextAt(0), L"5");
  EXPECT_EQ(TextAt(1), L"'five'");
  values_->SetAllNull();
  EXPECT_EQ(TextAt(0), L"NULL");
  EXPECT_EQ(TextAt(1), L"NULL");
}

TEST_F(InsertValuesTest, WithoutBytesAColumnOfBytesIsLeftAsItIs) {
  Make(L"shape:Geometry blob:Blob clob:Clob");
  Row row(&def_);
  unsigned char const byte = 9;
  for (int i = 0; i < 3; ++i) row[i].Reset(&byte, 1, /*copy=*/true);
  values_->FillFrom(row, /*leaveOutId=*/false);
  for (int i = 0; i < 3; ++i) row[i].Reset(L"no bytes", /*copy=*/true);
  values_->FillFrom(row, /*leaveOutId=*/false);
  FdoPtr<FdoValueExpression> const geometry = ValueAt(0);
  FdoPtr<FdoByteArray> const shape = static_cast<FdoGeometryValue*>(geometry.p)->GetGeometry();
  ASSERT_NE(shape, nullptr);
  EXPECT_EQ(shape->GetCount(), 1);
  for (int i = 1; i < 3; ++i) {
    FdoPtr<FdoValueExpression> const object = ValueAt(i);
    FdoPtr<FdoByteArray> const data = static_cast<FdoLOBValue*>(object.p)->GetData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->GetCount(), 1);
  }
  values_->SetAllNull();
  EXPECT_TRUE(static_cast<FdoGeometryValue*>(geometry.p)->IsNull());
}

TEST_F(InsertValuesTest, TheBytesOfARowServeTheNextUnlessSomebodyHoldsThem) {
  Make(L"shape:Geometry");
  FdoPtr<FdoValueExpression> const value = ValueAt(0);
  auto& geometry = static_cast<FdoGeometryValue&>(*value.p);
  Row row(&def_);
  auto const fill = [&](std::string const& bytes) {
    values_->SetAllNull();
    row[0].Reset(bytes.data(), static_cast<int>(bytes.size()), /*copy=*/true);
    values_->FillFrom(row, /*leaveOutId=*/false);
  };
  auto const text = [](FdoByteArray& array) {
    return std::string(array.GetData(), array.GetData() + array.GetCount());
  };
  fill("first");
  FdoByteArray const* const array = FdoPtr<FdoByteArray>(geometry.GetGeometry()).p;
  fill("2nd");
  FdoPtr<FdoByteArray> const held = geometry.GetGeometry();
  EXPECT_EQ(held.p, array);
  EXPECT_EQ(text(*held), "2nd");
  fill("third");
  EXPECT_EQ(text(*held), "2nd");
  EXPECT_EQ(text(*FdoPtr<FdoByteArray>(geometry.GetGeometry())), "third");
  // Longer than all before, and too long to be kept.
  std::string const longest(100'000, 'l');
  fill(longest);
  EXPECT_EQ(text(*FdoPtr<FdoByteArray>(geometry.GetGeometry())), longest);
  values_->SetAllNull();
  EXPECT_TRUE(geometry.IsNull());
  fill("last");
  EXPECT_EQ(text(*FdoPtr<FdoByteArray>(geometry.GetGeometry())), "last");
}

TEST_F(InsertValuesTest, TheIdentityIsLeftOutOnRequest) {
  Make(L"id:Int32 n:Int32");
  Row row(&def_);
  row[0].Reset(7);
  row[1].Reset(8);
  values_->FillFrom(row, /*leaveOutId=*/false);
  EXPECT_EQ(TextAt(0), L"7");
  values_->FillFrom(row, /*leaveOutId=*/true);
  EXPECT_EQ(TextAt(0), L"NULL");
  EXPECT_EQ(TextAt(1), L"8");
}

TEST_F(InsertValuesTest, AColumnOfNoTypeHasAPropertyWithoutAValue) {
  Make(L"other:Unset n:Int32");
  Row row(&def_);
  row[0].Reset(1);
  row[1].Reset(2);
  values_->FillFrom(row, /*leaveOutId=*/false);
  values_->SetAllNull();
  EXPECT_EQ(properties_->GetCount(), 2);
  EXPECT_EQ(ValueAt(0), nullptr);
}

}  // namespace
}  // namespace fdo::internal
