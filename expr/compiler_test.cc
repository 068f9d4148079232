// What trees are compiled to.
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "expr/function_table.h"
#include "expr/op_table.h"
#include "port/small_stack.h"
#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr ExprOptions kAll{/*allConditions=*/true, /*nullIsUnknown=*/false};

TableDef const& Def() {
  static TableDef const def =
      MakeTableDef(L"s", L"t", L"id:Int64 a:Int32 b:Double name:String shape:Geometry");
  return def;
}

// The lines of the listing, joined by "; ", blanks between opcode and operand as one.
std::string Joined(std::wstring const& listing) {
  std::string joined;
  for (char const unit : ToUtf8(listing.c_str())) {
    if (unit == '\n') {
      joined += "; ";
    } else if (unit != ' ' || joined.back() != ' ') {
      joined += unit;
    }
  }
  if (!joined.empty()) joined.resize(joined.size() - 2);
  return joined;
}

std::string ExpressionListing(FdoExpression* expression, TableDef const* table = nullptr) {
  return Joined(ExprEval(expression, table, nullptr).Listing(table));
}
std::string FilterListing(wchar_t const* text, TableDef const* table = nullptr,
                          ExprOptions const& options = {}) {
  return Joined(ExprEval(ParsedFilter(text), table, nullptr, options).Listing(table));
}

struct Case {
  wchar_t const* text;
  char const* listing;
};

template <class Construct>
std::string StandardMessage(Construct construct) {
  try {
    construct();
  } catch (std::exception const& failure) {
    return failure.what();
  }
  return "";
}

TEST(ExprCompiler, ExpressionsInPostfixOrderRightOperandFirst) {
  Case const cases[] = {
      {L"1 + 2.5", "OpPushLiteral 2.5; OpPushLiteral 1; OpAdd"},
      {L"a - b", "OpPushFieldByName b; OpPushFieldByName a; OpSub"},
      {L"a * b / 2", "OpPushLiteral 2; OpPushFieldByName b; OpPushFieldByName a; OpMul; OpDiv"},
      {L"-a", "OpPushFieldByName a; OpNeg"},
      {L"sin(a)", "OpPushFieldByName a; OpFunction 7 sin"},
      {L"atan2(1, 2)", "OpPushLiteral 2; OpPushLiteral 1; OpFunction 18 atan2"},
      {L"POWER(a, 2)", "OpPushLiteral 2; OpPushFieldByName a; OpFunction 16 pow"},
      {L"pow(a, 2)", "OpPushLiteral 2; OpPushFieldByName a; OpFunction 16 pow"},
      {L"random()", "OpFunction 23 random"},
      {L"currentdate()", "OpFunction 24 CurrentDate"},
      {L"Concat('a', 3)", "OpPushLiteral 3; OpPushLiteral 'a'; OpPushLiteral 2; OpFunction 25 concat"},
      {L"CONCAT()", "OpPushLiteral 0; OpFunction 25 concat"},
      {L"lookup(1, 2)", "OpPushLiteral 2; OpPushLiteral 1; OpPushLiteral 2; OpFunction 32 lookup"},
      {L"trunc(a)", "OpPushFieldByName a; OpFunction 26 trunc"},
      {L"trunc(a, 0)", "OpPushLiteral 0; OpPushFieldByName a; OpFunction 33 trunc"},
      {L"trunc(a, 0, 0)", "OpPushLiteral 0; OpPushLiteral 0; OpPushFieldByName a; OpFunction 26 trunc"},
      {L"ROUND(a)", "OpPushFieldByName a; OpFunction 27 round"},
      {L"round(a, 2)", "OpPushLiteral 2; OpPushFieldByName a; OpFunction 34 round"},
      {L"TRUE", "OpPushLiteral TRUE"},
      {L"NULL", "OpPushLiteral NULL"},
      {L"'it''s'", "OpPushLiteral 'it''s'"},
      {L"3000000000", "OpPushLiteral 3000000000"},
      {L"2.0", "OpPushLiteral 2.0"},
      {L"DATE '2024-03-01'", "OpPushLiteral '2024-03-01'"},
      {L"TIME '14:30:05.5'", "OpPushLiteral '14:30:05.500'"},
      {L"TIMESTAMP '2024-03-01 14:30:05.5'", "OpPushLiteral '2024-03-01T14:30:05.500'"},
      {L":p", ""},
      {L"GeomFromText('POINT (1 2)')", "OpPushLiteral X'0100000000000000000000000000F03F0000000000000040'"},
  };
  for (Case const& test : cases) {
    EXPECT_EQ(ExpressionListing(ParsedExpression(test.text)), test.listing) << ToUtf8(test.text);
  }
}

TEST(ExprCompiler, FiltersInPostfixOrderRightOperandFirst) {
  Case const cases[] = {
      {L"a = 1 AND b = 2",
       "OpPushLiteral 2; OpPushFieldByName b; OpEqual; OpPushLiteral 1; OpPushFieldByName a; OpEqual; OpAnd"},
      {L"a <> 1 OR b > 2",
       "OpPushLiteral 2; OpPushFieldByName b; OpGreater; OpPushLiteral 1; OpPushFieldByName a; OpNotEqual; "
       "OpOr"},
      {L"NOT a >= 1", "OpPushLiteral 1; OpPushFieldByName a; OpGreaterEqual; OpNot"},
      {L"a < b", "OpPushFieldByName b; OpPushFieldByName a; OpLess"},
      {L"a <= b", "OpPushFieldByName b; OpPushFieldByName a; OpLessEqual"},
      {L"a LIKE 'x%'", "OpPushLiteral 'x%'; OpPushFieldByName a; OpLike"},
      {L"a NULL", "OpPushFieldByName a; OpIsNull"},
      {L"s.a NULL", "OpPushFieldByName a; OpIsNull"},
      {L"shape INTERSECTS GeomFromText('POINT (1 2)')",
       "OpPushLiteral X'0100000000000000000000000000F03F0000000000000040'; OpPushFieldByName shape; "
       "OpSpatial 4 "
       "INTERSECTS"},
      {L"shape ENVELOPEINTERSECTS :p", "OpPushFieldByName shape; OpSpatial 10 ENVELOPEINTERSECTS"},
  };
  for (Case const& test : cases) EXPECT_EQ(FilterListing(test.text), test.listing) << ToUtf8(test.text);
}

TEST(ExprCompiler, ConditionsThatOptionsAllow) {
  EXPECT_EQ(FilterListing(L"a IN (1, 'x')", nullptr, kAll),
            "OpPushLiteral 'x'; OpPushLiteral 1; OpPushFieldByName a; OpIn 2");
  EXPECT_EQ(FilterListing(L"shape WITHINDISTANCE :p 2", nullptr, kAll),
            "OpPushLiteral 2.0; OpPushFieldByName shape; OpDistance 1 WITHINDISTANCE");
}

TEST(ExprCompiler, AnOperationThatDoesNotExistIsNoOpcode) {
  FdoPtr<FdoComparisonCondition> const comparison = FdoComparisonCondition::Create(
      ParsedExpression(L"1"), static_cast<FdoComparisonOperations>(7), ParsedExpression(L"2"));
  EXPECT_EQ(Joined(ExprEval(comparison, nullptr, nullptr).Listing()),
            "OpPushLiteral 2; OpPushLiteral 1; Op0");
}

// The literal types of FDO, null and not.
TEST(ExprCompiler, LiteralsOfEveryType) {
  FdoByte const bytes[] = {1};
  struct {
    FdoPtr<FdoExpression> value;
    char const* listing;
  } const cases[] = {
      {FdoPtr<FdoExpression>(FdoBooleanValue::Create(false)), "OpPushLiteral FALSE"},
      {FdoPtr<FdoExpression>(FdoByteValue::Create(200)), "OpPushLiteral 200"},
      {FdoPtr<FdoExpression>(FdoInt16Value::Create(-7)), "OpPushLiteral -7"},
      {FdoPtr<FdoExpression>(FdoInt32Value::Create(7)), "OpPushLiteral 7"},
      {FdoPtr<FdoExpression>(FdoInt64Value::Create(FdoInt64{1} << 40)), "OpPushLiteral 1099511627776"},
      {FdoPtr<FdoExpression>(FdoDecimalValue::Create(0.1)), "OpPushLiteral 0.1"},
      {FdoPtr<FdoExpression>(FdoDoubleValue::Create(1e20)), "OpPushLiteral 1e+20"},
      {FdoPtr<FdoExpression>(FdoSingleValue::Create(0.5f)), "OpPushLiteral 0.5"},
      {FdoPtr<FdoExpression>(FdoStringValue::Create(L"x")), "OpPushLiteral 'x'"},
      {FdoPtr<FdoExpression>(FdoDateTimeValue::Create(FdoDateTime())), "OpPushLiteral ''"},
      {FdoPtr<FdoExpression>(FdoBooleanValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoByteValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoInt16Value::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoInt32Value::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoInt64Value::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoDecimalValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoDoubleValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoSingleValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoStringValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoDateTimeValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoGeometryValue::Create()), "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoGeometryValue::Create(FdoPtr<FdoByteArray>(FdoByteArray::Create(bytes, 0)))),
       "OpPushLiteral NULL"},
      {FdoPtr<FdoExpression>(FdoGeometryValue::Create(FdoPtr<FdoByteArray>(FdoByteArray::Create(bytes, 1)))),
       "OpPushLiteral X'01'"},
      {FdoPtr<FdoExpression>(FdoBLOBValue::Create(FdoPtr<FdoByteArray>(FdoByteArray::Create(bytes, 1)))), ""},
      {FdoPtr<FdoExpression>(FdoCLOBValue::Create(FdoPtr<FdoByteArray>(FdoByteArray::Create(bytes, 1)))), ""},
      {FdoPtr<FdoExpression>(FdoParameter::Create(L"p")), ""},
      {FdoPtr<FdoExpression>(FdoComputedIdentifier::Create(L"c", ParsedExpression(L"1"))), ""},
      {FdoPtr<FdoExpression>(
           FdoSubSelectExpression::Create(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"t")),
                                          FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"a")))),
       ""},
  };
  for (auto const& test : cases) EXPECT_EQ(ExpressionListing(test.value), test.listing);
}

TEST(ExprCompiler, IdentifiersBecomePositionsInATable) {
  EXPECT_EQ(ExpressionListing(ParsedExpression(L"b + a"), &Def()), "OpPushField 1 a; OpPushField 2 b; OpAdd");
  EXPECT_EQ(StandardMessage([] { ExprEval(ParsedExpression(L"A"), &Def(), nullptr); }),
            "Unexpected identifier encountered.");
  EXPECT_EQ(StandardMessage([] { ExprEval(ParsedFilter(L"nowhere NULL"), &Def(), nullptr); }),
            "Unexpected identifier encountered.");
}

TEST(ExprCompiler, UsedColumnsAreSetAndNoneCleared) {
  bool used[] = {true, false, false, false, false};
  ExprEval eval(ParsedFilter(L"a = 1 OR name = 'x'"), &Def(), used);
  EXPECT_TRUE(used[0] && used[1] && used[3]);
  EXPECT_FALSE(used[2] || used[4]);
  EXPECT_EQ(eval.Columns(), (std::vector<int>{3, 1}));

  bool untouched[] = {false};
  ExprEval(ParsedFilter(L"a = 1"), nullptr, untouched);
  EXPECT_FALSE(untouched[0]);
}

TEST(ExprCompiler, MessagesOfWhatIsRefused) {
  EXPECT_EQ(StandardMessage([] { ExprEval(ParsedExpression(L"nothing(1)"), nullptr, nullptr); }),
            "Unknown function.");
  EXPECT_EQ(StandardMessage([] { ExprEval(ParsedFilter(L"a = 1 OR NOT b IN (1)"), nullptr, nullptr); }),
            "FdoInCondition not implemented yet for fdo::ExprEval.");
  EXPECT_EQ(StandardMessage([] {
              ExprEval(ParsedFilter(L"shape BEYOND GeomFromText('POINT (1 2)') 3"), nullptr, nullptr);
            }),
            "FdoDistanceCondition not implemented yet for fdo::ExprEval.");
  FdoPtr<FdoInCondition> const among =
      FdoInCondition::Create(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"a")),
                             FdoPtr<FdoSubSelectExpression>(FdoSubSelectExpression::Create(
                                 FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"t")),
                                 FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"b")))));
  EXPECT_EQ(StandardMessage([&] { ExprEval(among, nullptr, nullptr, kAll); }),
            "A sub-select cannot be evaluated.");
}

// Deliberate: LIKE is refused when it is reached, not before.
TEST(ExprCompiler, LikeCompiles) {
  EXPECT_EQ(StandardMessage([] { ExprEval(ParsedFilter(L"a LIKE 'x'"), nullptr, nullptr); }), "");
}

TEST(ExprCompiler, MissingTreesAndChildrenArePassedOver) {
  EXPECT_EQ(ExprEval(static_cast<FdoFilter*>(nullptr), nullptr, nullptr).Listing(), L"");
  EXPECT_EQ(ExpressionListing(FdoPtr<FdoExpression>(FdoBinaryExpression::Create())), "OpAdd");
  EXPECT_EQ(Joined(ExprEval(FdoPtr<FdoFilter>(FdoComparisonCondition::Create()), nullptr, nullptr).Listing()),
            "OpEqual");
  EXPECT_EQ(Joined(ExprEval(FdoPtr<FdoFilter>(FdoNullCondition::Create()), nullptr, nullptr).Listing()),
            "OpIsNull");
}

// A name is found in any case of its letters, an alias gives the same number, and each number has its form.
TEST(ExprCompiler, EveryFunctionByName) {
  for (internal::FunctionInfo const& info : internal::kFunctions) {
    if (info.name == nullptr) continue;
    std::wstring upper = info.name;
    for (wchar_t& unit : upper) unit = unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - 32) : unit;
    FdoPtr<FdoExpressionCollection> const arguments = FdoExpressionCollection::Create();
    for (int i = 0; i < info.arguments; ++i) arguments->Add(ParsedExpression(L"0"));
    FdoPtr<FdoFunction> const call = FdoFunction::Create(upper.c_str(), arguments);
    ExprEval const eval(call, nullptr, nullptr);
    std::string const listing = Joined(eval.Listing());
    EXPECT_NE(listing.find("OpFunction " + std::to_string(info.number) + " "), std::string::npos) << listing;
    EXPECT_TRUE(eval.IsComplete()) << listing;
  }
}

// --- Depth -------------------------------------------------------------------------------------

FdoPtr<FdoExpression> Negated(int times) {
  FdoPtr<FdoExpression> tree = ParsedExpression(L"1");
  for (int i = 0; i < times; ++i) tree = FdoUnaryExpression::Create(FdoUnaryOperations_Negate, tree);
  return tree;
}

enum class Side { kLeft, kRight };
FdoPtr<FdoFilter> Chain(int operands, FdoBinaryLogicalOperations operation, Side side) {
  FdoPtr<FdoFilter> const leaf = ParsedFilter(L"1 = 1");
  FdoPtr<FdoFilter> tree = leaf;
  for (int i = 1; i < operands; ++i) {
    tree = side == Side::kLeft ? FdoBinaryLogicalOperator::Create(tree, operation, leaf)
                               : FdoBinaryLogicalOperator::Create(leaf, operation, tree);
  }
  return tree;
}

// Runs on a stack that the depth of the trees would overflow if anything recursed.
void OnSmallStack(void (*body)()) {
  port::RunOnStack(
      256 * 1024, [](void* context) { (*static_cast<void (**)()>(context))(); }, &body);
}

TEST(ExprCompiler, NestingIsBounded) {
  OnSmallStack([] {
    for (int const depth : {10, 127, 128, ExprEval::kMaxDepth}) {
      ExprEval eval(Negated(depth - 1), nullptr, nullptr);
      EXPECT_EQ(Evaluated(eval, nullptr), depth % 2 == 1 ? "1" : "-1") << depth;
    }
    for (int const depth : {ExprEval::kMaxDepth + 1, 100000}) {
      FdoPtr<FdoExpression> const tree = Negated(depth - 1);
      EXPECT_EQ(StandardMessage([&] { ExprEval(tree, nullptr, nullptr); }),
                "The expression is nested too deeply.");
    }
  });
}

TEST(ExprCompiler, ChainsOfOneLogicalOperatorAreOneLevel) {
  OnSmallStack([] {
    for (FdoBinaryLogicalOperations const operation :
         {FdoBinaryLogicalOperations_And, FdoBinaryLogicalOperations_Or}) {
      for (Side const side : {Side::kLeft, Side::kRight}) {
        FdoPtr<FdoFilter> const tree = Chain(20000, operation, side);
        ExprEval eval(tree, nullptr, nullptr);
        EXPECT_EQ(Evaluated(eval, nullptr), "TRUE");
      }
    }
  });
}

TEST(ExprCompiler, AStackAsDeepAsTheProgramNeeds) {
  EXPECT_EQ(ExprEvalTestPeer::StackSize(ExprEval(ParsedExpression(L"1"), nullptr, nullptr)), 16u);
  FdoPtr<FdoFilter> const tree = Chain(100, FdoBinaryLogicalOperations_And, Side::kLeft);
  EXPECT_EQ(ExprEvalTestPeer::StackSize(ExprEval(tree, nullptr, nullptr)), 101u);
}

// --- Tables ------------------------------------------------------------------------------------

TEST(ExprTables, NumbersThatAreNeverUsed) {
  EXPECT_EQ(internal::FindFunction(17LL), nullptr);
  EXPECT_EQ(internal::FindFunction(0LL), nullptr);
  EXPECT_EQ(internal::FindFunction(39LL), nullptr);
  EXPECT_EQ(internal::FindOp(0), nullptr);
  EXPECT_EQ(internal::FindOp(16), nullptr);
}

TEST(ExprTables, NamesAreDifferent) {
  std::set<std::wstring> names;
  for (internal::FunctionInfo const& info : internal::kFunctions) {
    if (info.name == nullptr) continue;
    EXPECT_TRUE(names.insert(info.name).second) << ToUtf8(info.name);
  }
  EXPECT_EQ(names.size(), 36u);
}

}  // namespace
}  // namespace fdo
