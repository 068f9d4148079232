// Random trees and rows: the machine against a reference that walks the tree, and its larger steps against
// its instructions one by one. QUILLON_RANDOM_TREES says how many trees; the plain suite takes some.
#include <gtest/gtest.h>

#include <cstdlib>

#include "expr/evaluated_text.h"
#include "expr/expr_eval_test_peer.h"
#include "testing/random_trees.h"
#include "testing/tree_evaluator.h"

namespace fdo {
namespace {

constexpr int kTrees = 30000;
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
  std::string shown = ToUtf8(eval.Listing(&RandomTrees::Def()).c_str());
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

}  // namespace
}  // namespace fdo
