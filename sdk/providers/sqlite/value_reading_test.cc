#include "sdk/providers/sqlite/value_reading.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <sstream>
#include <string>

namespace fdo_sqlite {
namespace {

// The values that SQL expressions have, in a file of one text encoding.
class ValueReading : public testing::Test {
 protected:
  ValueReading() { Open("UTF-8"); }
  ~ValueReading() override { Close(); }

  void Open(std::string const& encoding) {
    ASSERT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    ASSERT_EQ(
        sqlite3_exec(database_, ("PRAGMA encoding = '" + encoding + "'").c_str(), nullptr, nullptr, nullptr),
        SQLITE_OK);
  }
  void Close() {
    sqlite3_finalize(statement_);
    sqlite3_close(database_);
    statement_ = nullptr;
  }

  // Borrowed: until the next call.
  sqlite3_value* Value(std::string const& expression) {
    sqlite3_finalize(statement_);
    EXPECT_EQ(sqlite3_prepare_v2(database_, ("SELECT " + expression).c_str(), -1, &statement_, nullptr),
              SQLITE_OK);
    EXPECT_EQ(sqlite3_step(statement_), SQLITE_ROW);
    return sqlite3_column_value(statement_, 0);
  }

  // The result, or "-" where the type cannot hold the value.
  template <class Result, class Reader>
  std::string Shown(char const* expression, Reader read) {
    Result result = Result(77);
    std::ostringstream out;
    out.precision(17);
    if (read(Value(expression), result)) {
      out << +result;
    } else {
      out << (result == Result(77) ? "-" : "touched");
    }
    return out.str();
  }

  sqlite3* database_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
};

TEST_F(ValueReading, IntegersOfEveryStorageClass) {
  struct {
    char const* expression;
    char const* asInt64;
    char const* asInt32;
    char const* asInt16;
    char const* asByte;
  } const claims[] = {
      {"0", "0", "0", "0", "0"},
      {"255", "255", "255", "255", "255"},
      {"256", "256", "256", "256", "-"},
      {"-1", "-1", "-1", "-1", "-"},
      {"-32768", "-32768", "-32768", "-32768", "-"},
      {"32768", "32768", "32768", "-", "-"},
      {"2147483648", "2147483648", "-", "-", "-"},
      {"-2147483648", "-2147483648", "-2147483648", "-", "-"},
      {"9223372036854775807", "9223372036854775807", "-", "-", "-"},
      {"-9223372036854775807 - 1", "-9223372036854775808", "-", "-", "-"},
      {"9.0", "9", "9", "9", "9"},
      {"9.5", "-", "-", "-", "-"},
      {"1e19", "-", "-", "-", "-"},
      {"-9223372036854775808.0", "-9223372036854775808", "-", "-", "-"},
      {"9e999", "-", "-", "-", "-"},
      {"'12'", "12", "12", "12", "12"},
      {"' +12 '", "12", "12", "12", "12"},
      {"'1.2e1'", "12", "12", "12", "12"},
      {"'9223372036854775807'", "9223372036854775807", "-", "-", "-"},
      {"'12x'", "-", "-", "-", "-"},
      {"'+-1'", "-", "-", "-", "-"},
      {"'inf'", "-", "-", "-", "-"},
      {"'0x10'", "-", "-", "-", "-"},
      {"''", "-", "-", "-", "-"},
      {"x'3132'", "12", "12", "12", "12"},
      {"x'00'", "-", "-", "-", "-"},
      {"x''", "-", "-", "-", "-"},
  };
  for (auto const& claim : claims) {
    EXPECT_EQ(Shown<std::int64_t>(claim.expression, ReadIntegerAs<std::int64_t>), claim.asInt64)
        << claim.expression;
    EXPECT_EQ(Shown<std::int32_t>(claim.expression, ReadIntegerAs<std::int32_t>), claim.asInt32)
        << claim.expression;
    EXPECT_EQ(Shown<std::int16_t>(claim.expression, ReadIntegerAs<std::int16_t>), claim.asInt16)
        << claim.expression;
    EXPECT_EQ(Shown<std::uint8_t>(claim.expression, ReadIntegerAs<std::uint8_t>), claim.asByte)
        << claim.expression;
  }
}

TEST_F(ValueReading, RealsOfEveryStorageClass) {
  struct {
    char const* expression;
    char const* asDouble;
    char const* asSingle;
  } const claims[] = {
      {"0.1", "0.10000000000000001", "0.10000000149011612"},
      {"3", "3", "3"},
      {"9e999", "inf", "inf"},
      {"-9e999", "-inf", "-inf"},
      {"1e300", "1.0000000000000001e+300", "-"},
      {"3.4028234663852886e38", "3.4028234663852886e+38", "3.4028234663852886e+38"},
      {"3.4028235677973366e38", "3.4028235677973366e+38", "-"},
      {"1e-300", "1.0000000000000000e-300", "0"},
      {"'2.5'", "2.5", "2.5"},
      {"'nan'", "-", "-"},
      {"'infinity'", "-", "-"},
      {"'two'", "-", "-"},
  };
  for (auto const& claim : claims) {
    std::string const asDouble = Shown<double>(claim.expression, ReadReal);
    EXPECT_TRUE(asDouble == claim.asDouble || std::stod(asDouble) == std::stod(claim.asDouble))
        << claim.expression;
    EXPECT_EQ(Shown<float>(claim.expression, ReadSingle), claim.asSingle) << claim.expression;
  }
}

TEST_F(ValueReading, Booleans) {
  struct {
    char const* expression;
    int value;  // -1: cannot be read
  } const claims[] = {{"0", 0},   {"1", 1},      {"-5", 1},       {"0.0", 0},     {"0.5", 1},    {"'1'", 1},
                      {"'0'", 0}, {"'true'", 1}, {"' TRUE '", 1}, {"'False'", 0}, {"'yes'", -1}, {"''", -1}};
  for (auto const& claim : claims) {
    bool result = false;
    bool const isRead = ReadBoolean(Value(claim.expression), result);
    EXPECT_EQ(isRead ? int{result} : -1, claim.value) << claim.expression;
  }
}

TEST_F(ValueReading, DatesAreTextsOrWhatSqliteTakesNumbersFor) {
  FdoDateTime value;
  ASSERT_TRUE(ReadDateTime(Value("'2024-03-01 14:30'"), value));
  EXPECT_EQ(value.minute, 30);
  ASSERT_TRUE(ReadDateTime(Value("CAST(strftime('%s', '2024-03-01') AS INTEGER)"), value));
  EXPECT_EQ(value.year, 2024);
  EXPECT_EQ(value.hour, 0);
  ASSERT_TRUE(ReadDateTime(Value("julianday('2023-02-28 06:00')"), value));
  EXPECT_EQ(value.year, 2023);
  EXPECT_EQ(value.hour, 6);
  EXPECT_FALSE(ReadDateTime(Value("'soon'"), value));
}

TEST_F(ValueReading, TextOfEveryStorageClass) {
  for (char const* encoding : {"UTF-8", "UTF-16le", "UTF-16be"}) {
    Close();
    Open(encoding);
    struct {
      char const* expression;
      char const* text;
    } const claims[] = {{"'plain'", "plain"},
                        {"''", ""},
                        {"-12", "-12"},
                        {"2.5", "2.5"},
                        {"0.1 + 0.2", "0.30000000000000004"},
                        {"1e300", "1e+300"},
                        {"x'6162'", "ab"},
                        {"char(0x1F600)", "\xF0\x9F\x98\x80"}};
    for (auto const& claim : claims) {
      char number[kNumberTextSize];
      EXPECT_EQ(TextOf(Value(claim.expression), number), claim.text) << claim.expression << " " << encoding;
    }
    EXPECT_EQ(BytesOf(Value("'a' || char(0) || 'b'")), std::string_view("a\0b", 3)) << encoding;
  }
  EXPECT_EQ(BytesOf(Value("x'000100'")), std::string_view("\0\1\0", 3));
  EXPECT_EQ(BytesOf(Value("x''")).size(), 0u);
  EXPECT_EQ(BytesOf(Value("17")), "17");
}

}  // namespace
}  // namespace fdo_sqlite
