// Values that meet as in a SQL store: see ExprOptions::sqlValues.
#ifndef EXPR_SQL_VALUES_H_
#define EXPR_SQL_VALUES_H_

#include <fdo/expr_eval.h>

namespace fdo::internal {

// Every integer up to here is a double, and so compares with doubles as its double does.
inline constexpr long long kExactIntegers = 1LL << 53;

enum class SqlOrder { kLess, kEqual, kGreater, kUnknown };

// The order of two values. A text beside a number or a flag stands for the number that it is, and has no
// order when it is none. Numbers compare exactly. All else compares as Value does.
SqlOrder CompareAsInSql(Value const& left, Value const& right);

// Whether the comparison holds of two values in that order.
// Requires: IsComparison(op); order is not kUnknown
bool HoldsOf(SqlOrder order, std::int32_t op);

// result = left op right; the result may be an operand. Requires: IsArithmetic(op)
void CalculateAsInSql(std::int32_t op, Value const& left, Value const& right, Value& result);
void NegateAsInSql(Value& value);

}  // namespace fdo::internal

#endif  // EXPR_SQL_VALUES_H_
