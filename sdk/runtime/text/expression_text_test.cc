// FdoExpression::Parse and the ToString of expression nodes.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/core/thrown.h"
#include "sdk/runtime/text/text_claims.h"
#include "sdk/runtime/text/tree_shape.h"

namespace fdo_sdk {
namespace {

// Text with 'quotes' reads better in raw strings; every row is a claim about one construct.
TEST(ExpressionText, Literals) {
  constexpr TextRow kRows[] = {
      {L"TRUE", "boolean true", L"TRUE"},
      {L"false", "boolean false", L"FALSE"},
      {L"NULL", "null string", L"NULL"},
      {L"0", "int32 0", L"0"},
      {L"007", "int32 7", L"7"},
      {L"2147483647", "int32 2147483647", L"2147483647"},
      {L"2147483648", "int64 2147483648", L"2147483648"},
      {L"9223372036854775807", "int64 9223372036854775807", L"9223372036854775807"},
      {L"9223372036854775808", "double 9.2233720368547758e+18", L"9223372036854775808.0"},
      {L"-2147483648", "int32 -2147483648", L"-2147483648"},
      {L"-9223372036854775808", "int64 -9223372036854775808", L"-9223372036854775808"},
      {L"1.5", "double 1.5", L"1.5"},
      {L".5", "double 0.5", L"0.5"},
      {L"5.", "double 5", L"5.0"},
      {L"5e2", "double 500", L"500.0"},
      {L"5E-2", "double 0.050000000000000003", L"0.05"},
      {L"1e300", "double 1.0000000000000001e+300", L"1e+300"},
      {L"-0.0", "double -0", L"-0.0"},
      {L"''", "string ", L"''"},
      {L"'it''s'", "string it's", L"'it''s'"},
      {L"'\"'", "string \"", L"'\"'"},
      {L"DATE '2024-02-29'", "datetime 2024-2-29 -1:-1:0", L"DATE '2024-02-29'"},
      {L"date '804-1-2'", "datetime 804-1-2 -1:-1:0", L"DATE '0804-01-02'"},
      {L"TIME '23:59:58'", "datetime -1--1--1 23:59:58", L"TIME '23:59:58'"},
      {L"TIME '1:02'", "datetime -1--1--1 1:2:0", L"TIME '01:02:00'"},
      {L"TIME '01:02:03.25'", "datetime -1--1--1 1:2:3.25", L"TIME '01:02:03.25'"},
      {L"TIMESTAMP '2024-03-01 14:30:05.125'", "datetime 2024-3-1 14:30:5.125",
       L"TIMESTAMP '2024-03-01 14:30:05.125'"},
      {L"BLOB '00ff'", "blob 00ff", L"BLOB '00FF'"},
      {L"clob ''", "clob ", L"CLOB ''"},
      {L"geomfromtext('point (10 20 30)')",
       "geometry 0100000000000000000000000000244000000000000034"
       "40",
       L"GeomFromText('POINT (10 20)')"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

TEST(ExpressionText, NamesAndParameters) {
  constexpr TextRow kRows[] = {
      {L"width", "name width", L"width"},
      {L"_a1", "name _a1", L"_a1"},
      {L"straße", "name straße", L"straße"},
      {L"Address.City", "name Address.City", L"Address.City"},
      {L"Roads:Street", "name Roads:Street", L"Roads:Street"},
      {L"Roads:Street.\"no. 1\"", "name Roads:Street.\"no. 1\"", L"Roads:Street.\"no. 1\""},
      {L"\"id\"", "name id", L"id"},
      {L"\"two words\"", "name two words", L"\"two words\""},
      {L"\"a\"\"b\"", "name a\"b", L"\"a\"\"b\""},
      {L"\"\"\"\"", "name \"\"\"\"", L"\"\"\"\""},
      {L"\"a.b\"", "name \"a.b\"", L"\"a.b\""},
      {L"\"\"", "name ", L"\"\""},
      {L"\"NOT\"", "name NOT", L"\"NOT\""},
      {L"\"timestamp\"", "name timestamp", L"\"timestamp\""},
      {L"\"within\".x", "name within.x", L"\"within\".x"},
      {L"\"9\"", "name 9", L"\"9\""},
      {L"blob", "name blob", L"blob"},
      {L":id", "parameter id", L":id"},
      {L":9", "parameter 9", L":9"},
      {L":'any ''text'''", "parameter any 'text'", L":'any ''text'''"},
      {L":''", "parameter ", L":''"},
      {L":and", "parameter and", L":and"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

TEST(ExpressionText, EveryReservedWordIsANameInQuotes) {
  constexpr wchar_t const* kWords[] = {L"AND",
                                       L"OR",
                                       L"NOT",
                                       L"NULL",
                                       L"IN",
                                       L"LIKE",
                                       L"TRUE",
                                       L"FALSE",
                                       L"DATE",
                                       L"TIME",
                                       L"TIMESTAMP",
                                       L"GEOMFROMTEXT",
                                       L"CONTAINS",
                                       L"CROSSES",
                                       L"DISJOINT",
                                       L"EQUALS",
                                       L"INTERSECTS",
                                       L"OVERLAPS",
                                       L"TOUCHES",
                                       L"WITHIN",
                                       L"COVEREDBY",
                                       L"INSIDE",
                                       L"ENVELOPEINTERSECTS",
                                       L"BEYOND",
                                       L"WITHINDISTANCE"};
  for (wchar_t const* word : kWords) {
    FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(word);
    FdoStringP const written = name->ToString();
    EXPECT_TRUE(written == (FdoStringP(L"\"") + word + L"\"")) << static_cast<char const*>(written);
    FdoPtr<FdoExpression> parsed = FdoExpression::Parse(written);
    ASSERT_EQ(parsed->GetExpressionType(), FdoExpressionItemType_Identifier);
    EXPECT_STREQ(static_cast<FdoIdentifier*>(parsed.p)->GetName(), word);
  }
}

TEST(ExpressionText, OperatorsByPrecedenceAndFromTheLeft) {
  constexpr TextRow kRows[] = {
      {L"a+b-c", "-(+(name a, name b), name c)", L"a + b - c"},
      {L"a-(b-c)", "-(name a, -(name b, name c))", L"a - (b - c)"},
      {L"a+(b+c)", "+(name a, +(name b, name c))", L"a + (b + c)"},
      {L"(a+b)+c", "+(+(name a, name b), name c)", L"a + b + c"},
      {L"a*b/c", "/(*(name a, name b), name c)", L"a * b / c"},
      {L"a/(b*c)", "/(name a, *(name b, name c))", L"a / (b * c)"},
      {L"a+b*c", "+(name a, *(name b, name c))", L"a + b * c"},
      {L"(a+b)*c", "*(+(name a, name b), name c)", L"(a + b) * c"},
      {L"a*b+c*d", "+(*(name a, name b), *(name c, name d))", L"a * b + c * d"},
      {L"a || 'x' || b", "+(+(name a, string x), name b)", L"a + 'x' + b"},
      {L"((((a))))", "name a", L"a"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

// A minus right before the digits belongs to the number, so that lists of values can hold negative numbers.
TEST(ExpressionText, MinusIsPartOfANumberItTouches) {
  constexpr TextRow kRows[] = {
      {L"-5", "int32 -5", L"-5"},
      {L"- 5", "-(int32 5)", L"- 5"},
      {L"-(5)", "-(int32 5)", L"- 5"},
      {L"--5", "-(int32 -5)", L"--5"},
      {L"-a", "-(name a)", L"-a"},
      {L"- -a", "-(-(name a))", L"--a"},
      {L"-a*b", "*(-(name a), name b)", L"-a * b"},
      {L"-(a*b)", "-(*(name a, name b))", L"-(a * b)"},
      {L"a-5", "-(name a, int32 5)", L"a - 5"},
      {L"a--5", "-(name a, int32 -5)", L"a - -5"},
      {L"2*-3", "*(int32 2, int32 -3)", L"2 * -3"},
      {L"-1.5e-3", "double -0.0015", L"-0.0015"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

TEST(ExpressionText, Functions) {
  constexpr TextRow kRows[] = {
      {L"Count()", "call Count()", L"Count()"},
      {L"Count(\"id\")", "call Count(name id)", L"Count(id)"},
      {L"f ( a , 1 , 'x' )", "call f(name a, int32 1, string x)", L"f(a, 1, 'x')"},
      {L"f(g(a)+1)", "call f(+(call g(name a), int32 1))", L"f(g(a) + 1)"},
      {L"\"my f\"(a)", "call my f(name a)", L"\"my f\"(a)"},
      {L"\"Contains\"(a)", "call Contains(name a)", L"\"Contains\"(a)"},
      {L"blob(a)", "call blob(name a)", L"blob(a)"},
      {L"s:f(a)", "call s:f(name a)", L"s:f(a)"},
      {L"\"a.b\".f()", "call \"a.b\".f()", L"\"a.b\".f()"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

TEST(ExpressionText, ComputedIdentifiersAndSubSelects) {
  constexpr TextRow kRows[] = {
      {L"a + b AS total", "computed total(+(name a, name b))", L"a + b AS total"},
      {L"Count() as \"number of\"", "computed number of(call Count())", L"Count() AS \"number of\""},
      {L"(select a from s:c)", "select((name a, name s:c) where nothing)", L"(SELECT a FROM s:c)"},
      {L"(SELECT a FROM c LEFT OUTER JOIN d AS e ON a = e.x CROSS JOIN f WHERE b > 1)",
       "select((name a, name c) join 4 e name d on =(name a, name e.x) join 16  name f on nothing where "
       ">(name b, "
       "int32 1))",
       L"(SELECT a FROM c LEFT OUTER JOIN d AS e ON a = e.x CROSS JOIN f WHERE b > 1)"},
      {L"(select)", "name select", L"select"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoExpression>(row);
}

TEST(ExpressionText, ComputedIdentifierWithinAnExpressionIsWrittenAsItsExpression) {
  FdoPtr<FdoExpression> sum = FdoExpression::Parse(L"a + b");
  FdoPtr<FdoComputedIdentifier> total = FdoComputedIdentifier::Create(L"total", sum);
  FdoPtr<FdoExpression> two = FdoInt32Value::Create(2);
  FdoPtr<FdoBinaryExpression> twice = FdoBinaryExpression::Create(total, FdoBinaryOperations_Multiply, two);
  EXPECT_STREQ(twice->ToString(), L"(a + b) * 2");
  EXPECT_STREQ(total->ToString(), L"a + b AS total");
}

TEST(ExpressionText, NumbersOfEveryTypeAreWritten) {
  FdoPtr<FdoDataValue> const values[] = {
      FdoByteValue::Create(FdoByte{255}),  FdoInt16Value::Create(FdoInt16{-7}),
      FdoSingleValue::Create(0.1f),        FdoDecimalValue::Create(2.50),
      FdoDoubleValue::Create(0.1),         FdoDoubleValue::Create(1e22),
      FdoDoubleValue::Create(123456789.0), FdoInt64Value::Create(FdoInt64{1} << 40),
  };
  constexpr wchar_t const* kTexts[] = {L"255", L"-7",    L"0.1",         L"2.5",
                                       L"0.1", L"1e+22", L"123456789.0", L"1099511627776"};
  for (std::size_t i = 0; i < std::size(kTexts); ++i) EXPECT_STREQ(values[i]->ToString(), kTexts[i]);
}

TEST(ExpressionText, NullOfEveryTypeIsWrittenAsNull) {
  for (int type = FdoDataType_Boolean; type <= FdoDataType_CLOB; ++type) {
    FdoPtr<FdoDataValue> value = FdoDataValue::Create(static_cast<FdoDataType>(type));
    EXPECT_TRUE(value->IsNull());
    EXPECT_STREQ(value->ToString(), L"NULL") << type;
  }
  FdoPtr<FdoGeometryValue> geometry = FdoGeometryValue::Create();
  EXPECT_STREQ(geometry->ToString(), L"NULL");
}

TEST(ExpressionText, WhatHasNoTextIsRefused) {
  FdoByte const bytes[] = {1, 2, 3};
  FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes, 3);
  FdoPtr<FdoExpression> const nodes[] = {
      FdoDoubleValue::Create(HUGE_VAL),
      FdoSingleValue::Create(-HUGE_VALF),
      FdoDecimalValue::Create(NAN),
      FdoDateTimeValue::Create(FdoDateTime()),
      FdoDateTimeValue::Create(FdoDateTime(FdoInt16{2023}, FdoInt8{2}, FdoInt8{29})),
      FdoDateTimeValue::Create(FdoDateTime(FdoInt8{24}, FdoInt8{0}, 0.0f)),
      FdoGeometryValue::Create(array),
      FdoBinaryExpression::Create(),
      FdoUnaryExpression::Create(),
      FdoComputedIdentifier::Create(),
  };
  for (FdoPtr<FdoExpression> const& node : nodes) {
    try {
      ADD_FAILURE() << static_cast<char const*>(FdoStringP(node->ToString()));
    } catch (FdoExpressionException* caught) {
      FdoPtr<FdoException> failure(caught);
      EXPECT_NE(failure->GetExceptionMessage(), nullptr);
    }
  }
}

TEST(ExpressionText, RefusalsNameThePlaceWhatStandsThereAndWhatWasExpected) {
  constexpr TextRefusal kRows[] = {
      {L"", "Character 1: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"  ", "Character 3: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"a +", "Character 4: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"a + and b", "Character 5: expected a value, a name, \"(\", \"-\" or NOT, but found \"and\"."},
      {L"(a + b", "Character 7: expected an operator or \")\", but found the end of the text."},
      {L"a + b)", "Character 6: expected an operator or the end of the text, but found \")\"."},
      {L"a b", "Character 3: expected an operator or the end of the text, but found \"b\"."},
      {L"a = 1", "Character 3: expected an operator or the end of the text, but found \"=\"."},
      {L"f(a", "Character 4: expected an operator, \",\" or \")\", but found the end of the text."},
      {L"f(a,)", "Character 5: expected a value, a name, \"(\", \"-\" or NOT, but found \")\"."},
      {L"f(a = 1)", "Character 5: expected an operator, \",\" or \")\", but found \"=\"."},
      {L"'abc", "Character 1: the text that begins here has no closing '."},
      {L"1 + \"abc", "Character 5: the name that begins here has no closing \"."},
      {L"a.", "Character 3: expected a name after \".\"."},
      {L"a:1", "Character 3: expected a name after \":\"."},
      {L": x", "Character 2: expected the name of a parameter after \":\"."},
      {L"a ! b", "Character 3: the character \"!\" has no meaning here."},
      {L"1e999", "Character 1: expected a number in the range of a double, but found \"1e999\"."},
      {L"DATE 5", "Character 6: expected a date as 'YYYY-MM-DD', but found \"5\"."},
      {L"DATE '2023-02-29'", "Character 6: expected a date as 'YYYY-MM-DD', but found \"'2023-02-29'\"."},
      {L"TIME '24:00:00'", "Character 6: expected a time as 'HH:MM:SS', but found \"'24:00:00'\"."},
      {L"TIMESTAMP '2024-01-01'",
       "Character 11: expected a date and time as 'YYYY-MM-DD HH:MM:SS', but found \"'2024-01-01'\"."},
      {L"BLOB '0'", "Character 6: expected bytes as pairs of hexadecimal digits, but found \"'0'\"."},
      {L"GeomFromText('POINT 1')", "Character 21: expected \"(\", but found \"1\"."},
      {L"GeomFromText(5)",
       "Character 14: expected the text of a geometry in single quotes, but found \"5\"."},
      {L"(a = 1) + 2", "Character 9: expected AND, OR, \")\" or the end of a condition, but found \"+\"."},
  };
  for (TextRefusal const& row : kRows) ExpectRefusal<FdoExpression, FdoExpressionException>(row);
}

TEST(ExpressionText, LongTokensAreCutInMessages) {
  FdoStringP text = L"a ";
  for (int i = 0; i < 100; ++i) text += L"x";
  try {
    FdoPtr<FdoExpression> tree = FdoExpression::Parse(text);
    ADD_FAILURE();
  } catch (FdoExpressionException* caught) {
    FdoPtr<FdoException> failure(caught);
    FdoStringP const message = failure->GetExceptionMessage();
    EXPECT_TRUE(message.Contains(L"xxx...\"")) << static_cast<char const*>(message);
    EXPECT_LT(message.GetLength(), 120u);
  }
}

TEST(ExpressionText, NullTextIsAnEmptyText) {
  EXPECT_TRUE((fdo_sdk::Throws<FdoExpressionException>([&] { FdoExpression::Parse(nullptr); })));
}

}  // namespace
}  // namespace fdo_sdk
