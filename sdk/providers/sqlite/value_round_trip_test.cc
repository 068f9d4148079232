// Every data type, with every value at its edges, comes back as it was given.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "sdk/providers/sqlite/row_commands.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

using fdo_sdk::MessageThrownBy;

// A class with a property of each type, declared as the provider declares them.
class ValueRoundTrip : public testing::Test {
 protected:
  ValueRoundTrip() {
    store_.Run(
        "CREATE TABLE kinds (id INTEGER PRIMARY KEY AUTOINCREMENT, boolean INTEGER_BOOLEAN, byte TINYINT,"
        "  date TIMESTAMP, decimal DECIMAL, double DOUBLE, int16 SMALLINT, int32 INT, int64 BIGINT, single "
        "FLOAT,"
        "  text TEXT, blob BLOB, clob CLOB);"
        "CREATE TABLE fdo_columns (f_table_name TEXT NOT NULL, f_column_name TEXT NOT NULL, f_column_desc "
        "TEXT,"
        "  fdo_data_type INTEGER, fdo_data_length INTEGER, fdo_data_precision INTEGER, fdo_data_scale "
        "INTEGER);"
        "INSERT INTO fdo_columns VALUES ('kinds', 'single', NULL, 8, 0, 0, 0)");
    connection_ = OpenQuickly(store_);
  }

  // Inserts the value alone, and gives a reader on the new row.
  FdoPtr<FdoIFeatureReader> Stored(FdoString* name, FdoValueExpression* value) {
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"kinds");
    Give(insert, name, value);
    FdoPtr<FdoIFeatureReader> inserted = insert->Execute();
    EXPECT_TRUE(inserted->ReadNext());
    std::wstring const filter = L"id = " + std::to_wstring(inserted->GetInt64(L"id"));
    insert = nullptr;
    FdoPtr<FdoIFeatureReader> reader = MakeSelectOf(connection_, L"kinds", filter.c_str())->Execute();
    EXPECT_TRUE(reader->ReadNext());
    return reader;
  }

  std::string StorageClass(std::string const& column) {
    return store_.Rows("SELECT typeof(" + column + ") FROM kinds ORDER BY id DESC LIMIT 1");
  }

  template <class Value, class Number, class Getter>
  void ExpectSame(FdoString* name, Number number, Getter get) {
    FdoPtr<Value> value = Value::Create(number);
    FdoPtr<FdoIFeatureReader> reader = Stored(name, value);
    ASSERT_FALSE(reader->IsNull(name)) << +number;
    EXPECT_EQ((reader.p->*get)(name), number);
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

typedef FdoIReader R;

TEST_F(ValueRoundTrip, Booleans) {
  for (bool const value : {false, true}) {
    ExpectSame<FdoBooleanValue>(L"boolean", value, static_cast<bool (R::*)(FdoString*)>(&R::GetBoolean));
    EXPECT_EQ(StorageClass("boolean"), "integer");
  }
}

TEST_F(ValueRoundTrip, Integers) {
  for (int const value : {0, 1, 127, 128, 255}) {
    ExpectSame<FdoByteValue>(L"byte", static_cast<FdoByte>(value),
                             static_cast<FdoByte (R::*)(FdoString*)>(&R::GetByte));
  }
  for (int const value : {-32768, -1, 0, 32767}) {
    ExpectSame<FdoInt16Value>(L"int16", static_cast<FdoInt16>(value),
                              static_cast<FdoInt16 (R::*)(FdoString*)>(&R::GetInt16));
  }
  for (FdoInt32 const value :
       {std::numeric_limits<FdoInt32>::min(), -1, 0, std::numeric_limits<FdoInt32>::max()}) {
    ExpectSame<FdoInt32Value>(L"int32", value, static_cast<FdoInt32 (R::*)(FdoString*)>(&R::GetInt32));
  }
  for (FdoInt64 const value : {std::numeric_limits<FdoInt64>::min(), FdoInt64{-1}, FdoInt64{0},
                               FdoInt64{9007199254740993}, std::numeric_limits<FdoInt64>::max()}) {
    ExpectSame<FdoInt64Value>(L"int64", value, static_cast<FdoInt64 (R::*)(FdoString*)>(&R::GetInt64));
    EXPECT_EQ(StorageClass("int64"), "integer");
  }
}

TEST_F(ValueRoundTrip, Reals) {
  double const doubles[] = {0.0,
                            0.1,
                            -2.5,
                            1e15,
                            9007199254740993.0,
                            1e300,
                            std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::lowest(),
                            std::numeric_limits<double>::min(),
                            std::numeric_limits<double>::denorm_min(),
                            HUGE_VAL,
                            -HUGE_VAL};
  auto const getDouble = static_cast<double (R::*)(FdoString*)>(&R::GetDouble);
  for (double const value : doubles) {
    ExpectSame<FdoDoubleValue>(L"double", value, getDouble);
    EXPECT_EQ(StorageClass("double"), "real");
    ExpectSame<FdoDecimalValue>(L"decimal", value, getDouble);
  }
  auto const getSingle = static_cast<float (R::*)(FdoString*)>(&R::GetSingle);
  for (float const value : {0.0f, 0.1f, -2.5f, 16777217.0f, std::numeric_limits<float>::max(),
                            std::numeric_limits<float>::lowest(), std::numeric_limits<float>::denorm_min(),
                            std::numeric_limits<float>::infinity()}) {
    ExpectSame<FdoSingleValue>(L"single", value, getSingle);
  }
  constexpr unsigned kSeed = 4;
  std::mt19937_64 random(kSeed);
  for (int i = 0; i < 200; ++i) {
    double const value = std::bit_cast<double>(random());
    if (std::isfinite(value)) ExpectSame<FdoDoubleValue>(L"double", value, getDouble);
  }
}

TEST_F(ValueRoundTrip, WhatIsNotANumberIsRefused) {
  struct {
    FdoString* name;
    FdoPtr<FdoDataValue> value;
  } const claims[] = {{L"double", FdoPtr<FdoDataValue>(FdoDoubleValue::Create(std::nan("")))},
                      {L"decimal", FdoPtr<FdoDataValue>(FdoDecimalValue::Create(std::nan("")))},
                      {L"single", FdoPtr<FdoDataValue>(FdoSingleValue::Create(std::nanf("")))}};
  for (auto const& claim : claims) {
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"kinds");
    Give(insert, claim.name, claim.value.p);
    EXPECT_NE(MessageThrownBy<FdoCommandException>([&] { insert->Execute(); }).find(claim.name),
              std::wstring::npos);
  }
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM kinds"), "0");
}

TEST_F(ValueRoundTrip, Dates) {
  struct {
    FdoDateTime value;
    char const* text;
  } const claims[] = {
      {FdoDateTime(FdoInt16{2024}, FdoInt8{3}, FdoInt8{1}), "2024-03-01"},
      {FdoDateTime(FdoInt8{7}, FdoInt8{5}, 3.0f), "07:05:03"},
      {FdoDateTime(FdoInt16{2024}, FdoInt8{3}, FdoInt8{1}, FdoInt8{14}, FdoInt8{30}, 5.5f),
       "2024-03-01T14:30:05.500"},
      {FdoDateTime(FdoInt16{1}, FdoInt8{1}, FdoInt8{1}, FdoInt8{0}, FdoInt8{0}, 0.1f),
       "0001-01-01T00:00:00.100"},
  };
  for (auto const& claim : claims) {
    FdoPtr<FdoDateTimeValue> value = FdoDateTimeValue::Create(claim.value);
    FdoDateTime const read = Stored(L"date", value)->GetDateTime(L"date");
    EXPECT_EQ(store_.Rows("SELECT date FROM kinds ORDER BY id DESC LIMIT 1"), claim.text);
    EXPECT_EQ(read.year, claim.value.year);
    EXPECT_EQ(read.month, claim.value.month);
    EXPECT_EQ(read.day, claim.value.day);
    EXPECT_EQ(read.hour, claim.value.hour);
    EXPECT_EQ(read.minute, claim.value.minute);
    EXPECT_EQ(read.seconds, claim.value.seconds);
  }
  FdoPtr<FdoDateTimeValue> none = FdoDateTimeValue::Create(FdoDateTime());
  MessageThrownBy<FdoCommandException>([&] { Stored(L"date", none); });
}

TEST_F(ValueRoundTrip, Texts) {
  std::wstring const texts[] = {L"",
                                L"plain",
                                L"it's \"quoted\"",
                                L"\x1",
                                L"caf\xE9 \x4E2D \U0001F600 \U0010FFFF",
                                std::wstring(100000, L'x'),
                                std::wstring(5000, L'\x20AC'),
                                L"NULL",
                                L"12"};
  for (std::wstring const& text : texts) {
    FdoPtr<FdoStringValue> value = FdoStringValue::Create(text.c_str());
    FdoPtr<FdoIFeatureReader> reader = Stored(L"text", value);
    ASSERT_FALSE(reader->IsNull(L"text"));
    EXPECT_EQ(reader->GetString(L"text"), text);
    EXPECT_EQ(StorageClass("text"), "text");
  }
  if (sizeof(wchar_t) == 4) {
    std::wstring const half(1, static_cast<wchar_t>(0xD800));
    FdoPtr<FdoStringValue> value = FdoStringValue::Create(half.c_str());
    MessageThrownBy<FdoCommandException>([&] { Stored(L"text", value); });
  }
}

TEST_F(ValueRoundTrip, LargeObjects) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  struct {
    std::string bytes;
    char const* clobAs;
  } const claims[] = {
      {"", "text"},       {"text", "text"}, {"caf\xC3\xA9", "text"},           {std::string(3, '\0'), "blob"},
      {"a\xFFz", "blob"}, {all, "blob"},    {std::string(300000, 'y'), "text"}};
  for (auto const& claim : claims) {
    for (FdoString* name : {L"blob", L"clob"}) {
      bool const isBlob = name[0] == L'b';
      FdoPtr<FdoByteArray> bytes = FdoByteArray::Create(reinterpret_cast<FdoByte const*>(claim.bytes.data()),
                                                        static_cast<FdoInt32>(claim.bytes.size()));
      FdoPtr<FdoDataValue> value = FdoDataValue::Create(bytes, isBlob ? FdoDataType_BLOB : FdoDataType_CLOB);
      FdoPtr<FdoIFeatureReader> reader = Stored(name, value);
      ASSERT_FALSE(reader->IsNull(name));
      FdoPtr<FdoLOBValue> read = reader->GetLOB(name);
      EXPECT_EQ(read->GetDataType(), isBlob ? FdoDataType_BLOB : FdoDataType_CLOB);
      FdoPtr<FdoByteArray> data = read->GetData();
      ASSERT_EQ(data->GetCount(), bytes->GetCount());
      EXPECT_TRUE(claim.bytes.empty() ||
                  std::memcmp(data->GetData(), claim.bytes.data(), claim.bytes.size()) == 0);
      EXPECT_EQ(StorageClass(isBlob ? "blob" : "clob"), isBlob ? "blob" : claim.clobAs);
      FdoPtr<FdoIStreamReader> stream = reader->GetLOBStreamReader(name);
      EXPECT_EQ(stream->GetType(), FdoStreamReaderType_Byte);
    }
  }
}

TEST_F(ValueRoundTrip, NullsOfEveryType) {
  FdoString* const names[] = {L"boolean", L"byte",  L"date",   L"decimal", L"double", L"int16",
                              L"int32",   L"int64", L"single", L"text",    L"blob",   L"clob"};
  FdoDataType const types[] = {FdoDataType_Boolean, FdoDataType_Byte,   FdoDataType_DateTime,
                               FdoDataType_Decimal, FdoDataType_Double, FdoDataType_Int16,
                               FdoDataType_Int32,   FdoDataType_Int64,  FdoDataType_Single,
                               FdoDataType_String,  FdoDataType_BLOB,   FdoDataType_CLOB};
  for (std::size_t i = 0; i < std::size(names); ++i) {
    FdoPtr<FdoDataValue> null = FdoDataValue::Create(types[i]);
    FdoPtr<FdoIFeatureReader> reader = Stored(names[i], null);
    for (FdoString* name : names) EXPECT_TRUE(reader->IsNull(name)) << i;
  }
}

TEST_F(ValueRoundTrip, OtherTypesAreConvertedWhereNothingIsLost) {
  struct {
    FdoString* name;
    FdoString* value;
    char const* stored;  // null: refused
  } const claims[] = {{L"int64", L"7", "7"},
                      {L"int16", L"7", "7"},
                      {L"byte", L"255", "255"},
                      {L"byte", L"256", nullptr},
                      {L"int16", L"32768", nullptr},
                      {L"int32", L"1.5", nullptr},
                      {L"int32", L"2.0", "2"},
                      {L"double", L"7", "7.0"},
                      {L"boolean", L"1", "1"},
                      {L"boolean", L"2", nullptr},
                      {L"text", L"7", "7"},
                      {L"int32", L"'seven'", nullptr},
                      {L"date", L"TIMESTAMP '2024-03-01 14:30:05'", "2024-03-01T14:30:05"},
                      {L"date", L"7", nullptr},
                      {L"blob", L"7", nullptr},
                      {L"blob", L"GeomFromText('POINT (1 2)')", nullptr}};
  for (auto const& claim : claims) {
    store_.Run("DELETE FROM kinds");
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection_, L"kinds");
    GiveText(insert, claim.name, claim.value);
    std::string const column = fdo_sdk::Utf8FromWide(claim.name);
    if (claim.stored == nullptr) {
      std::wstring const message = MessageThrownBy<FdoCommandException>([&] { insert->Execute(); });
      EXPECT_NE(message.find(L"\"" + std::wstring(claim.name) + L"\""), std::wstring::npos) << column;
      EXPECT_EQ(store_.Rows("SELECT count(*) FROM kinds"), "0");
    } else {
      FdoPtr<FdoIFeatureReader>(insert->Execute());
      insert = nullptr;
      EXPECT_EQ(store_.Rows("SELECT " + column + " FROM kinds"), claim.stored) << column;
    }
  }
}

}  // namespace
}  // namespace fdo_sqlite
