// FdoFilter::Parse, ToString and Combine.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Fdo.h"
#include "sdk/runtime/core/thrown.h"
#include "sdk/runtime/text/text_claims.h"
#include "sdk/runtime/text/tree_shape.h"

namespace fdo_sdk {
namespace {

TEST(FilterText, Comparisons) {
  constexpr TextRow kRows[] = {
      {L"1=1", "=(int32 1, int32 1)", L"1 = 1"},
      {L"a<>1", "<>(name a, int32 1)", L"a <> 1"},
      {L"a>1", ">(name a, int32 1)", L"a > 1"},
      {L"a>=1", ">=(name a, int32 1)", L"a >= 1"},
      {L"a<1", "<(name a, int32 1)", L"a < 1"},
      {L"a<=1", "<=(name a, int32 1)", L"a <= 1"},
      {L"a like 'x[a-f]%'", "LIKE(name a, string x[a-f]%)", L"a LIKE 'x[a-f]%'"},
      {L"a<-1", "<(name a, int32 -1)", L"a < -1"},
      {L"a+1 = b*2", "=(+(name a, int32 1), *(name b, int32 2))", L"a + 1 = b * 2"},
      {L"(a+1) = 2", "=(+(name a, int32 1), int32 2)", L"a + 1 = 2"},
      {L"(a)=(1)", "=(name a, int32 1)", L"a = 1"},
      {L"a = NULL", "=(name a, null string)", L"a = NULL"},
      {L"a = :p", "=(name a, parameter p)", L"a = :p"},
      {L"a=:p", "=(name a, parameter p)", L"a = :p"},
      {L"TRUE = b", "=(boolean true, name b)", L"TRUE = b"},
      {L"\"a b\" = 'c'", "=(name a b, string c)", L"\"a b\" = 'c'"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoFilter>(row);
}

TEST(FilterText, OperatorsByPrecedenceAndFromTheLeft) {
  constexpr TextRow kRows[] = {
      {L"a=1 AND b=2 OR c=3", "OR(AND(=(name a, int32 1), =(name b, int32 2)), =(name c, int32 3))",
       L"a = 1 AND b = 2 OR c = 3"},
      {L"a=1 or b=2 and c=3", "OR(=(name a, int32 1), AND(=(name b, int32 2), =(name c, int32 3)))",
       L"a = 1 OR b = 2 AND c = 3"},
      {L"(a=1 OR b=2) AND c=3", "AND(OR(=(name a, int32 1), =(name b, int32 2)), =(name c, int32 3))",
       L"(a = 1 OR b = 2) AND c = 3"},
      {L"a=1 AND b=2 AND c=3", "AND(AND(=(name a, int32 1), =(name b, int32 2)), =(name c, int32 3))",
       L"a = 1 AND b = 2 AND c = 3"},
      {L"a=1 AND (b=2 AND c=3)", "AND(=(name a, int32 1), AND(=(name b, int32 2), =(name c, int32 3)))",
       L"a = 1 AND (b = 2 AND c = 3)"},
      {L"NOT a=1", "NOT(=(name a, int32 1))", L"NOT a = 1"},
      {L"NOT a=1 AND b=2", "AND(NOT(=(name a, int32 1)), =(name b, int32 2))", L"NOT a = 1 AND b = 2"},
      {L"NOT (a=1 AND b=2)", "NOT(AND(=(name a, int32 1), =(name b, int32 2)))", L"NOT (a = 1 AND b = 2)"},
      {L"not not a null", "NOT(NOT(NULL(name a)))", L"NOT NOT a NULL"},
      {L"((a=1))", "=(name a, int32 1)", L"a = 1"},
      {L"NOT(a=1)", "NOT(=(name a, int32 1))", L"NOT a = 1"},
      {L"a=1AND b=2", "AND(=(name a, int32 1), =(name b, int32 2))", L"a = 1 AND b = 2"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoFilter>(row);
}

TEST(FilterText, NullTestsAndLists) {
  constexpr TextRow kRows[] = {
      {L"a NULL", "NULL(name a)", L"a NULL"},
      {L"NOT a null", "NOT(NULL(name a))", L"NOT a NULL"},
      {L"Address.City NULL", "NULL(name Address.City)", L"Address.City NULL"},
      {L"a IN (1)", "IN(name a, int32 1)", L"a IN (1)"},
      {L"a in(1,'x',:p,-2.5,NULL,TRUE)",
       "IN(name a, int32 1, string x, parameter p, double -2.5, null string, boolean true)",
       L"a IN (1, 'x', :p, -2.5, NULL, TRUE)"},
      {L"d IN (DATE '2024-01-02')", "IN(name d, datetime 2024-1-2 -1:-1:0)", L"d IN (DATE '2024-01-02')"},
      {L"a IN (SELECT b FROM c WHERE d = 1)", "IN(name a, select((name b, name c) where =(name d, int32 1)))",
       L"a IN (SELECT b FROM c WHERE d = 1)"},
      {L"a NULL AND b IN (2)", "AND(NULL(name a), IN(name b, int32 2))", L"a NULL AND b IN (2)"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoFilter>(row);
}

TEST(FilterText, SpatialConditionsInTheOrderOfTheirEnumeration) {
  constexpr wchar_t const* kWords[] = {L"CONTAINS",   L"CROSSES",  L"DISJOINT",          L"EQUALS",
                                       L"INTERSECTS", L"OVERLAPS", L"TOUCHES",           L"WITHIN",
                                       L"COVEREDBY",  L"INSIDE",   L"ENVELOPEINTERSECTS"};
  for (int operation = 0; operation <= FdoSpatialOperations_EnvelopeIntersects; ++operation) {
    FdoStringP const text = FdoStringP(L"geom ") + kWords[operation] + L" GeomFromText('POINT (1 2)')";
    FdoPtr<FdoFilter> tree = FdoFilter::Parse(text.Lower().Replace(L"geomfromtext", L"GEOMFROMTEXT"));
    std::string const shape = "spatial " + std::to_string(operation) +
                              "(name geom, geometry 0100000000000000000000000000f03f0000000000000040)";
    EXPECT_EQ(ShapeOf(tree), shape);
    EXPECT_STREQ(tree->ToString(), text);
  }
}

TEST(FilterText, GeometricConditions) {
  constexpr TextRow kRows[] = {
      {L"g INTERSECTS :p", "spatial 4(name g, parameter p)", L"g INTERSECTS :p"},
      {L"g INTERSECTS Buffer(h, 2) AND a = 1",
       "AND(spatial 4(name g, call Buffer(name h, int32 2)), =(name a, int32 1))",
       L"g INTERSECTS Buffer(h, 2) AND a = 1"},
      {L"g BEYOND h 10", "distance 0 10(name g, name h)", L"g BEYOND h 10"},
      {L"g withindistance GeomFromText('POINT (0 0)') 2.5",
       "distance 1 2.5(name g, geometry 01000000000000000000000000000000000000000000"
       "0000)",
       L"g WITHINDISTANCE GeomFromText('POINT (0 0)') 2.5"},
      {L"NOT g WITHIN h OR g TOUCHES h", "OR(NOT(spatial 7(name g, name h)), spatial 6(name g, name h))",
       L"NOT g WITHIN h OR g TOUCHES h"},
  };
  for (TextRow const& row : kRows) ExpectTree<FdoFilter>(row);
}

TEST(FilterText, RefusalsNameThePlaceWhatStandsThereAndWhatWasExpected) {
  constexpr TextRefusal kRows[] = {
      {L"", "Character 1: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"a", "Character 2: expected a comparison or another condition, but found the end of the text."},
      {L"TRUE", "Character 5: expected a comparison or another condition, but found the end of the text."},
      {L"a =", "Character 4: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"a = 1 AND",
       "Character 10: expected a value, a name, \"(\", \"-\" or NOT, but found the end of the text."},
      {L"a AND b", "Character 3: expected a comparison or another condition, but found \"AND\"."},
      {L"a = 1 OR b",
       "Character 11: expected a comparison or another condition, but found the end of the text."},
      {L"a = 1 = 2", "Character 7: expected AND, OR, \")\" or the end of a condition, but found \"=\"."},
      {L"(a = 1", "Character 7: expected an operator or \")\", but found the end of the text."},
      {L"a = 1)", "Character 6: expected an operator or the end of the text, but found \")\"."},
      {L"a IS NULL", "Character 3: expected a comparison or another condition, but found \"IS\"."},
      {L"a BETWEEN 1 AND 2",
       "Character 3: expected a comparison or another condition, but found \"BETWEEN\"."},
      {L"a IN 1", "Character 6: expected \"(\", but found \"1\"."},
      {L"a IN ()", "Character 7: expected a value, a name, \"(\", \"-\" or NOT, but found \")\"."},
      {L"a IN (b)", "Character 7: expected a literal or a parameter."},
      {L"a IN (1 2)", "Character 9: expected \",\" or \")\", but found \"2\"."},
      {L"5 IN (1)", "Character 3: expected the name of a property before \"IN\"."},
      {L"f(a) NULL", "Character 6: expected the name of a property before \"NULL\"."},
      {L"g BEYOND h", "Character 11: expected a distance that is a number, but found the end of the text."},
      {L"g BEYOND h -5",
       "Character 14: expected a distance that is a number, but found the end of the text."},
      {L"NOT 5", "Character 6: expected a comparison or another condition, but found the end of the text."},
      {L"a = 'it's'", "Character 9: expected an operator or the end of the text, but found \"s\"."},
      {L"a == 1", "Character 4: expected a value, a name, \"(\", \"-\" or NOT, but found \"=\"."},
      {L"a = 1; DROP", "Character 6: the character \";\" has no meaning here."},
      {L"NOT = 1", "Character 5: expected a value, a name, \"(\", \"-\" or NOT, but found \"=\"."},
      {L"g INTERSECTS GeomFromText('LINESTRING (0 0, 1)')",
       "Character 46: expected an ordinate, but found \")\"."},
  };
  for (TextRefusal const& row : kRows) ExpectRefusal<FdoFilter, FdoFilterException>(row);
}

TEST(FilterText, WhatHasNoTextIsRefused) {
  FdoPtr<FdoExpression> a = FdoIdentifier::Create(L"a");
  FdoPtr<FdoExpression> infinite = FdoDoubleValue::Create(HUGE_VAL);
  FdoPtr<FdoFilter> const nodes[] = {
      FdoBinaryLogicalOperator::Create(),
      FdoUnaryLogicalOperator::Create(),
      FdoComparisonCondition::Create(),
      FdoComparisonCondition::Create(a, FdoComparisonOperations_EqualTo, infinite),
      FdoInCondition::Create(),
      FdoInCondition::Create(L"a", nullptr, 0),
      FdoNullCondition::Create(),
      FdoSpatialCondition::Create(),
      FdoDistanceCondition::Create(),
      FdoDistanceCondition::Create(L"a", FdoDistanceOperations_Beyond, a, -1.0),
  };
  for (FdoPtr<FdoFilter> const& node : nodes) {
    try {
      ADD_FAILURE() << static_cast<char const*>(FdoStringP(node->ToString()));
    } catch (FdoFilterException* caught) {
      FdoPtr<FdoException> failure(caught);
      EXPECT_NE(failure->GetExceptionMessage(), nullptr);
    }
  }
}

TEST(FilterText, CombineJoinsFiltersAndTexts) {
  FdoPtr<FdoFilter> a = FdoFilter::Parse(L"a = 1 OR a = 2");
  FdoPtr<FdoFilter> b = FdoFilter::Parse(L"b = 3");
  FdoPtr<FdoFilter> const all[] = {
      FdoFilter::Combine(a.p, FdoBinaryLogicalOperations_And, b.p),
      FdoFilter::Combine(L"a = 1 OR a = 2", FdoBinaryLogicalOperations_And, b.p),
      FdoFilter::Combine(a.p, FdoBinaryLogicalOperations_And, L"b = 3"),
      FdoFilter::Combine(L"a = 1 OR a = 2", FdoBinaryLogicalOperations_And, L"b = 3"),
  };
  for (FdoPtr<FdoFilter> const& filter : all) EXPECT_STREQ(filter->ToString(), L"(a = 1 OR a = 2) AND b = 3");

  FdoPtr<FdoFilter> alone =
      FdoFilter::Combine(static_cast<FdoFilter*>(nullptr), FdoBinaryLogicalOperations_Or, b.p);
  EXPECT_EQ(alone.p, b.p);
  EXPECT_TRUE((fdo_sdk::Throws<FdoFilterException>(
      [&] { FdoFilter::Combine(L"a =", FdoBinaryLogicalOperations_Or, b.p); })));
}

TEST(FilterText, ComputedIdentifiersAreWrittenAsTheirExpressions) {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(L"total > 5 AND b = 1");
  FdoPtr<FdoExpression> sum = FdoExpression::Parse(L"a + total");
  FdoPtr<FdoIdentifierCollection> names = FdoIdentifierCollection::Create();
  FdoPtr<FdoIdentifier> plain = FdoIdentifier::Create(L"b");
  FdoPtr<FdoComputedIdentifier> total = FdoComputedIdentifier::Create(L"total", sum);
  names->Add(plain);
  names->Add(total);
  EXPECT_STREQ(filter->ToStringInternal(names), L"a + total > 5 AND b = 1");
  EXPECT_STREQ(filter->ToString(), L"total > 5 AND b = 1");
}

TEST(FilterText, TextsOfListValuesAreParsed) {
  FdoString* values[] = {L"1", L"'x'", L":p"};
  FdoPtr<FdoInCondition> condition = FdoInCondition::Create(L"a", values, 3);
  EXPECT_STREQ(condition->ToString(), L"a IN (1, 'x', :p)");
  FdoString* bad[] = {L"1 +"};
  EXPECT_TRUE((fdo_sdk::Throws<FdoExpressionException>([&] { FdoInCondition::Create(L"a", bad, 1); })));
}

}  // namespace
}  // namespace fdo_sdk
