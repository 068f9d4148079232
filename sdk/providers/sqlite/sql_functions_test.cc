#include "sdk/providers/sqlite/sql_functions.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/expression_sql.h"
#include "sdk/providers/sqlite/filter_sql.h"
#include "sdk/providers/sqlite/sample_class.h"
#include "sdk/runtime/core/utf8.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

class SqlFunctionsTest : public testing::Test {
 protected:
  SqlFunctionsTest() {
    EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    EXPECT_EQ(RegisterSqlFunctions(database_), SQLITE_OK);
    Run(SampleTableSql());
  }
  ~SqlFunctionsTest() override { EXPECT_EQ(sqlite3_close(database_), SQLITE_OK); }

  void Run(std::string const& sql) {
    EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_);
  }

  // Of the first row, in SQL's own words: text in single quotes.
  std::string Of(FdoString* expression) {
    FdoPtr<FdoExpression> const tree = FdoExpression::Parse(expression);
    SqlScope scope{class_};
    scope.aggregates = true;
    SqlValue const value = TranslateExpression(*tree, scope);
    std::string const sql = "SELECT quote(" + value.sql.Text() + ") FROM Parts";
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_);
    BindParameters(statement, value.sql.Parameters());
    std::string result = "no row";
    int const code = sqlite3_step(statement);
    if (code == SQLITE_ROW) result = reinterpret_cast<char const*>(sqlite3_column_text(statement, 0));
    if (code != SQLITE_ROW && code != SQLITE_DONE) result = sqlite3_errmsg(database_);
    sqlite3_finalize(statement);
    return result;
  }

  struct Case {
    FdoString* expression;
    char const* result;
  };

  template <std::size_t count>
  void Expect(Case const (&cases)[count]) {
    for (Case const& c : cases) EXPECT_EQ(Of(c.expression), c.result) << fdo_sdk::Utf8FromWide(c.expression);
  }

  sqlite3* database_ = nullptr;
  StoreClass class_ = SampleClass();
};

TEST_F(SqlFunctionsTest, Numbers) {
  Run("INSERT INTO Parts (Id, Whole, Price) VALUES (1, 7, 3)");
  Case const cases[] = {
      {L"Round(2.5)", "3.0"},
      {L"Round(-2.5)", "-2.0"},
      {L"Round(1.25, 1)", "1.3"},
      {L"Round(1250, -2)", "1300.0"},
      {L"Trunc(-1.29)", "-1"},
      {L"Trunc(-1.29, 1)", "-1.2"},
      {L"Trunc(1e30)", "NULL"},
      {L"Floor(-0.5)", "-1.0"},
      {L"Ceil(0.5)", "1.0"},
      {L"Abs(-3)", "3.0"},
      {L"Sign(-0.0)", "0"},
      {L"Sign(-4)", "-1"},
      {L"Sign(0.25)", "1"},
      {L"Remainder(-7, 3)", "2.0"},
      {L"Remainder(7, 0)", "NULL"},
      {L"Mod(-7, 3)", "-1"},
      {L"Mod(7.9, 3)", "1"},
      {L"Mod(7, 0)", "NULL"},
      {L"Mod(-9223372036854775808, -1)", "0"},
      {L"Power(2, 10)", "1024.0"},
      {L"pow(4, 0.5)", "2.0"},
      {L"Sqrt(2.25)", "1.5"},
      {L"Sqrt(-1)", "NULL"},
      {L"Log(1000)", "3.0"},
      {L"Log(2, 8)", "3.0"},
      {L"Ln(1)", "0.0"},
      {L"Exp(0)", "1.0"},
      {L"Sin(0) + Cos(0) + Tan(0)", "1.0"},
      {L"Asin(0) + Acos(1) + Atan(0) + Atan2(0, 1)", "0.0"},
      {L"Abs(Real)", "NULL"},
      // Whole numbers divide to whole numbers, but not those of a column of decimals.
      {L"Whole / 2", "3"},
      {L"-Whole / 2", "-3"},
      {L"Price / 2", "1.5"},
      {L"Whole / 0", "NULL"},
      {L"9223372036854775807 + 1", "9.2233720368547758078e+18"},
  };
  Expect(cases);
  double const random = std::stod(Of(L"Random()"));
  EXPECT_TRUE(random >= 0 && random <= 1) << random;
}

TEST_F(SqlFunctionsTest, Conversions) {
  Run("INSERT INTO Parts (Id, Built) VALUES (1, '2024-03-01 14:30')");
  Case const cases[] = {
      {L"ToDouble('2.5 m')", "2.5"},
      {L"ToDouble('m')", "0.0"},
      {L"ToDouble(3)", "3.0"},
      {L"ToFloat('0.1')", "1.00000001490116119384e-01"},
      {L"ToFloat(0.1)", "0.1"},
      {L"ToInt32(2.9)", "2"},
      {L"ToInt32(-2.9)", "-2"},
      {L"ToInt32(5000000000)", "5000000000"},
      {L"ToInt32(5e9)", "NULL"},
      {L"ToInt64(5e9)", "5000000000"},
      {L"ToInt64('9223372036854775807')", "9223372036854775807"},
      {L"ToInt64(1e30)", "NULL"},
      {L"ToString(5)", "'5'"},
      {L"ToString(0.1)", "'0.1'"},
      {L"ToString(1e20)", "'1e+20'"},
      {L"ToString(TRUE)", "'true'"},
      {L"ToString(Built)", "'2024-03-01T14:30:00'"},
      {L"ToDate('2024-03-01')", "'2024-03-01'"},
      {L"ToDateTime('no date')", "NULL"},
      {L"ToString(Name)", "NULL"},
  };
  Expect(cases);
  EXPECT_EQ(Of(L"CurrentDate()").size(), 12u);
}

TEST_F(SqlFunctionsTest, Texts) {
  // SQLite keeps the decimal as an integer.
  Run("INSERT INTO Parts (Id, Price, Real) VALUES (1, 1e18, 1e18)");
  Case const cases[] = {
      {L"Concat('a', 3, TRUE)", "'a3true'"},
      {L"Concat('a', Name, 'b')", "'ab'"},
      {L"Concat(0.5, DATE '2024-03-01')", "'0.52024-03-01'"},
      {L"Concat(Price, ' ', Real)", "'1e+18 1e+18'"},
      {L"ToString(Price)", "'1e+18'"},
      {L"Concat()", "''"},
      {L"'a' + 'b' || 'c'", "'abc'"},
      {L"'a' + Name", "NULL"},
      {L"Upper('aä')", "'AÄ'"},
      {L"Lower('AB')", "'ab'"},
      {L"Length('äö')", "2"},
      {L"Instr('abc', 'c')", "3"},
      {L"Substr('aäbc', 2, 2)", "'äb'"},
      {L"Substr('abc', 0)", "'abc'"},
      {L"Substr('abc', -2)", "'bc'"},
      {L"Substr('abc', -5)", "''"},
      {L"Substr('abc', 4)", "''"},
      {L"Trim(' a ')", "'a'"},
      {L"Concat(Ltrim(' a '), '|', Rtrim(' a '), '|')", "'a | a|'"},
  };
  for (Case const& c : cases) {
    // Letters beyond ASCII change case as the locale of the program has it.
    if (std::string(c.result) == "'AÄ'" && FdoStringP(L"ä").Upper() != L"Ä") continue;
    EXPECT_EQ(Of(c.expression), c.result) << fdo_sdk::Utf8FromWide(c.expression);
  }
}

TEST_F(SqlFunctionsTest, Choices) {
  Run("INSERT INTO Parts (Id, Flag, Whole) VALUES (1, 1, 7)");
  Case const cases[] = {
      {L"If(Flag, 'yes', 'no')", "'yes'"},
      {L"If(0, 'yes', 'no')", "'no'"},
      {L"If('TRUE', 1, 2)", "1"},
      {L"If('yes', 1, 2)", "2"},
      {L"If(Name, 1, 2)", "2"},
      {L"If(NULL, 1, NULL)", "NULL"},
      {L"Lookup(2, 'none', 1, 'one', 2, 'two')", "'two'"},
      {L"Lookup(5, 'none', 1, 'one')", "'none'"},
      {L"Lookup(1, 'none', 2, 'two', 1)", "'none'"},
      {L"Lookup('b', 0, 'B', 1, 'b', 2)", "2"},
      {L"Lookup(Name, 0, 'b', 2)", "0"},
      {L"Lookup(Whole, 'none')", "'none'"},
      {L"NullValue(Name, 'x')", "'x'"},
      {L"NullValue(Whole, 0)", "7"},
  };
  Expect(cases);
}

TEST_F(SqlFunctionsTest, OrdinatesOfPoints) {
  // Point XYM 1 2 3, and a line.
  Run("INSERT INTO Parts (Id, Shape) VALUES (1, x'0100000002000000000000000000f03f"
      "00000000000000400000000000000840')");
  Case const cases[] = {
      {L"X(Shape)", "1.0"},
      {L"Y(Shape)", "2.0"},
      {L"Z(Shape)", "0.0"},
      {L"M(Shape)", "3.0"},
      {L"Z('POINT (1 2 5)')", "5.0"},
      {L"X(Outline)", "NULL"},
      {L"X('LINESTRING (1 2, 3 4)')", "NULL"},
      {L"X('no geometry')", "NULL"},
  };
  Expect(cases);
}

TEST_F(SqlFunctionsTest, AllRows) {
  Case const withoutRows[] = {
      {L"Count()", "0"},          {L"Count(Whole)", "0"},
      {L"Count(Shape)", "0"},     {L"Sum(Whole)", "NULL"},
      {L"Avg(Whole)", "NULL"},    {L"Median(Whole)", "NULL"},
      {L"Min(Whole)", "NULL"},    {L"Max(Name)", "NULL"},
      {L"Stddev(Whole)", "NULL"}, {L"SpatialExtents(Shape)", "NULL"},
  };
  Expect(withoutRows);
  Run("INSERT INTO Parts (Id, Whole, Real, Name, Built) VALUES (1, 1, 1e100, 'b', '2024-03-01T10:00:00'),"
      "(2, 2, 1, 'B', '2024-03-01 11:00'), (3, NULL, -1e100, NULL, NULL), (4, 4, NULL, 'a', '2024-03-01'),"
      "(5, 9, NULL, '', NULL)");
  Case const withRows[] = {
      {L"Count()", "5"},
      {L"Count(Whole)", "4"},
      {L"Count(\"Name\")", "4"},
      {L"Sum(Whole)", "16.0"},
      {L"Sum(Real)", "1.0"},
      {L"Avg(Whole)", "4.0"},
      {L"Median(Whole)", "3.0"},
      {L"Median(Whole + Id)", "6.0"},
      {L"Stddev(Whole)", "3.55902608401043663022e+00"},
      {L"Min(Whole)", "1"},
      {L"Max(Whole) + 1", "10"},
      {L"Min(Name)", "''"},
      {L"Max(Name)", "'b'"},
      {L"Max(Built)", "'2024-03-01T11:00:00'"},
      {L"Min(Built)", "'2024-03-01'"},
      {L"Sum(If(Whole, 1, 0))", "4.0"},
  };
  Expect(withRows);
}

// Readers take the corners from the first and the third position of the polygon.
TEST_F(SqlFunctionsTest, TheExtentsAreAPolygonFromTheLeastCorner) {
  Run("INSERT INTO Parts (Id, Shape) VALUES"
      "(1, x'0100000000000000000000000000f03f0000000000000040'),"  // 1 2
      "(2, x'01000000000000000000000000001040000000000000f0bf'),"  // 4 -1
      "(3, NULL), (4, x'00'), (5, x''), (6, 'POINT (100 100)')");  // what is no FGF
  EXPECT_EQ(Of(L"Count(Shape)"), "2");
  std::string const quoted = Of(L"SpatialExtents(Shape)");
  ASSERT_EQ(quoted.size(), 3 + 2 * 96u) << quoted;
  std::vector<unsigned char> bytes;
  for (std::size_t i = 2; i + 1 < quoted.size(); i += 2) {
    bytes.push_back(static_cast<unsigned char>(std::stoi(quoted.substr(i, 2), nullptr, 16)));
  }
  EXPECT_EQ(quoted.substr(2, 32), "03000000000000000100000005000000");
  struct Corner {
    std::size_t offset;
    double value;
  };
  for (Corner const& corner : {Corner{16, 1}, Corner{24, -1}, Corner{48, 4}, Corner{56, 2}}) {
    double value = 0;
    std::memcpy(&value, bytes.data() + corner.offset, sizeof value);
    EXPECT_EQ(value, corner.value) << corner.offset;
  }
}

TEST_F(SqlFunctionsTest, ValuesOfAllRowsDoNotMixWithThoseOfOne) {
  FdoPtr<FdoExpression> const mixed = FdoExpression::Parse(L"Sum(Whole) + Big");
  FdoPtr<FdoExpression> const nested = FdoExpression::Parse(L"Sum(Max(Whole))");
  SqlScope scope{class_};
  scope.aggregates = true;
  EXPECT_EQ(fdo_sdk::MessageThrownBy<FdoCommandException>([&] { TranslateExpression(*mixed, scope); }),
            L"An expression cannot join a value of all rows with the value of one.");
  EXPECT_EQ(fdo_sdk::MessageThrownBy<FdoCommandException>([&] { TranslateExpression(*nested, scope); }),
            L"The function \"Sum\" summarises rows and cannot be given another such function.");
}

TEST_F(SqlFunctionsTest, KindsAndTypesAreKnownBeforeAnyRow) {
  struct TypeCase {
    FdoString* expression;
    FdoDataType type;
  };
  TypeCase const cases[] = {
      {L"Whole", FdoDataType_Int32},
      {L"Whole + 1", FdoDataType_Int64},
      {L"Whole + 1.5", FdoDataType_Double},
      {L"Name + 'x'", FdoDataType_String},
      {L"Built", FdoDataType_DateTime},
      {L"Flag", FdoDataType_Boolean},
      {L"-Flag", FdoDataType_Int64},
      {L"Count()", FdoDataType_Int64},
      {L"Min(Built)", FdoDataType_DateTime},
      {L"Max(Half)", FdoDataType_Single},
      {L"Avg(Whole)", FdoDataType_Double},
      {L"If(Flag, Whole, Big)", FdoDataType_Int64},
      {L"If(Flag, 1, 2.5)", FdoDataType_Double},
      {L"NullValue(Name, 'x')", FdoDataType_String},
  };
  SqlScope scope{class_};
  scope.aggregates = true;
  for (TypeCase const& c : cases) {
    FdoPtr<FdoExpression> const tree = FdoExpression::Parse(c.expression);
    EXPECT_EQ(TranslateExpression(*tree, scope).type, c.type) << fdo_sdk::Utf8FromWide(c.expression);
  }
}

// A failure inside a function ends the statement with its message.
TEST_F(SqlFunctionsTest, AFailureInAFunctionIsTheMessageOfTheStatement) {
  Run("INSERT INTO Parts (Id) VALUES (1)");
  EXPECT_EQ(sqlite3_exec(database_, "SELECT fdo_within(Shape, 1) FROM Parts", nullptr, nullptr, nullptr),
            SQLITE_ERROR);
  EXPECT_STREQ(sqlite3_errmsg(database_), "A spatial function needs the geometry of a condition.");
}

// Text in a column of numbers, and numbers in one of texts, as other programs leave them.
TEST_F(SqlFunctionsTest, ComparedAsThePropertysType) {
  Run("INSERT INTO Parts (Id, Name, Whole, Flag) VALUES (1, '5', 5, 1), (2, '5.0', 6, 2), (3, '05', 7, 0),"
      "(4, 'five', 8, NULL), (5, 'FIVE', 9, NULL)");
  auto const count = [&](FdoString* text) {
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text);
    SqlFragment const where = TranslateFilter(filter, SqlScope{class_}).Where();
    std::string const sql = "SELECT count(*) FROM Parts WHERE " + where.Text();
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK);
    BindParameters(statement, where.Parameters());
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    int const rows = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    return rows;
  };
  EXPECT_EQ(count(L"Name = 5"), 3);
  EXPECT_EQ(count(L"Name <> 5"), 0) << "a text that is no number is neither 5 nor not 5";
  EXPECT_EQ(count(L"Name = '5'"), 1);
  EXPECT_EQ(count(L"Name = 'five'"), 1);
  EXPECT_EQ(count(L"Whole = '5'"), 1);
  EXPECT_EQ(count(L"Flag = TRUE"), 2);
  EXPECT_EQ(count(L"NOT Flag = TRUE"), 1);
  EXPECT_EQ(count(L"Name LIKE 'f%'"), 1);
}

}  // namespace
}  // namespace fdo_sqlite
