// Values that meet as in a SQL store.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "expr/text_reading.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr ExprOptions kAsInSql = ExprOptions::AsInSql();

TEST(TextReading, Numbers) {
  struct {
    wchar_t const* text;
    char const* number;
  } const cases[] = {
      {L"5", "5"},
      {L"-5", "-5"},
      {L"+5", "5"},
      {L" \t5\r\n", "5"},
      {L"5.0", "5.0"},
      {L".5", "0.5"},
      {L"5.", "5.0"},
      {L"1e3", "1000.0"},
      {L"9223372036854775807", "9223372036854775807"},
      {L"9223372036854775808", "9.223372036854776e+18"},
      {L"", "NULL"},
      {L" ", "NULL"},
      {L"5x", "NULL"},
      {L"5 5", "NULL"},
      {L"0x10", "NULL"},
      {L"inf", "NULL"},
      {L"nan", "NULL"},
      {L"+-5", "NULL"},
      {L"1e999", "NULL"},
      {L"1e-999", "NULL"},
      {nullptr, "NULL"},
  };
  for (auto const& [text, number] : cases) EXPECT_EQ(TextOf(internal::NumberInText(text)), number) << text;
}

TEST(TextReading, Dates) {
  struct {
    wchar_t const* text;
    char const* date;
  } const cases[] = {
      {L"2024-03-01", "'2024-03-01'"},
      {L" 2024-03-01 ", "'2024-03-01'"},
      {L"2024-03-01T14:30:05.5", "'2024-03-01T14:30:05.500'"},
      {L"2024-03-01 14:30:05", "'2024-03-01T14:30:05.000'"},
      {L"2024-03-01T14:30", "'2024-03-01T14:30:00.000'"},
      {L"14:30:05", "'14:30:05.000'"},
      {L"14:30", "'14:30:00.000'"},
      {L"2024", "NULL"},
      {L"2024-3-1", "NULL"},
      {L"2024-13-01", "NULL"},
      {L"2024-03-01T", "NULL"},
      {L"2024-03-01T25:00", "NULL"},
      {L"2024-03-01x", "NULL"},
      {L"T14:30", "NULL"},
      {L"", "NULL"},
      {nullptr, "NULL"},
  };
  for (auto const& [text, date] : cases) EXPECT_EQ(TextOf(internal::DateInText(text)), date) << text;
}

TableDef const& Def() {
  static TableDef const def =
      MakeTableDef(L"s", L"t", L"id:Int64 i:Int64 d:Double t:String f:Boolean at:DateTime");
  return def;
}

// i is one above 2^53, d 2^53, t ' 5.0 ', f true.
Row MakeRow() {
  Row row(&Def());
  row[L"id"].Reset(1);
  row[L"i"].Reset(9007199254740993LL);
  row[L"d"].Reset(9007199254740992.0);
  row[L"t"].Reset(L" 5.0 ", true);
  row[L"f"].Reset(true);
  row[L"at"].Reset(L"2024-03-01T14:30:00.000", true);
  return row;
}

struct Case {
  wchar_t const* text;
  char const* result;
};

// A condition is false with its negation where it is unknown.
TEST(SqlValues, Conditions) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"t = 5", "TRUE"},
      {L"5 = t", "TRUE"},
      {L"t > 10", "FALSE"},
      {L"t IN (5)", "TRUE"},
      {L"t = ' 5.0 '", "TRUE"},
      {L"t = '5'", "FALSE"},
      {L"id = '1.0'", "TRUE"},
      {L"id < '10'", "TRUE"},
      {L"id IN ('2', ' 1 ')", "TRUE"},
      {L"id = 'one'", "FALSE"},
      {L"NOT id = 'one'", "FALSE"},
      {L"id + 1 = '2'", "TRUE"},
      {L"NOT id + 1 = 'two'", "FALSE"},
      {L"NOT concat('x') = 5", "FALSE"},
      {L"f = '1'", "TRUE"},
      {L"f = 1", "TRUE"},
      {L"f > 0.5", "TRUE"},
      {L"i = d", "FALSE"},
      {L"i > d", "TRUE"},
      {L"d < i", "TRUE"},
      {L"i = 9007199254740992.0", "FALSE"},
      {L"i > 9007199254740992.0", "TRUE"},
      {L"i <> 9007199254740993", "FALSE"},
      {L"d = 9007199254740993", "FALSE"},
      {L"i < 1e300", "TRUE"},
      {L"i > -1e300", "TRUE"},
      {L"at = '2024-03-01 14:30'", "TRUE"},
      {L"at IN ('2024-03-01 14:30')", "TRUE"},
      {L"at > '2024-03-01'", "TRUE"},
      {L"NOT at = 'yesterday'", "FALSE"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kAsInSql), test.result) << test.text;
}

TEST(SqlValues, Arithmetic) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"9223372036854775807 + 1", "9.223372036854776e+18"},
      {L"-9223372036854775807 - 2", "-9.223372036854776e+18"},
      {L"4611686018427387904 * 2", "9.223372036854776e+18"},
      {L"4611686018427387904 * -2", "-9223372036854775808"},
      {L"(-9223372036854775807 - 1) / -1", "9.223372036854776e+18"},
      {L"-(-9223372036854775807 - 1)", "9.223372036854776e+18"},
      {L"-1 * (-9223372036854775807 - 1)", "9.223372036854776e+18"},
      {L"9223372036854775806 + 1", "9223372036854775807"},
      {L"7 / 2", "3"},
      {L"7 / 0", "NULL"},
      {L"7 / 0.0", "NULL"},
      {L"7.5 / 0", "NULL"},
      {L"f + f", "2"},
      {L"f / 2", "0"},
      {L"-f", "-1"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedExpression(test.text, &row, kAsInSql), test.result) << test.text;
}

TEST(SqlValues, NothingIsInAnEmptyList) {
  FdoPtr<FdoIdentifier> const column = FdoIdentifier::Create(L"i");
  FdoPtr<FdoValueExpressionCollection> const nothing = FdoValueExpressionCollection::Create();
  FdoPtr<FdoFilter> const in = FdoInCondition::Create(column, nothing);
  FdoPtr<FdoFilter> const notIn = FdoUnaryLogicalOperator::Create(in, FdoUnaryLogicalOperations_Not);
  Row row(&Def());
  for (ExprOptions const& options : {kAsInSql, ExprOptions{true, true}, ExprOptions{true, false}}) {
    for (bool const isNull : {true, false}) {
      isNull ? row[L"i"].Reset() : row[L"i"].Reset(1);
      EXPECT_FALSE(ExprEval(in, &Def(), nullptr, options).Eval(&row, nullptr));
      EXPECT_TRUE(ExprEval(notIn, &Def(), nullptr, options).Eval(&row, nullptr));
    }
  }
}

// A text literal is read once, as what the column holds.
TEST(SqlValues, LiteralsAreReadWhenTheyAreCompiled) {
  FdoPtr<FdoFilter> const filter = ParsedFilter(L"id = '7' AND at < '2024-03-01 14:30'");
  EXPECT_EQ(ToUtf8(ExprEval(filter, &Def(), nullptr, kAsInSql).Listing().c_str()),
            "OpPushLiteral      '2024-03-01T14:30:00.000'\n"
            "OpPushField        5\n"
            "OpLess\n"
            "OpPushLiteral      7\n"
            "OpPushField        0\n"
            "OpEqual\n"
            "OpAnd\n");
}

TEST(SqlValues, TheOptionTurnsTheOthersOn) {
  ExprOptions options;
  options.sqlValues = true;
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedFilter(L"t LIKE '%5%' AND id IN (1)", &row, options), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"NOT id = NULL", &row, options), "FALSE");
}

}  // namespace
}  // namespace fdo
