// The value classes: null, reading and setting, conversion, comparison.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/core/thrown.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Values, BeginNullAndEndNull) {
  FdoPtr<FdoInt32Value> value = FdoInt32Value::Create();
  EXPECT_TRUE(value->IsNull());
  value->SetInt32(5);
  EXPECT_FALSE(value->IsNull());
  EXPECT_EQ(FdoInt32{*value}, 5);
  value->SetNull();
  EXPECT_TRUE(value->IsNull());

  FdoPtr<FdoStringValue> text = FdoStringValue::Create(L"abc");
  EXPECT_STREQ(text->GetString(), L"abc");
  text->SetString(text->GetString() + 1);
  EXPECT_STREQ(static_cast<wchar_t*>(*text), L"bc");
  text->SetNull();
  EXPECT_TRUE(text->IsNull());
  EXPECT_EQ(text->GetString(), nullptr);
  text->SetString(nullptr);
  EXPECT_TRUE(text->IsNull());
}

TEST(Values, ATextIsSetAgainWhateverWasThere) {
  FdoPtr<FdoStringValue> text = FdoStringValue::Create();
  std::wstring const longText(3000, L'x');
  for (std::wstring const& next : {std::wstring(L"four"), std::wstring(), std::wstring(L"one"),
                                   std::wstring(L"longer than before"), longText, std::wstring(L"end")}) {
    text->SetString(next.c_str());
    EXPECT_EQ(text->GetString(), next);
    EXPECT_FALSE(text->IsNull());
    text->SetNull();
    EXPECT_EQ(text->GetString(), nullptr);
    EXPECT_EQ(static_cast<wchar_t*>(*text), nullptr);
    EXPECT_STREQ(text->ToString(), L"NULL");
  }
}

TEST(Values, BytesAreSharedAndCounted) {
  FdoByte const bytes[] = {1, 2};
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes, 2);
  {
    FdoPtr<FdoBLOBValue> blob = FdoBLOBValue::Create(array);
    EXPECT_EQ(array.p->GetRefCount(), 2);
    FdoPtr<FdoByteArray> data = blob->GetData();
    EXPECT_EQ(data.p, array.p);
    FdoPtr<FdoByteArray> same = static_cast<FdoByteArray*>(*blob);
    EXPECT_EQ(array.p->GetRefCount(), 4);
    blob->SetData(array);
    EXPECT_EQ(array.p->GetRefCount(), 4);
    blob->SetNull();
    EXPECT_TRUE(blob->IsNull());
    FdoPtr<FdoGeometryValue> geometry = FdoGeometryValue::Create(array);
    EXPECT_FALSE(geometry->IsNull());
    geometry->SetNullValue();
    EXPECT_TRUE(geometry->IsNull());
    EXPECT_EQ(geometry->GetGeometry(), nullptr);
  }
  EXPECT_EQ(array.p->GetRefCount(), 1);
}

TEST(Values, EveryTypeIsMadeByNumberAndKnowsIt) {
  for (int type = FdoDataType_Boolean; type <= FdoDataType_CLOB; ++type) {
    FdoPtr<FdoDataValue> value = FdoDataValue::Create(static_cast<FdoDataType>(type));
    EXPECT_EQ(value->GetDataType(), type);
    EXPECT_EQ(value->GetLiteralValueType(), FdoLiteralValueType_Data);
    EXPECT_EQ(value->GetExpressionType(), FdoExpressionItemType_DataValue);
  }
  EXPECT_TRUE(
      (fdo_sdk::Throws<FdoExpressionException>([&] { FdoDataValue::Create(1.0, FdoDataType_Int32); })));
  EXPECT_TRUE((fdo_sdk::Throws<FdoExpressionException>(
      [&] { FdoDataValue::Create(static_cast<FdoByteArray*>(nullptr), FdoDataType_String); })));
}

FdoPtr<FdoDataValue> Value(wchar_t const* text) {
  return static_cast<FdoDataValue*>(FdoExpression::Parse(text));
}

constexpr unsigned kShift = 1, kTruncate = 2;

// The text of the value that the source becomes; "refused" when it is incompatible.
std::string Converted(FdoDataType type, FdoDataValue* source, unsigned rules) {
  bool const shift = (rules & kShift) != 0;
  bool const truncate = (rules & kTruncate) != 0;
  FdoPtr<FdoDataValue> soft = FdoDataValue::Create(type, source, true, shift, truncate);
  EXPECT_EQ(soft->GetDataType(), type);
  try {
    FdoPtr<FdoDataValue> value = FdoDataValue::Create(type, source, false, shift, truncate);
    std::string const text = static_cast<char const*>(FdoStringP(value->ToString()));
    EXPECT_EQ(text, static_cast<char const*>(FdoStringP(soft->ToString())));
    return text;
  } catch (FdoExpressionException* caught) {
    FdoPtr<FdoException> failure(caught);
    EXPECT_TRUE(soft->IsNull());
    return "refused";
  }
}

TEST(ValueConversion, ByTypeWithShiftAndTruncate) {
  struct Row {
    wchar_t const* source;
    FdoDataType type;
    char const* plain;      // neither allowed
    char const* shifted;    // shift only, the default
    char const* truncated;  // both
  };
  constexpr Row kRows[] = {
      {L"3.5", FdoDataType_Int32, "refused", "4", "4"},
      {L"-3.5", FdoDataType_Int32, "refused", "-4", "-4"},
      {L"3.0", FdoDataType_Int32, "3", "3", "3"},
      {L"300", FdoDataType_Byte, "refused", "refused", "255"},
      {L"-1", FdoDataType_Byte, "refused", "refused", "0"},
      {L"40000", FdoDataType_Int16, "refused", "refused", "32767"},
      {L"-40000.25", FdoDataType_Int16, "refused", "refused", "-32768"},
      {L"3000000000", FdoDataType_Int32, "refused", "refused", "2147483647"},
      {L"1e30", FdoDataType_Int64, "refused", "refused", "9223372036854775807"},
      {L"-1e30", FdoDataType_Int32, "refused", "refused", "-2147483648"},
      {L"9223372036854775807", FdoDataType_Int64, "9223372036854775807", "9223372036854775807",
       "9223372036854775807"},
      {L"1", FdoDataType_Boolean, "TRUE", "TRUE", "TRUE"},
      {L"0.0", FdoDataType_Boolean, "FALSE", "FALSE", "FALSE"},
      {L"7", FdoDataType_Boolean, "refused", "refused", "TRUE"},
      {L"TRUE", FdoDataType_Int32, "1", "1", "1"},
      {L"FALSE", FdoDataType_Double, "0.0", "0.0", "0.0"},
      {L"TRUE", FdoDataType_String, "'TRUE'", "'TRUE'", "'TRUE'"},
      {L"5", FdoDataType_Double, "5.0", "5.0", "5.0"},
      {L"5", FdoDataType_Decimal, "5.0", "5.0", "5.0"},
      {L"1e300", FdoDataType_Single, "refused", "refused", "3.4028235e+38"},
      {L"0.1", FdoDataType_Single, "0.1", "0.1", "0.1"},
      {L"2.5", FdoDataType_String, "'2.5'", "'2.5'", "'2.5'"},
      {L"' 12 '", FdoDataType_Int32, "12", "12", "12"},
      {L"'-2.5'", FdoDataType_Int32, "refused", "-3", "-3"},
      {L"'true'", FdoDataType_Boolean, "TRUE", "TRUE", "TRUE"},
      {L"'abc'", FdoDataType_Int32, "refused", "refused", "refused"},
      {L"'1 + 1'", FdoDataType_Int32, "refused", "refused", "refused"},
      {L"'NULL'", FdoDataType_Int32, "NULL", "NULL", "NULL"},
      {L"'abc'", FdoDataType_String, "'abc'", "'abc'", "'abc'"},
      {L"DATE '2024-01-02'", FdoDataType_String, "'DATE ''2024-01-02'''", "'DATE ''2024-01-02'''",
       "'DATE ''2024-01-02'''"},
      {L"'TIME ''10:20:30.5'''", FdoDataType_DateTime, "TIME '10:20:30.5'", "TIME '10:20:30.5'",
       "TIME '10:20:30.5'"},
      {L"DATE '2024-01-02'", FdoDataType_Int32, "refused", "refused", "refused"},
      {L"5", FdoDataType_DateTime, "refused", "refused", "refused"},
      {L"BLOB '01'", FdoDataType_BLOB, "BLOB '01'", "BLOB '01'", "BLOB '01'"},
      {L"BLOB '01'", FdoDataType_CLOB, "refused", "refused", "refused"},
      {L"BLOB '01'", FdoDataType_String, "refused", "refused", "refused"},
      {L"5", FdoDataType_BLOB, "refused", "refused", "refused"},
      {L"NULL", FdoDataType_DateTime, "NULL", "NULL", "NULL"},
  };
  for (Row const& row : kRows) {
    SCOPED_TRACE(static_cast<char const*>(FdoStringP(row.source)));
    FdoPtr<FdoDataValue> source = Value(row.source);
    EXPECT_EQ(Converted(row.type, source, 0), row.plain);
    EXPECT_EQ(Converted(row.type, source, kShift), row.shifted);
    EXPECT_EQ(Converted(row.type, source, kShift | kTruncate), row.truncated);
    EXPECT_EQ(source.p->GetRefCount(), 1);
  }
}

TEST(ValueConversion, NumbersThatAreNotFinite) {
  FdoPtr<FdoDataValue> nan = FdoDoubleValue::Create(kNan);
  FdoPtr<FdoDataValue> infinite = FdoDoubleValue::Create(kInfinity);
  EXPECT_EQ(Converted(FdoDataType_Int32, nan, kShift | kTruncate), "refused");
  EXPECT_EQ(Converted(FdoDataType_Int32, infinite, kShift), "refused");
  EXPECT_EQ(Converted(FdoDataType_Int32, infinite, kShift | kTruncate), "2147483647");
  FdoPtr<FdoSingleValue> single = FdoSingleValue::Create(infinite.p);
  EXPECT_TRUE(std::isinf(single->GetSingle()));
}

TEST(ValueConversion, EachClassConvertsAndTakesNoSourceAsNull) {
  FdoPtr<FdoDataValue> source = Value(L"7");
  FdoPtr<FdoInt16Value> narrow = FdoInt16Value::Create(source.p);
  EXPECT_EQ(narrow->GetInt16(), 7);
  FdoPtr<FdoStringValue> text = FdoStringValue::Create(source.p);
  EXPECT_STREQ(text->GetString(), L"7");
  FdoPtr<FdoDateTimeValue> none = FdoDateTimeValue::Create(0);
  EXPECT_TRUE(none->IsNull());
  FdoPtr<FdoDataValue> read = FdoDataValue::Create(L"2.5", FdoDataType_Decimal);
  EXPECT_EQ(static_cast<FdoDecimalValue*>(read.p)->GetDecimal(), 2.5);
}

// Makes the protected comparison callable.
class Comparable : public FdoInt32Value {
 public:
  static FdoCompareType Of(FdoDataValue* left, FdoDataValue* right) {
    return (left->*static_cast<FdoCompareType (FdoDataValue::*)(FdoDataValue*)>(&Comparable::Compare))(right);
  }
};

TEST(ValueComparison, ByKind) {
  struct Row {
    wchar_t const* left;
    wchar_t const* right;
    FdoCompareType order;
  };
  constexpr Row kRows[] = {
      {L"1", L"2", FdoCompareType_Less},
      {L"2.5", L"2", FdoCompareType_Greater},
      {L"2", L"2.0", FdoCompareType_Equal},
      {L"9007199254740993", L"9007199254740992.0", FdoCompareType_Greater},
      {L"-9223372036854775808", L"-1e19", FdoCompareType_Greater},
      {L"TRUE", L"1", FdoCompareType_Equal},
      {L"'a'", L"'b'", FdoCompareType_Less},
      {L"'a'", L"'A'", FdoCompareType_Greater},
      {L"'1'", L"1", FdoCompareType_Undefined},
      {L"NULL", L"NULL", FdoCompareType_Undefined},
      {L"1", L"NULL", FdoCompareType_Undefined},
      {L"DATE '2024-01-02'", L"DATE '2024-01-03'", FdoCompareType_Less},
      {L"DATE '2024-01-02'", L"DATE '2024-01-02'", FdoCompareType_Equal},
      {L"DATE '2024-01-02'", L"TIMESTAMP '2024-01-02 10:00:00'", FdoCompareType_PartlyEqual},
      {L"DATE '2024-01-03'", L"TIMESTAMP '2024-01-02 10:00:00'", FdoCompareType_Greater},
      {L"TIME '10:00:00.5'", L"TIME '10:00:00'", FdoCompareType_Greater},
      {L"TIME '10:00:00'", L"DATE '2024-01-02'", FdoCompareType_Undefined},
      {L"BLOB '01'", L"BLOB '01'", FdoCompareType_Equal},
      {L"BLOB '01'", L"BLOB '02'", FdoCompareType_Undefined},
  };
  for (Row const& row : kRows) {
    SCOPED_TRACE(static_cast<char const*>(FdoStringP(row.left) + L" and " + row.right));
    FdoPtr<FdoDataValue> left = Value(row.left);
    FdoPtr<FdoDataValue> right = Value(row.right);
    EXPECT_EQ(Comparable::Of(left, right), row.order);
    FdoCompareType const opposite = row.order == FdoCompareType_Less      ? FdoCompareType_Greater
                                    : row.order == FdoCompareType_Greater ? FdoCompareType_Less
                                                                          : row.order;
    EXPECT_EQ(Comparable::Of(right, left), opposite);
  }
  FdoPtr<FdoDataValue> nan = FdoDoubleValue::Create(kNan);
  EXPECT_EQ(Comparable::Of(nan, nan), FdoCompareType_Undefined);
}

TEST(Identifiers, ScopesAreTakenApart) {
  struct Row {
    wchar_t const* text;
    char const* schema;
    char const* scope;  // joined by |
    char const* name;
  };
  constexpr Row kRows[] = {
      {L"", "", "", ""},
      {L"City", "", "", "City"},
      {L"Address.City", "", "Address", "City"},
      {L"Roads:Street", "Roads", "", "Street"},
      {L"Roads:Street.Address.City", "Roads", "Street|Address", "City"},
      {L"two words", "", "", "two words"},
      {L"\"a.b\".c", "", "a.b", "c"},
      {L"\"a\"\"b\"", "", "", "a\"b"},
      {L"\"open", "", "", "\"open"},
      {L"a.", "", "a", ""},
  };
  for (Row const& row : kRows) {
    SCOPED_TRACE(static_cast<char const*>(FdoStringP(row.text)));
    FdoPtr<FdoIdentifier> identifier = FdoIdentifier::Create(row.text);
    FdoInt32 length = -1;
    FdoString** scope = identifier->GetScope(length);
    FdoStringP joined;
    for (FdoInt32 i = 0; i < length; ++i) joined = joined + (i > 0 ? L"|" : L"") + scope[i];
    EXPECT_STREQ(identifier->GetText(), row.text);
    EXPECT_STREQ(static_cast<char const*>(FdoStringP(identifier->GetSchemaName())), row.schema);
    EXPECT_STREQ(static_cast<char const*>(joined), row.scope);
    EXPECT_STREQ(static_cast<char const*>(FdoStringP(identifier->GetName())), row.name);
  }
}

TEST(Identifiers, CollectionRefusesTheSameTextTwice) {
  FdoPtr<FdoIdentifierCollection> list = FdoIdentifierCollection::Create();
  FdoPtr<FdoIdentifier> home = FdoIdentifier::Create(L"Home.City");
  FdoPtr<FdoIdentifier> work = FdoIdentifier::Create(L"Work.City");
  FdoPtr<FdoIdentifier> again = FdoIdentifier::Create(L"Home.City");
  list->Add(home);
  list->Add(work);
  EXPECT_TRUE((fdo_sdk::Throws<FdoCommandException>([&] { list->Add(again); })));
  EXPECT_TRUE((fdo_sdk::Throws<FdoCommandException>([&] { list->SetItem(1, again); })));
  EXPECT_EQ(list->IndexOf(L"Work.City"), 1);
  EXPECT_EQ(list->FindItem(L"City"), nullptr);
  EXPECT_TRUE((fdo_sdk::Throws<FdoCommandException>([&] { list->GetItem(L"City"); })));
  EXPECT_TRUE(list->Contains(home));
  EXPECT_FALSE(list->Contains(again));
}

TEST(Functions, ArgumentsAreALiveCollection) {
  FdoPtr<FdoFunction> function = FdoFunction::Create(L"f", nullptr, 0);
  FdoPtr<FdoExpressionCollection> arguments = function->GetArguments();
  FdoPtr<FdoExpression> one = FdoInt32Value::Create(1);
  arguments->Add(one);
  EXPECT_STREQ(function->ToString(), L"f(1)");
  FdoPtr<FdoFunction> copy = FdoFunction::Create(L"g", arguments.p);
  arguments->Clear();
  EXPECT_STREQ(copy->ToString(), L"g(1)");
}

TEST(Joins, AreFoundByAliasOrClass) {
  FdoPtr<FdoIdentifier> roads = FdoIdentifier::Create(L"s:roads");
  FdoPtr<FdoJoinCriteria> plain = FdoJoinCriteria::Create(roads, FdoJoinType_Inner);
  FdoPtr<FdoJoinCriteria> named = FdoJoinCriteria::Create(L"r", roads, FdoJoinType_Cross);
  FdoPtr<FdoJoinCriteriaCollection> joins = FdoJoinCriteriaCollection::Create();
  joins->Add(plain);
  joins->Add(named);
  EXPECT_FALSE(plain->HasAlias());
  FdoPtr<FdoJoinCriteria> found = joins->GetItem(L"r");
  EXPECT_EQ(found.p, named.p);
  found = joins->FindItem(L"s:roads");
  EXPECT_EQ(found.p, plain.p);
  EXPECT_TRUE((fdo_sdk::Throws<FdoCommandException>([&] { joins->Add(plain); })));
  EXPECT_TRUE((fdo_sdk::Throws<FdoCommandException>([&] { joins->GetItem(L"x"); })));
}

}  // namespace
