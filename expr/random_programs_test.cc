// Random trees and rows: the machine against a reference that walks the tree, and its larger steps against
// its instructions one by one. QUILLON_RANDOM_TREES says how many trees; the plain suite takes some.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "testing/random_trees.h"
#include "testing/tree_evaluator.h"

namespace fdo {
namespace {

constexpr int kTrees = 36000;
constexpr int kRowsPerTree = 4;

int TreeCount() {
  char const* const wanted = std::getenv("QUILLON_RANDOM_TREES");
  return wanted == nullptr ? kTrees : std::atoi(wanted);
}

struct Mode {
  char const* name;
  ExprOptions options;
  RandomTrees::Contents contents;
};

// Each: like, in, spatial, traps, holes.
constexpr Mode kModes[] = {
    {"plain", {false, false}, {false, false, false, false, false}},
    {"plain with what throws", {false, false}, {true, false, true, false, true}},
    {"all conditions", {true, false}, {true, true, true, true, true}},
    {"null is unknown", {false, true}, {false, false, false, false, false}},
    {"both", {true, true}, {true, true, true, true, true}},
    {"as in SQL", ExprOptions::AsInSql(), {true, true, true, true, true}},
};

// Calls check(eval, filter or expression, row) for trees of every kind. Half of the trees are filters.
template <class Check>
void ForRandomTrees(Mode const& mode, std::uint64_t seed, Check check) {
  RandomTrees trees(seed, mode.contents);
  std::vector<Row> rows(kRowsPerTree, Row(&RandomTrees::Def()));
  int const count = TreeCount() / static_cast<int>(std::size(kModes));
  for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    if (i % 16 == 0) {
      for (Row& row : rows) trees.Fill(row);
    }
    if (i % 2 == 0) {
      FdoPtr<FdoFilter> const filter = trees.Filter(3);
      ExprEval eval(filter, &RandomTrees::Def(), nullptr, mode.options);
      for (Row const& row : rows) check(eval, filter.p, row);
    } else {
      FdoPtr<FdoExpression> const expression = trees.Expression(4);
      ExprEval eval(expression, &RandomTrees::Def(), nullptr, mode.options);
      for (Row const& row : rows) check(eval, expression.p, row);
    }
  }
}

std::string Shown(ExprEval const& eval, Row const& row) {
  std::string shown = ToUtf8(eval.Listing(row.Def()).c_str());
  for (int i = 0; i < row.Def()->ColumnCount(); ++i) {
    shown += ToUtf8((*row.Def())[i].Name()) + " = " + TextOf(row[i]) + "\n";
  }
  return shown;
}

TEST(TreeEvaluator, AgreesWithTheMachine) {
  for (Mode const& mode : kModes) {
    std::uint64_t const seed = 20240301;
    SCOPED_TRACE(std::string(mode.name) + ", seed " + std::to_string(seed));
    int values = 0;
    int failures = 0;
    int throwing = 0;
    ForRandomTrees(mode, seed, [&](ExprEval& eval, auto* tree, Row const& row) {
      Outcome const expected = EvaluateTree(tree, row, mode.options);
      Outcome const actual = EvaluateProgram(eval, row);
      // A tree with a hole is never run, so that nothing in it throws.
      bool const same = expected.kind == Outcome::kThrows && actual.kind == Outcome::kFails
                            ? mode.contents.holes && !eval.IsComplete()
                            : expected == actual;
      EXPECT_TRUE(same) << "expected " << TextOf(expected) << ", got " << TextOf(actual) << "\n"
                        << Shown(eval, row);
      ++(actual.kind == Outcome::kValue ? values : actual.kind == Outcome::kFails ? failures : throwing);
    });
    if (HasFailure()) return;
    EXPECT_GT(values, failures + throwing);
    EXPECT_EQ(failures > 0, mode.contents.holes);
    EXPECT_EQ(throwing > 0, mode.contents.like && !mode.options.allConditions);
  }
}

TEST(FusedConditions, AgreeWithTheInstructionsOneByOne) {
  for (Mode const& mode : kModes) {
    std::uint64_t const seed = 20240302;
    SCOPED_TRACE(std::string(mode.name) + ", seed " + std::to_string(seed));
    int fused = 0;
    ForRandomTrees(mode, seed, [&](ExprEval& eval, auto*, Row const& row) {
      if (!ExprEvalTestPeer::IsFused(eval)) return;
      ++fused;
      Value stepwise;
      Value steps;
      ASSERT_TRUE(ExprEvalTestPeer::EvalStepwise(eval, &row, &stepwise));
      ASSERT_TRUE(eval.Eval(&row, &steps));
      EXPECT_EQ(stepwise.Type(), steps.Type());
      EXPECT_EQ(stepwise.AsBool(), steps.AsBool()) << Shown(eval, row);
    });
    EXPECT_GT(fused, 0);
  }
}

// Up to four tests of a column against a literal, over cells of every kind.
class RandomChains {
 public:
  explicit RandomChains(std::uint64_t seed) : random_(seed) {
    ColumnDef columns[3];
    columns[0].Initialize(L"i", ColumnDef::kInt64, 0, Value(), nullptr);
    columns[1].Initialize(L"d", ColumnDef::kDouble, 0, Value(), nullptr);
    columns[2].Initialize(L"s", ColumnDef::kString, 0, Value(), nullptr);
    def_.Initialize(L"rows", L"", columns, 3, 0, -1, 0);
  }

  TableDef const& Def() const { return def_; }

  std::wstring Filter() {
    static constexpr wchar_t const* kColumns[] = {L"i", L"d", L"d * 2.0", L"2.5 * d", L"s", L"i", L"d", L"s"};
    static constexpr wchar_t const* kOps[] = {L" < ", L" <= ", L" > ", L" >= ", L" = ", L" <> "};
    static constexpr wchar_t const* kNumbers[] = {L"3", L"0", L"-1"};
    static constexpr wchar_t const* kReals[] = {L"2.5", L"0.0", L"5.0"};
    static constexpr wchar_t const* kTexts[] = {L"'road'", L"''", L"'r'", L"'ro'", L"'roa'"};
    wchar_t const* const joint = Below(2) == 0 ? L" AND " : L" OR ";
    std::wstring text;
    for (std::size_t i = Below(4) + 1; i > 0; --i) {
      std::wstring const column = kColumns[Below(std::size(kColumns))];
      if (Below(6) == 0) text += L"NOT ";
      text += column + kOps[Below(std::size(kOps))];
      text += column == L"s"   ? kTexts[Below(std::size(kTexts))]
              : column == L"i" ? kNumbers[Below(std::size(kNumbers))]
                               : kReals[Below(std::size(kReals))];
      if (i > 1) text += joint;
    }
    return text;
  }

  // Mostly of the column's own kind. Texts are borrowed now and then.
  void Fill(Row& row) {
    for (int column = 0; column < 3; ++column) {
      FillCell(row[column], Below(5) == 0 ? static_cast<int>(Below(6)) : column);
    }
  }

 private:
  void FillCell(Value& cell, int kind) {
    static constexpr double kReals[] = {2.5, 2.0, -0.0, 0.0, 1e300, -INFINITY, INFINITY, NAN, 3.0};
    static constexpr wchar_t const* kTexts[] = {L"", L"r", L"ro", L"road", L"roads", L"rob", L"s", L"roa"};
    switch (kind) {
      case 0:
        cell.Reset(static_cast<long long>(Below(6)) - 1);
        break;
      case 1:
        cell.Reset(kReals[Below(std::size(kReals))]);
        break;
      case 2:
        cell.Reset(kTexts[Below(std::size(kTexts))], /*copy=*/Below(2) == 0);
        break;
      case 3:
        cell.Reset(Below(2) == 0);
        break;
      case 4:
        cell.Invalidate();
        break;
      default:
        cell.Reset();
        break;
    }
  }

  std::size_t Below(std::size_t end) { return random_() % end; }

  std::mt19937_64 random_;
  TableDef def_;
};

constexpr ExprOptions kMeanings[] = {{}, {false, /*nullIsUnknown=*/true}, ExprOptions::AsInSql()};

TEST(FusedConditions, ChainsOfTestsAgreeOverCellsOfEveryKind) {
  constexpr std::uint64_t kSeed = 20261123;
  RandomChains chains(kSeed);
  std::vector<Row> rows(16, Row(&chains.Def()));
  int holding = 0;
  int failing = 0;
  for (std::size_t i = 0; i < 6000; ++i) {
    std::wstring const text = chains.Filter();
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text.c_str());
    ExprEval eval(filter, &chains.Def(), nullptr, kMeanings[i % std::size(kMeanings)]);
    ASSERT_TRUE(ExprEvalTestPeer::IsFused(eval));
    for (Row& row : rows) {
      chains.Fill(row);
      Value stepwise;
      Value steps;
      ASSERT_TRUE(ExprEvalTestPeer::EvalStepwise(eval, &row, &stepwise));
      ASSERT_TRUE(eval.Eval(&row, &steps));
      ASSERT_EQ(stepwise.Type(), steps.Type());
      ASSERT_EQ(stepwise.AsBool(), steps.AsBool())
          << "seed " << kSeed << ", filter " << i << ": " << ToUtf8(text.c_str()) << "\n"
          << Shown(eval, row);
      ASSERT_EQ(eval.Eval(&row, nullptr), steps.AsBool());
      ++(steps.AsBool() ? holding : failing);
    }
  }
  EXPECT_GT(holding, 10000);
  EXPECT_GT(failing, 10000);
}

// Each comparison of the column with the literal, plain and under NOT, for each pair of the values.
template <class Literal, class Number>
void CompareEveryPair(ColumnDef::DataType type, std::vector<Number> const& numbers) {
  ColumnDef column;
  column.Initialize(L"n", type, 0, Value(), nullptr);
  TableDef def;
  def.Initialize(L"rows", L"", &column, 1, 0, -1, 0);
  Row row(&def);
  FdoPtr<FdoIdentifier> const name = FdoIdentifier::Create(L"n");
  for (int operation = FdoComparisonOperations_EqualTo;
       operation <= FdoComparisonOperations_LessThanOrEqualTo; ++operation) {
    for (Number const number : numbers) {
      FdoPtr<FdoExpression> const literal = Literal::Create(number);
      FdoPtr<FdoFilter> const plain =
          FdoComparisonCondition::Create(name, static_cast<FdoComparisonOperations>(operation), literal);
      FdoPtr<FdoFilter> const negated = FdoUnaryLogicalOperator::Create(plain, FdoUnaryLogicalOperations_Not);
      for (FdoFilter* const filter : {plain.p, negated.p}) {
        for (ExprOptions const& meaning : kMeanings) {
          ExprEval eval(filter, &def, nullptr, meaning);
          for (Number const cell : numbers) {
            row[0].Reset(cell);
            Value stepwise;
            ASSERT_TRUE(ExprEvalTestPeer::EvalStepwise(eval, &row, &stepwise));
            EXPECT_EQ(eval.Eval(&row, nullptr), stepwise.AsBool()) << Shown(eval, row);
          }
        }
      }
    }
  }
}

TEST(FusedConditions, NumbersAtTheEndsOfTheirRangeAgree) {
  constexpr long long kLeast = std::numeric_limits<long long>::min();
  constexpr long long kGreatest = std::numeric_limits<long long>::max();
  CompareEveryPair<FdoInt64Value>(
      ColumnDef::kInt64, std::vector<long long>{kLeast, kLeast + 1, -1, 0, 1, kGreatest - 1, kGreatest});
  CompareEveryPair<FdoDoubleValue>(ColumnDef::kDouble,
                                   std::vector<double>{-INFINITY, -1e308, -0.0, 0.0, 1e308, INFINITY, NAN});
}

}  // namespace
}  // namespace fdo
