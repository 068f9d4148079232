// Evaluating allocates what results own, and nothing for what is pushed.
#include <gtest/gtest.h>

#include "expr/evaluated_text.h"
#include "testing/malloc_calls.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

constexpr int kRuns = 100;
constexpr wchar_t kLongText[] = L"a text that no small buffer would hold, however it is made";

class EvalAllocations : public testing::Test {
 protected:
  EvalAllocations()
      : def_(MakeTableDef(L"s", L"t", L"i:Int32 d:Double t:String f:Boolean n:Int32")), row_(&def_) {
    row_[L"i"].Reset(10);
    row_[L"d"].Reset(2.5);
    row_[L"t"].Reset(kLongText, /*copy=*/true);
    row_[L"f"].Reset(true);
    row_[L"n"].Reset();
  }

  // Of so many evaluations, after a first one.
  long long Of(ExprEval eval, Value* result) {
    eval.Eval(&row_, result);
    long long const before = MallocCalls();
    for (int i = 0; i < kRuns; ++i) eval.Eval(&row_, result);
    return MallocCalls() - before;
  }
  long long OfFilter(wchar_t const* text, ExprOptions const& options) {
    return Of(ExprEval(ParsedFilter(text), &def_, nullptr, options), nullptr);
  }
  long long OfExpression(wchar_t const* text, ExprOptions const& options) {
    Value result;
    return Of(ExprEval(ParsedExpression(text), &def_, nullptr, options), &result);
  }

  TableDef def_;
  Row row_;
};

constexpr ExprOptions kEveryOption[] = {{false, false}, {true, false}, {false, true}, {true, true}};

TEST_F(EvalAllocations, AFilterTakesNone) {
  for (ExprOptions const& options : kEveryOption) {
    for (wchar_t const* filter : {
             L"i > 5 AND d * 2 < 7.5 AND t = 'another text, which is as long as the one in the row is'",
             L"NOT (i = 10 AND t > 'a') OR f = TRUE",
             L"n NULL OR n + 1 = 2",
             L"mod(i, 3) = 1 AND sin(d) < 1",
         }) {
      EXPECT_EQ(OfFilter(filter, options), 0) << ToUtf8(filter);
    }
  }
}

// Of the texts that are pushed for it, only the chosen one is copied.
TEST_F(EvalAllocations, AFunctionCopiesTheTextThatItChooses) {
  for (ExprOptions const& options : kEveryOption) {
    EXPECT_EQ(OfFilter(L"if(f, t, 'a text that is not chosen and long enough to be seen') = t", options),
              kRuns);
    EXPECT_EQ(
        OfFilter(L"lookup(i, 'a default that is long enough to be seen when copied', 10, t) = t", options),
        kRuns);
  }
}

TEST_F(EvalAllocations, ANumberTakesNone) {
  for (ExprOptions const& options : kEveryOption) {
    for (wchar_t const* expression : {L"i", L"-i + 2 * d", L"round(d / 3.0, 1)", L"if(f, i, d)"}) {
      EXPECT_EQ(OfExpression(expression, options), 0) << ToUtf8(expression);
    }
  }
}

TEST_F(EvalAllocations, ATextTakesItsCopyOnly) {
  for (ExprOptions const& options : kEveryOption) {
    EXPECT_EQ(OfExpression(L"t", options), kRuns);
    EXPECT_EQ(OfExpression(L"'a literal that is long enough to be seen when it is copied'", options), kRuns);
  }
}

}  // namespace
}  // namespace fdo
