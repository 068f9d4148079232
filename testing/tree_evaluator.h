// A second opinion about expressions, for tests of the machine that computes them: it walks the tree anew
// for each row, one plain recursive step for each node.
#ifndef TESTING_TREE_EVALUATOR_H_
#define TESTING_TREE_EVALUATOR_H_

#include <Fdo.h>
#include <fdo/expr_eval.h>
#include <fdo/row.h>

#include <string>

namespace fdo {

// What came of an expression and a row.
struct Outcome {
  enum Kind { kValue, kFails, kThrows };
  Kind kind = kFails;
  Value value;          // of kValue
  std::string message;  // of kThrows
};

// Bit for bit; values that are no number are the same.
bool operator==(Outcome const& left, Outcome const& right);
std::string TextOf(Outcome const& outcome);

// What the tree gives for the row, as ExprEval is documented. Values compare and calculate as Value does;
// everything else is computed here.
// Requires: every identifier is a column of the row; without allConditions no integer is divided by 0 or -1.
Outcome EvaluateTree(FdoFilter* filter, Row const& row, ExprOptions const& options);
Outcome EvaluateTree(FdoExpression* expression, Row const& row, ExprOptions const& options);

// What eval gives for the row, in the same form.
Outcome EvaluateProgram(ExprEval& eval, Row const& row);

}  // namespace fdo

#endif  // TESTING_TREE_EVALUATOR_H_
