// What tests of the machine reach behind ExprEval.
#ifndef EXPR_EXPR_EVAL_TEST_PEER_H_
#define EXPR_EXPR_EVAL_TEST_PEER_H_

#include <fdo/expr_eval.h>

#include <utility>
#include <vector>

#include "expr/machine.h"

namespace fdo {

class ExprEvalTestPeer {
 public:
  static ExprEval FromProgram(std::vector<OpRec> program, ExprOptions const& options = {},
                              bool isFilter = false) {
    return ExprEval(std::move(program), options, isFilter, /*callsFit=*/true);
  }

  static bool EvalStepwise(ExprEval& eval, Row const* row, Value* result) {
    return eval.machine_->EvalStepwise(row, result);
  }
  static bool IsFused(ExprEval const& eval) { return eval.machine_->AsCondition() != nullptr; }
  static std::size_t StackSize(ExprEval const& eval) { return eval.machine_->StackSize(); }
  static OpRec const* Ops(ExprEval const& eval) { return eval.ops_; }
  static Value const* Stack(ExprEval const& eval) { return eval.stack_; }

  // Calls the function with those arguments, in call order, and a count on top if it takes any number.
  // Gives: what is on top afterwards; fails the test by an undefined value when the stack does not end with
  // exactly one result.
  static Value Call(int number, std::vector<Value> const& arguments, bool counted = false) {
    std::vector<Value> stack(arguments.size() + 3);
    Value* const below = stack.data();
    Value* top = below;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) *++top = *argument;
    if (counted) *++top = Value(static_cast<int>(arguments.size()));
    OpRec const record{OpFunction, Value(number)};
    ExprEval::EvalFunction(&record, top);
    Value result;
    result.Invalidate();
    return top == below + 1 ? *top : result;
  }

  // Each works on a stack of two entries, or one, and gives the entry that is left.
  static Value Spatial(int operation, Value const& row, Value const& literal) {
    Value stack[] = {literal, row};
    Value* top = &stack[1];
    OpRec const record{OpSpatial, Value(operation)};
    ExprEval::SpatialOp(&record, top);
    return top == &stack[0] ? stack[0] : Value();
  }
  static Value Ordinate(int which, Value const& value, bool borrowed) {
    Value entry = value;
    if (borrowed && value.AsBlob() != nullptr) entry.Reset(value.AsBlob(), value.BlobLen(), false);
    if (borrowed && value.Type() == Value::kString) entry.Reset(static_cast<wchar_t const*>(value), false);
    Value* top = &entry;
    ExprEval::xyzmFunc(which, top);
    return entry;
  }
};

}  // namespace fdo

#endif  // EXPR_EXPR_EVAL_TEST_PEER_H_
