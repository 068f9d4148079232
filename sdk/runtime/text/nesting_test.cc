// How deep texts and trees may go, and what stack they take.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Fdo.h"
#include "port/small_stack.h"
#include "sdk/runtime/text/tree_shape.h"

namespace fdo_sdk {
namespace {

constexpr std::size_t kSmallStack = 256 * 1024;

void OnSmallStack(std::function<void()> body) {
  fdo::port::RunOnStack(
      kSmallStack, [](void* context) { (*static_cast<std::function<void()>*>(context))(); }, &body);
}

// A way to nest: so many times the opening, the core, so many times the closing.
struct Nest {
  char const* name;
  wchar_t const* opening;
  wchar_t const* core;
  wchar_t const* closing;
  bool isFilter;
};

constexpr Nest kNests[] = {
    {"parentheses in a filter", L"(", L"a = 1", L")", true},
    {"NOT", L"NOT ", L"a = 1", L"", true},
    {"right sides of OR", L"a = 1 OR (", L"a = 1", L")", true},
    {"both logical operators", L"a = 1 OR a = 2 AND (", L"a = 1", L")", true},
    {"sub-selects", L"a IN (SELECT b FROM c WHERE ", L"a = 1", L")", true},
    {"parentheses in an expression", L"(", L"a", L")", false},
    {"minus", L"-", L"a", L"", false},
    {"right sides of minus", L"a - (", L"a", L")", false},
    {"every binary operator", L"a + b * (", L"a - b", L")", false},
    {"functions", L"f(", L"a", L")", false},
    {"functions of several arguments", L"f(1, 2 * ", L"a", L")", false},
};

std::wstring Nested(Nest const& nest, int depth) {
  std::wstring text;
  for (int i = 0; i < depth; ++i) text += nest.opening;
  text += nest.core;
  for (int i = 0; i < depth; ++i) text += nest.closing;
  return text;
}

// Parses, walks, writes and parses again. Gives the message of what failed, empty when nothing did.
template <class Node>
std::wstring Exercise(std::wstring const& text) {
  try {
    FdoPtr<Node> tree = Node::Parse(text.c_str());
    std::string const shape = ShapeOf(tree);
    FdoPtr<Node> again = Node::Parse(tree->ToString());
    EXPECT_TRUE(ShapeOf(again) == shape);
  } catch (FdoException* caught) {
    FdoPtr<FdoException> failure(caught);
    return failure->GetExceptionMessage();
  }
  return {};
}

std::wstring ExerciseOnSmallStack(Nest const& nest, int depth) {
  std::wstring const text = Nested(nest, depth);
  std::wstring message;
  OnSmallStack([&] { message = nest.isFilter ? Exercise<FdoFilter>(text) : Exercise<FdoExpression>(text); });
  return message;
}

TEST(Nesting, Depth127WorksAndDeeperFailsCleanlyOnASmallStack) {
  for (Nest const& nest : kNests) {
    SCOPED_TRACE(nest.name);
    for (int depth : {1, 10, 127}) {
      EXPECT_TRUE(ExerciseOnSmallStack(nest, depth).empty())
          << depth << static_cast<char const*>(FdoStringP(ExerciseOnSmallStack(nest, depth).c_str()));
    }
    for (int depth : {128, 129, 100000}) {
      std::wstring const message = ExerciseOnSmallStack(nest, depth);
      EXPECT_NE(message.find(L"nested more than 127 levels deep"), std::wstring::npos)
          << depth << static_cast<char const*>(FdoStringP(message.c_str()));
    }
  }
}

TEST(Nesting, GeometryCollectionsTo127) {
  for (int depth : {1, 10, 127, 128, 100000}) {
    std::wstring text = L"GeomFromText('";
    for (int i = 0; i < depth; ++i) text += L"GEOMETRYCOLLECTION (";
    text += L"POINT (1 2)";
    for (int i = 0; i < depth; ++i) text += L")";
    text += L"')";
    std::wstring message;
    OnSmallStack([&] { message = Exercise<FdoExpression>(text); });
    bool const refused = message.find(L"expected fewer collections within each other") != std::wstring::npos;
    EXPECT_EQ(refused, depth > 127) << depth << static_cast<char const*>(FdoStringP(message.c_str()));
  }
}

std::wstring Chain(int terms, wchar_t const* term, wchar_t const* separator) {
  std::wstring text = term;
  for (int i = 1; i < terms; ++i) (text += separator) += term;
  return text;
}

// The tree of a long chain would be as deep as the chain is long, and whoever walks it by recursion, as
// ShapeOf does, would need as much stack.
TEST(Nesting, LongChainsOfAndAndOrBecomeBalancedTrees) {
  for (wchar_t const* separator : {L" OR ", L" AND "}) {
    for (int terms : {64, 65, 127, 128, 1000, 100000}) {
      std::wstring const text = Chain(terms, L"a = 1", separator);
      OnSmallStack([&] { EXPECT_TRUE(Exercise<FdoFilter>(text).empty()) << terms; });
    }
  }
  FdoPtr<FdoFilter> leaning = FdoFilter::Parse(Chain(64, L"a = 1", L" OR ").c_str());
  EXPECT_EQ(std::wstring(leaning->ToString()), Chain(64, L"a = 1", L" OR "));
  FdoPtr<FdoFilter> balanced = FdoFilter::Parse(Chain(66, L"a = 1", L" OR ").c_str());
  EXPECT_EQ(std::wstring(balanced->ToString()).substr(0, 70),
            L"a = 1 OR a = 1 OR (a = 1 OR a = 1) OR (a = 1 OR a = 1 OR (a = 1 OR a =");
}

TEST(Nesting, ABalancedChainCountsTheParenthesesThatItsTextWillHave) {
  std::wstring const chain = Chain(100, L"a = 1", L" OR ");  // seven levels
  Nest const nest = {"", L"NOT (", chain.c_str(), L")", true};
  EXPECT_TRUE(ExerciseOnSmallStack(nest, 60).empty());
  EXPECT_NE(ExerciseOnSmallStack(nest, 61).find(L"nested more than"), std::wstring::npos);
}

TEST(Nesting, ChainsOfArithmeticEndAt255Operators) {
  OnSmallStack([] {
    EXPECT_TRUE(Exercise<FdoExpression>(Chain(256, L"a", L" + ")).empty());
    for (int terms : {257, 100000}) {
      std::wstring const message = Exercise<FdoExpression>(Chain(terms, L"a", L" + "));
      EXPECT_NE(message.find(L"more than 255 operators depend on each other"), std::wstring::npos);
    }
  });
}

TEST(Nesting, TreesThatAreBuiltMayLeanAnyFar) {
  constexpr int kDepth = 100000;
  OnSmallStack([] {
    FdoPtr<FdoFilter> term = FdoFilter::Parse(L"a = 1");
    FdoPtr<FdoFilter> tree = FDO_SAFE_ADDREF(term.p);
    for (int i = 0; i < kDepth; ++i) tree = FdoFilter::Combine(tree.p, FdoBinaryLogicalOperations_Or, term.p);
    EXPECT_EQ(FdoStringP(tree->ToString()).GetLength(), 5u + kDepth * 9u);
    FdoPtr<FdoFilter> parsed = FdoFilter::Parse(tree->ToString());

    FdoPtr<FdoExpression> one = FdoInt32Value::Create(1);
    FdoPtr<FdoExpression> sum = FDO_SAFE_ADDREF(one.p);
    for (int i = 0; i < kDepth; ++i) sum = FdoBinaryExpression::Create(sum, FdoBinaryOperations_Add, one);
    EXPECT_EQ(FdoStringP(sum->ToString()).GetLength(), 1u + kDepth * 4u);
  });
}

TEST(Nesting, TreesThatAreBuiltTooDeepHaveNoTextAndAreReleased) {
  constexpr int kDepth = 100000;
  OnSmallStack([] {
    FdoPtr<FdoFilter> term = FdoFilter::Parse(L"a = 1");
    FdoPtr<FdoFilter> tree = FDO_SAFE_ADDREF(term.p);
    FdoPtr<FdoFilter> negated = FDO_SAFE_ADDREF(term.p);
    FdoPtr<FdoExpression> call = FdoIdentifier::Create(L"a");
    FdoPtr<FdoExpression> computed = FdoIdentifier::Create(L"a");
    for (int i = 0; i < kDepth; ++i) {
      tree = FdoFilter::Combine(term.p, FdoBinaryLogicalOperations_And, tree.p);
      negated = FdoUnaryLogicalOperator::Create(negated, FdoUnaryLogicalOperations_Not);
      FdoExpression* arguments[] = {call};
      call = FdoFunction::Create(L"f", arguments, 1);
      computed = FdoComputedIdentifier::Create(L"c", computed);
    }
    for (FdoFilter* filter : {tree.p, negated.p}) {
      try {
        filter->ToString();
        ADD_FAILURE();
      } catch (FdoFilterException* caught) {
        FdoPtr<FdoException> failure(caught);
        EXPECT_STREQ(failure->GetExceptionMessage(), L"The tree is nested too deeply to be written.");
      }
    }
    for (FdoExpression* expression : {call.p, computed.p}) {
      try {
        expression->ToString();
        ADD_FAILURE();
      } catch (FdoExpressionException* caught) {
        FdoPtr<FdoException> failure(caught);
        EXPECT_STREQ(failure->GetExceptionMessage(), L"The tree is nested too deeply to be written.");
      }
    }
  });
}

}  // namespace
}  // namespace fdo_sdk
