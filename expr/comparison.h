// The six comparisons of values, all made of "less".
#ifndef EXPR_COMPARISON_H_
#define EXPR_COMPARISON_H_

#include <fdo/expr_eval.h>

#include <cmath>

namespace fdo::internal {

// Deliberate: two values of which neither is less are equal (ExprEval.UnorderedIsEqual).
// Requires: IsComparison(op)
inline bool Compare(std::int32_t op, Value const& left, Value const& right) {
  switch (op) {
    case OpLess:
      return left < right;
    case OpLessEqual:
      return !(right < left);
    case OpGreater:
      return right < left;
    case OpGreaterEqual:
      return !(left < right);
    case OpEqual:
      return left == right;
    default:
      return left != right;
  }
}

// What counts as null where null is unknown.
inline bool IsUnknown(Value const& value) {
  int const type = value.Type();
  return type <= Value::kNull || (type == Value::kDouble && std::isnan(static_cast<double>(value)));
}

}  // namespace fdo::internal

#endif  // EXPR_COMPARISON_H_
