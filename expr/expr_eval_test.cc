// What programs give for rows.
#include <fdo/table.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "testing/caught_message.h"
#include "testing/fgf_builder.h"
#include "testing/memory_table.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TableDef const& Def() {
  static TableDef const def = MakeTableDef(
      L"s", L"t", L"id:Int64 i:Int32 d:Double t:String f:Boolean n:Int32 nan:Double shape:Geometry");
  return def;
}

Value Geometry(char const* text) {
  std::vector<unsigned char> const fgf = Fgf(text);
  return Value(fgf.data(), static_cast<int>(fgf.size()));
}

// i 10, d 2.5, t 'abc', f true, n null, nan not a number, shape POINT (1 2).
Row MakeRow() {
  Row row(&Def());
  row[L"id"].Reset(7);
  row[L"i"].Reset(10);
  row[L"d"].Reset(2.5);
  row[L"t"].Reset(L"abc", true);
  row[L"f"].Reset(true);
  row[L"n"].Reset();
  row[L"nan"].Reset(kNaN);
  row[L"shape"] = Geometry("POINT (1 2)");
  return row;
}

struct Case {
  wchar_t const* text;
  char const* result;
};

TEST(ExprEval, Expressions) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"i + 1", "11"},
      {L"i - d", "7.5"},
      {L"i * 3", "30"},
      {L"i / 3", "3"},
      {L"d / 0.0", "inf"},
      {L"-i", "-10"},
      {L"-d", "-2.5"},
      {L"-t", "-0.0"},
      {L"n + 5", "5.0"},
      {L"f + 1", "2.0"},
      {L"-f", "-1.0"},
      {L"i", "10"},
      {L"t", "'abc'"},
      {L"n", "NULL"},
      {L"t + 1", "1.0"},
      {L"concat(t, '-', i)", "'abc-10'"},
      {L"round(d)", "3.0"},
      {L"if(f, t, i)", "'abc'"},
      {L"lookup(i, 'none', 10, 'ten')", "'ten'"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedExpression(test.text, &row), test.result) << ToUtf8(test.text);
}

// Two texts of one ownership, two flags and two nulls have no sum: the right one stays.
TEST(ExprEval, OperandsOfOneKindWithoutArithmeticLeaveTheRightOne) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedExpression(L"t + 'x'", &row), "'x'");
  EXPECT_EQ(EvaluatedExpression(L"f - FALSE", &row), "FALSE");
  EXPECT_EQ(EvaluatedExpression(L"n * NULL", &row), "NULL");
}

TEST(ExprEval, Filters) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"i = 10", "TRUE"},
      {L"i <> 10", "FALSE"},
      {L"i < 10", "FALSE"},
      {L"i <= 10", "TRUE"},
      {L"i > 9.5", "TRUE"},
      {L"i >= 10.5", "FALSE"},
      {L"10 = i", "TRUE"},
      {L"9 < i", "TRUE"},
      {L"11 <= i", "FALSE"},
      {L"d = 2.5 AND t = 'abc'", "TRUE"},
      {L"d = 2.5 AND t = 'ABC'", "FALSE"},
      {L"d = 2 OR t < 'b'", "TRUE"},
      {L"NOT (i = 10 AND d > 3)", "TRUE"},
      {L"d * 4 = i", "TRUE"},
      {L"i * 2 > 19", "TRUE"},
      {L"100 / d = 40", "TRUE"},
      {L"t NULL", "FALSE"},
      {L"n NULL", "TRUE"},
      {L"NOT n NULL", "FALSE"},
      {L"f = TRUE", "TRUE"},
      {L"f = 1", "TRUE"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedFilter(test.text, &row), test.result) << ToUtf8(test.text);
}

// Null is less than every other value, in this order, and equal to none but null.
TEST(ExprEval, NullSortsFirst) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedFilter(L"n = 1", &row), "FALSE");
  EXPECT_EQ(EvaluatedFilter(L"n < 1", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"NOT n = 1", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"n = NULL", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"n <> NULL", &row), "FALSE");
}

// Numbers and text compare as text: 10 stands before '9'.
TEST(ExprEval, NumbersOrderAsTextAgainstText) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedFilter(L"i < '9'", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"i = '10'", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"d > '10'", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"t > 5", &row), "TRUE");
}

TEST(ExprEval, UnorderedIsEqual) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedFilter(L"nan = 5.0", &row), "TRUE");
  EXPECT_EQ(EvaluatedFilter(L"nan <> 5.0", &row), "FALSE");
  EXPECT_EQ(EvaluatedFilter(L"nan <= 5.0 AND nan >= 5.0", &row), "TRUE");
  // An integer is less than what is no number.
  EXPECT_EQ(EvaluatedFilter(L"nan = 5", &row), "FALSE");
  EXPECT_EQ(EvaluatedFilter(L"5 < nan", &row), "TRUE");
}

TEST(ExprEval, DoubleIsNeverTrue) {
  Value result;
  ExprEval one(ParsedExpression(L"1.0"), nullptr, nullptr);
  EXPECT_FALSE(one.Eval(nullptr, nullptr));
  EXPECT_EQ(EvaluatedExpression(L"if(1.0, 'yes', 'no')"), "'no'");
}

TEST(ExprEval, WithoutAResultItIsTheConversionToAFlag) {
  for (auto const& [text, holds] : {std::pair{L"1", true}, std::pair{L"0", false}, std::pair{L"'True'", true},
                                    std::pair{L"'yes'", false}, std::pair{L"NULL", false}}) {
    ExprEval eval(ParsedExpression(text), nullptr, nullptr);
    EXPECT_EQ(eval.Eval(nullptr, nullptr), holds) << ToUtf8(text);
  }
}

// Both sides are computed, so that the one on the left does not spare the other's failure.
TEST(ExprEval, NoShortCircuit) {
  Row const row = MakeRow();
  EXPECT_THROW(EvaluatedFilter(L"i = 10 OR t LIKE 'a%'", &row), std::exception);
  EXPECT_THROW(EvaluatedFilter(L"t LIKE 'a%' AND i = 11", &row), std::exception);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(EvaluatedFilter(L"i = 10 OR i / 0 = 1", &row), "");
}

TEST(ExprEval, LikeIsRefusedWhenItIsReached) {
  Row const row = MakeRow();
  try {
    EvaluatedFilter(L"t LIKE 'a%'", &row);
    FAIL() << "nothing was thrown";
  } catch (std::exception const& failure) {
    EXPECT_STREQ(failure.what(), "\"Like\" not implemented yet for fdo::ExprEval.");
  }
}

TEST(ExprEval, ResultsOwnWhatTheyHold) {
  Row row = MakeRow();
  ExprEval eval(ParsedExpression(L"t"), &Def(), nullptr);
  Value result;
  ASSERT_TRUE(eval.Eval(&row, &result));
  EXPECT_EQ(result.Type(), Value::kString);
  row[L"t"].Reset(L"changed", true);
  EXPECT_EQ(TextOf(result), "'abc'");
  // Into the very cell that was read.
  ASSERT_TRUE(eval.Eval(&row, &row[L"t"]));
  EXPECT_EQ(TextOf(row[L"t"]), "'changed'");
}

TEST(ExprEval, NamesAreFoundInTheRowWithoutATable) {
  Row const row = MakeRow();
  ExprEval eval(ParsedExpression(L"i + 1"), nullptr, nullptr);
  EXPECT_EQ(Evaluated(eval, &row), "11");
  TableDef const other = MakeTableDef(L"s", L"o", L"x:String i:Int64");
  Row otherRow(&other);
  otherRow[L"i"].Reset(1);
  EXPECT_EQ(Evaluated(eval, &otherRow), "2");
}

TEST(ExprEval, WhatTheRowDoesNotHaveIsNull) {
  Row const row = MakeRow();
  ExprEval eval(ParsedFilter(L"nowhere NULL"), nullptr, nullptr);
  EXPECT_EQ(Evaluated(eval, &row), "TRUE");
  EXPECT_EQ(Evaluated(eval, nullptr), "TRUE");
  ExprEval byPosition(ParsedFilter(L"i NULL"), &Def(), nullptr);
  EXPECT_EQ(Evaluated(byPosition, nullptr), "TRUE");
}

TEST(ExprEval, ProgramsThatDoNotComeToOneValueFailForEveryRow) {
  Row const row = MakeRow();
  for (wchar_t const* text : {L"i = :p", L":p = i", L":p = :q", L"i = 10 AND :p = 1", L"NOT i = :p"}) {
    EXPECT_EQ(EvaluatedFilter(text, &row), "fails") << ToUtf8(text);
    ExprEval eval(ParsedFilter(text), &Def(), nullptr);
    EXPECT_FALSE(eval.Eval(&row, nullptr));
    EXPECT_FALSE(ExprEvalTestPeer::EvalStepwise(eval, &row, nullptr));
  }
  for (wchar_t const* text :
       {L":p", L"-:p", L"concat('a', :p)", L"lookup(:p)", L"if(TRUE, :p, 1)", L"i * :p + 1"}) {
    EXPECT_EQ(EvaluatedExpression(text, &row), "fails") << ToUtf8(text);
  }
  ExprEval nothing(static_cast<FdoExpression*>(nullptr), nullptr, nullptr);
  EXPECT_EQ(Evaluated(nothing, &row), "fails");
}

TEST(ExprEval, WrongArgumentCountsFail) {
  for (wchar_t const* text : {L"sin()", L"sin(1, 2)", L"atan2(1)", L"random(1)", L"if(1, 2)", L"trunc()",
                              L"trunc(1, 2, 3)", L"round(1, 2, 3)", L"CurrentDate(1)", L"x()",
                              // What one call leaves the other would take.
                              L"cos() + sin(1, 2)", L"sin(1, 2) + cos()"}) {
    EXPECT_EQ(EvaluatedExpression(text), "fails") << ToUtf8(text);
  }
}

TEST(ExprEval, ListingsThatDoNotBalanceTouchNothing) {
  OpRec const push{OpPushLiteral, Value(1)};
  auto const call = [](int number) { return OpRec{OpFunction, Value(number)}; };
  std::vector<std::vector<OpRec>> const programs = {
      {{OpAdd, Value()}},
      {push, {OpAdd, Value()}},
      {push, push},
      {{OpNeg, Value()}},
      {{OpNot, Value()}},
      {{OpIsNull, Value()}},
      {{OpSpatial, Value(4)}},
      {{OpDistance, Value(1)}},
      {{OpIn, Value(0)}},
      {push, {OpIn, Value(1)}},
      {push, {OpIn, Value(-1)}},
      {push, {OpIn, Value(2.0)}},
      {call(16)},
      {push, call(23)},
      // A count that is more than there is, less than nothing, none, or not in sight.
      {push, {OpPushLiteral, Value(5)}, call(25)},
      {push, {OpPushLiteral, Value(-1)}, call(25)},
      {push, {OpPushLiteral, Value(L"1")}, call(25)},
      {push, {OpPushLiteral, Value(1LL << 40)}, call(32)},
      {push, {OpPushField, Value(0)}, call(32)},
      {call(32)},
      {{0, Value()}},
  };
  Row const row = MakeRow();
  for (std::size_t i = 0; i < programs.size(); ++i) {
    ExprEval eval = ExprEvalTestPeer::FromProgram(programs[i]);
    EXPECT_FALSE(eval.IsComplete()) << i;
    EXPECT_EQ(Evaluated(eval, &row), "fails") << i;
  }
}

TEST(ExprEval, WhatIsNoInstructionIsPassedOver) {
  OpRec const push{OpPushLiteral, Value(1)};
  ExprEval eval = ExprEvalTestPeer::FromProgram({{0, Value()}, push, {16, Value()}, {OpFunction, Value(17)}});
  EXPECT_EQ(Evaluated(eval, nullptr), "1");
  // Op0 leaves two values, of which a missing one makes up for one.
  ExprEval two = ExprEvalTestPeer::FromProgram({push, push, {0, Value()}, {OpEqual, Value()}});
  EXPECT_EQ(Evaluated(two, nullptr), "TRUE");
}

TEST(ExprEval, DeepPrograms) {
  std::vector<OpRec> program;
  for (int i = 0; i < 5000; ++i) program.push_back({OpPushLiteral, Value(1)});
  for (int i = 1; i < 5000; ++i) program.push_back({OpAdd, Value()});
  ExprEval eval = ExprEvalTestPeer::FromProgram(program);
  EXPECT_EQ(Evaluated(eval, nullptr), "5000");
  EXPECT_EQ(ExprEvalTestPeer::StackSize(eval), 5000u);
}

TEST(ExprEval, AssignmentShares) {
  Row const row = MakeRow();
  ExprEval a(ParsedExpression(L"i + 1"), &Def(), nullptr);
  {
    ExprEval b(ParsedExpression(L"'other'"), &Def(), nullptr);
    ExprEval const copy(a);
    EXPECT_EQ(ExprEvalTestPeer::Ops(copy), ExprEvalTestPeer::Ops(a));
    a = b;
    EXPECT_EQ(ExprEvalTestPeer::Ops(a), ExprEvalTestPeer::Ops(b));
    EXPECT_EQ(ExprEvalTestPeer::Stack(a), ExprEvalTestPeer::Stack(b));
    ExprEval const& itself = a;
    a = itself;
  }
  EXPECT_EQ(Evaluated(a, &row), "'other'");
}

TEST(ExprEval, OpRecsAreCopiedDeeply) {
  OpRec const original{OpPushLiteral, Value(L"text")};
  OpRec const copy = original;
  EXPECT_EQ(copy.op, OpPushLiteral);
  EXPECT_EQ(copy.value.Type(), Value::kString);
  EXPECT_NE(static_cast<wchar_t const*>(copy.value), static_cast<wchar_t const*>(original.value));
}

// --- Rows that fetch their cells -----------------------------------------------------------------

TEST(ExprEval, CellsAreFetchedInTheOrderOfTheProgramWhetherTheyDecideOrNot) {
  TableDef const def = MakeTableDef(L"s", L"t", L"id:Int64 a:Int32 b:Int32");
  MemoryTable table(&def);
  table.records = {{Value(1), Value(5), Value(6)}};
  ExprEval eval(ParsedFilter(L"a = 1 AND b = 2"), &def, nullptr);
  ASSERT_TRUE(ExprEvalTestPeer::IsFused(eval));
  table.Query();
  Row const* row = table.Next();
  ASSERT_NE(row, nullptr);
  EXPECT_FALSE(eval.Eval(row, nullptr));
  EXPECT_EQ(table.FetchCount(), 2);

  // b comes first in the program.
  table.Query();
  row = table.Next();
  table.FailAtCall(1, [] { throw std::runtime_error("at b"); });
  EXPECT_THROW(eval.Eval(row, nullptr), std::runtime_error);
  EXPECT_FALSE(eval.Eval(row, nullptr));
}

TEST(ExprEval, TextsAreFetchedBeforeTheyAreTested) {
  TableDef const def = MakeTableDef(L"s", L"t", L"id:Int64 a:Int32 kind:String");
  MemoryTable table(&def);
  table.records = {{Value(1), Value(5), Value(L"road")}};
  constexpr struct {
    wchar_t const* filter;
    bool holds;
  } kRows[] = {{L"kind <> 'road' AND a = 5", false},
               {L"a = 5 AND kind <> 'road'", false},
               {L"kind = 'road' AND a = 5", true},
               {L"a = 5 AND kind = 'road'", true},
               {L"kind < 'road' OR a = 4", false},
               {L"kind > 'roa' AND a = 5", true},
               {L"kind = 'road'", true},
               {L"kind <> 'road'", false}};
  for (auto const& [filter, holds] : kRows) {
    ExprEval eval(ParsedFilter(filter), &def, nullptr);
    table.Query();
    EXPECT_EQ(eval.Eval(table.Next(), nullptr), holds) << ToUtf8(filter);
  }
}

// --- Geometry ----------------------------------------------------------------------------------

TEST(ExprEvalSpatial, ConditionsHoldOrNot) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"shape INTERSECTS GeomFromText('POLYGON ((0 0, 5 0, 5 5, 0 5, 0 0))')", "TRUE"},
      {L"shape WITHIN GeomFromText('POLYGON ((0 0, 5 0, 5 5, 0 5, 0 0))')", "TRUE"},
      {L"shape CONTAINS GeomFromText('POLYGON ((0 0, 5 0, 5 5, 0 5, 0 0))')", "FALSE"},
      {L"shape DISJOINT GeomFromText('POINT (9 9)')", "TRUE"},
      {L"NOT shape EQUALS GeomFromText('POINT (1 2)')", "FALSE"},
      {L"shape ENVELOPEINTERSECTS GeomFromText('LINESTRING (0 0, 5 5)') AND i = 10", "TRUE"},
  };
  for (Case const& test : cases) {
    ExprEval eval(ParsedFilter(test.text), &Def(), nullptr);
    // The second time with what the first has prepared.
    for (int time = 0; time < 2; ++time) EXPECT_EQ(Evaluated(eval, &row), test.result) << ToUtf8(test.text);
  }
}

TEST(ExprEvalSpatial, TheRowIsOnTheLeft) {
  Value const point = Geometry("POINT (1 1)");
  Value const square = Geometry("POLYGON ((0 0, 2 0, 2 2, 0 2, 0 0))");
  EXPECT_EQ(TextOf(ExprEvalTestPeer::Spatial(FdoSpatialOperations_Within, point, square)), "TRUE");
  EXPECT_EQ(TextOf(ExprEvalTestPeer::Spatial(FdoSpatialOperations_Contains, point, square)), "FALSE");
}

TEST(ExprEvalSpatial, AnOperationThatFailsIsFalse) {
  Value const point = Geometry("POINT (1 1)");
  EXPECT_EQ(TextOf(ExprEvalTestPeer::Spatial(99, point, point)), "FALSE");
}

TEST(ExprEvalSpatial, StreamsThatMakeNoSenseThrow) {
  Row row = MakeRow();
  wchar_t const* const text = L"shape INTERSECTS GeomFromText('POINT (1 2)')";
  row[L"shape"].Reset("junk", 4, true);
  EXPECT_EQ(CaughtMessage([&] { EvaluatedFilter(text, &row); }), L"Invalid FGF stream!");
  row[L"shape"].Reset();
  EXPECT_EQ(CaughtMessage([&] { EvaluatedFilter(text, &row); }), L"Invalid FGF stream!");
  // A number whose text has been asked for has half an address where bytes have their length.
  row[L"i"].Reset(5);
  static_cast<void>(static_cast<wchar_t const*>(row[L"i"]));
  EXPECT_EQ(CaughtMessage([&] { EvaluatedFilter(L"i INTERSECTS GeomFromText('POINT (1 2)')", &row); }),
            L"Invalid FGF stream!");
}

TEST(ExprEvalOrdinates, OfPointsInEveryDimensionality) {
  struct {
    char const* point;
    double ordinates[4];
  } const cases[] = {
      {"POINT (1 2)", {1, 2, 0, 0}},
      {"POINT Z (1 2 3)", {1, 2, 3, 0}},
      {"POINT M (1 2 4)", {1, 2, 0, 4}},
      {"POINT ZM (1 2 3 4)", {1, 2, 3, 4}},
  };
  for (auto const& test : cases) {
    for (int which = 35; which <= 38; ++which) {
      std::vector<unsigned char> const wkb = Wkb(test.point);
      EXPECT_EQ(static_cast<double>(ExprEvalTestPeer::Ordinate(which, Geometry(test.point), false)),
                test.ordinates[which - 35])
          << test.point << which;
      EXPECT_EQ(static_cast<double>(ExprEvalTestPeer::Ordinate(
                    which, Value(wkb.data(), static_cast<int>(wkb.size())), false)),
                test.ordinates[which - 35])
          << test.point << which;
    }
  }
  EXPECT_EQ(TextOf(ExprEvalTestPeer::Ordinate(37, Value(L"POINT XYZ (1 2 3)"), false)), "3.0");
}

TEST(ExprEvalOrdinates, WhatIsNoPointIsZero) {
  std::vector<unsigned char> const line = Wkb("LINESTRING (5 6, 7 8)");
  std::vector<Value> const values = {Geometry("LINESTRING (5 6, 7 8)"),
                                     Value(line.data(), static_cast<int>(line.size())),
                                     Value(L"LINESTRING (5 6, 7 8)"),
                                     Value(5),
                                     Value(),
                                     Value("\1\0", 2),
                                     Value("\0\0", 2),
                                     Value("\1", 1),
                                     Value("", 0)};
  for (Value const& value : values) EXPECT_EQ(TextOf(ExprEvalTestPeer::Ordinate(35, value, false)), "0.0");
}

TEST(ExprEvalOrdinates, EveryPrefixOfAPointIsZeroOrItsOrdinate) {
  std::vector<unsigned char> const fgf = Fgf("POINT ZM (1 2 3 4)");
  for (std::size_t length = 0; length < fgf.size(); ++length) {
    std::vector<unsigned char> const prefix(fgf.begin(), fgf.begin() + static_cast<std::ptrdiff_t>(length));
    double const y = static_cast<double>(
        ExprEvalTestPeer::Ordinate(36, Value(prefix.data(), static_cast<int>(length)), false));
    EXPECT_EQ(y, length >= 24 ? 2.0 : 0.0) << length;
  }
}

TEST(ExprEvalOrdinates, TextAndWkbThatMakeNoSenseThrow) {
  EXPECT_NE(CaughtMessage([] { ExprEvalTestPeer::Ordinate(35, Value(L"no geometry"), false); }), L"");
  EXPECT_NE(CaughtMessage([] { ExprEvalTestPeer::Ordinate(35, Value("\1\1\0", 3), false); }), L"");
}

TEST(ExprEvalOrdinates, BorrowedIsZero) {
  Row const row = MakeRow();
  EXPECT_EQ(TextOf(ExprEvalTestPeer::Ordinate(35, Geometry("POINT (1 2)"), true)), "0.0");
  EXPECT_EQ(EvaluatedExpression(L"x(shape)", &row), "0.0");
  EXPECT_EQ(EvaluatedExpression(L"x('POINT (5 6)')", &row), "0.0");
  EXPECT_EQ(EvaluatedExpression(L"x(if(TRUE, shape, shape))", &row), "1.0");
  EXPECT_EQ(EvaluatedExpression(L"y(if(TRUE, 'POINT (5 6)', ''))", &row), "6.0");
}

// --- Options -----------------------------------------------------------------------------------

constexpr ExprOptions kAll{/*allConditions=*/true, /*nullIsUnknown=*/false};
constexpr ExprOptions kUnknown{/*allConditions=*/false, /*nullIsUnknown=*/true};
constexpr ExprOptions kBoth{/*allConditions=*/true, /*nullIsUnknown=*/true};

TEST(ExprEvalOptions, In) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"i IN (1, 10)", "TRUE"},      {L"i IN (1, 2)", "FALSE"},   {L"NOT i IN (1, 2)", "TRUE"},
      {L"t IN ('x', 'abc')", "TRUE"}, {L"t IN ('ABC')", "FALSE"},  {L"i IN ('10')", "TRUE"},
      {L"i IN (10.0)", "TRUE"},       {L"n IN (NULL, 1)", "TRUE"}, {L"n IN (1)", "FALSE"},
      {L"NOT n IN (1)", "TRUE"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kAll), test.result) << ToUtf8(test.text);
  FdoPtr<FdoInCondition> const none = FdoInCondition::Create(L"i", static_cast<FdoString**>(nullptr), 0);
  ExprEval eval(none, &Def(), nullptr, kAll);
  EXPECT_EQ(Evaluated(eval, &row), "FALSE");
}

TEST(ExprEvalOptions, Like) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"t LIKE 'abc'", "TRUE"},     {L"t LIKE 'ABC'", "FALSE"},   {L"t LIKE 'a%'", "TRUE"},
      {L"t LIKE '%c'", "TRUE"},      {L"t LIKE '%b%'", "TRUE"},    {L"t LIKE '%'", "TRUE"},
      {L"t LIKE '_b_'", "TRUE"},     {L"t LIKE '__'", "FALSE"},    {L"t LIKE '____'", "FALSE"},
      {L"t LIKE ''", "FALSE"},       {L"t LIKE 'abc%'", "TRUE"},   {L"t LIKE 'abc_'", "FALSE"},
      {L"t LIKE '%a%b%c%'", "TRUE"}, {L"t LIKE '[ab]bc'", "TRUE"}, {L"i LIKE '1_'", "TRUE"},
      {L"n LIKE '%'", "FALSE"},      {L"NOT t LIKE 'x%'", "TRUE"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kAll), test.result) << ToUtf8(test.text);
}

TEST(ExprEvalOptions, Distance) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"shape WITHINDISTANCE GeomFromText('POINT (1 5)') 3", "TRUE"},
      {L"shape WITHINDISTANCE GeomFromText('POINT (1 5)') 2.999", "FALSE"},
      {L"shape BEYOND GeomFromText('POINT (1 5)') 3", "FALSE"},
      {L"shape BEYOND GeomFromText('POINT (1 5)') 2.999", "TRUE"},
      {L"shape WITHINDISTANCE GeomFromText('POINT (1 2)') 0", "TRUE"},
      {L"shape WITHINDISTANCE GeomFromText('POINT (1 3)') 0", "FALSE"},
      {L"shape WITHINDISTANCE GeomFromText('LINESTRING (4 0, 4 9)') 3", "TRUE"},
      {L"NOT shape BEYOND GeomFromText('POLYGON ((0 0, 5 0, 5 5, 0 5, 0 0))') 0", "TRUE"},
  };
  for (Case const& test : cases)
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kAll), test.result) << ToUtf8(test.text);
}

TEST(ExprEvalOptions, NoGeometryMeetsNoCondition) {
  Row row = MakeRow();
  row[L"shape"].Reset();
  wchar_t const* const texts[] = {
      L"shape INTERSECTS GeomFromText('POINT (1 2)')", L"shape DISJOINT GeomFromText('POINT (1 2)')",
      L"shape WITHINDISTANCE GeomFromText('POINT (1 5)') 3", L"shape BEYOND GeomFromText('POINT (1 5)') 3"};
  for (wchar_t const* text : texts) {
    std::wstring const negated = std::wstring(L"NOT ") + text;
    EXPECT_EQ(EvaluatedFilter(text, &row, kAll), "FALSE");
    EXPECT_EQ(EvaluatedFilter(negated.c_str(), &row, kAll), "TRUE");
    EXPECT_EQ(EvaluatedFilter(text, &row, kBoth), "FALSE");
    EXPECT_EQ(EvaluatedFilter(negated.c_str(), &row, kBoth), "FALSE");
  }
}

TEST(ExprEvalOptions, OrdinatesOfColumns) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedExpression(L"x(shape) + y(shape)", &row, kAll), "3.0");
  EXPECT_EQ(EvaluatedExpression(L"y('POINT (5 6)')", &row, kAll), "6.0");
}

TEST(ExprEvalOptions, NullIsUnknownInConditions) {
  Row const row = MakeRow();
  Case const cases[] = {
      {L"n = 1", "FALSE"},
      {L"NOT n = 1", "FALSE"},
      {L"n <> 1", "FALSE"},
      {L"NOT n <> 1", "FALSE"},
      {L"n < 1", "FALSE"},
      {L"n = NULL", "FALSE"},
      {L"NOT n = NULL", "FALSE"},
      {L"n NULL", "TRUE"},
      {L"NOT n NULL", "FALSE"},
      {L"i = 10 OR n = 1", "TRUE"},
      {L"n = 1 OR i = 10", "TRUE"},
      {L"NOT (n = 1 AND i = 11)", "TRUE"},
      {L"NOT (n = 1 AND i = 10)", "FALSE"},
      {L"NOT (n = 1 OR i = 11)", "FALSE"},
      {L"NOT NOT n = 1", "FALSE"},
      {L"nan = 5.0", "FALSE"},
      {L"NOT nan = 5.0", "FALSE"},
      {L"NOT 5 < nan", "FALSE"},
      {L"n + 5 = 5", "FALSE"},
      {L"NOT n + 5 = 5", "FALSE"},
      {L"NOT n * 2.0 > 1", "FALSE"},
      {L"NOT -n = 0", "FALSE"},
      {L"NOT nan * 2 = 1.0", "FALSE"},
      {L"NOT sqrt(n) = 0", "FALSE"},
      {L"concat(n, 'a') = 'a'", "TRUE"},
      {L"if(n, 1, 2) = 2", "TRUE"},
      {L"NOT t = 'x'", "TRUE"},
      {L"n = n", "FALSE"},
  };
  for (Case const& test : cases) {
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kUnknown), test.result) << ToUtf8(test.text);
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kBoth), test.result) << ToUtf8(test.text);
    ExprEval eval(ParsedFilter(test.text), &Def(), nullptr, kUnknown);
    EXPECT_EQ(ExprEvalTestPeer::EvalStepwise(eval, &row, nullptr), std::string(test.result) == "TRUE")
        << ToUtf8(test.text);
  }
  Case const lists[] = {
      {L"n IN (1, 2)", "FALSE"},        {L"NOT n IN (1, 2)", "FALSE"}, {L"i IN (10, NULL)", "TRUE"},
      {L"NOT i IN (1, NULL)", "FALSE"}, {L"NOT i IN (1, 2)", "TRUE"},  {L"n LIKE '%'", "FALSE"},
      {L"NOT n LIKE '%'", "FALSE"},     {L"NOT t LIKE 'b%'", "TRUE"},
  };
  for (Case const& test : lists)
    EXPECT_EQ(EvaluatedFilter(test.text, &row, kBoth), test.result) << ToUtf8(test.text);
}

TEST(ExprEvalOptions, NullIsUnknownInValues) {
  Row const row = MakeRow();
  EXPECT_EQ(EvaluatedExpression(L"n + 5", &row, kUnknown), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"-n", &row, kUnknown), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"pow(2, n)", &row, kUnknown), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"round(n, 2)", &row, kUnknown), "NULL");
  EXPECT_EQ(EvaluatedExpression(L"lookup(n, 'none', 1, 'one')", &row, kUnknown), "'none'");
}

}  // namespace
}  // namespace fdo
