#include "expr/condition.h"

#include <cmath>
#include <cwchar>

#include "expr/comparison.h"

namespace fdo {

// The rules of Value's order: an integer is less than a double that is no number, which is less than nothing.
bool ExprEval::Condition::Less(Number const& left, Number const& right) {
  if (left.isInteger) {
    return right.isInteger ? left.integer < right.integer : !(left.real >= right.real);
  }
  return left.real < right.real;
}

int ExprEval::Condition::Choose(Step const& step, Number const& column, Number const& literal) {
  bool holds = false;
  switch (step.test) {
    case Test::kColumnLess:
      holds = Less(column, literal);
      break;
    case Test::kLiteralLess:
      holds = Less(literal, column);
      break;
    case Test::kEqual:
      holds = !Less(column, literal) && !Less(literal, column);
      break;
  }
  return holds ? step.ifTrue : step.ifFalse;
}

// The rules of Value's arithmetic: integers stay integers and wrap.
ExprEval::Condition::Number ExprEval::Condition::Calculated(Step const& step, Number const& column) {
  Number const& left = step.numberIsLeft ? step.operand : column;
  Number const& right = step.numberIsLeft ? column : step.operand;
  if (left.isInteger && right.isInteger) {
    auto const a = static_cast<unsigned long long>(left.integer);
    auto const b = static_cast<unsigned long long>(right.integer);
    long long whole = 0;
    switch (step.operation) {
      case OpAdd:
        whole = static_cast<long long>(a + b);
        break;
      case OpSub:
        whole = static_cast<long long>(a - b);
        break;
      case OpMul:
        whole = static_cast<long long>(a * b);
        break;
      default:
        whole = left.integer / right.integer;
        break;
    }
    return {true, whole, static_cast<double>(whole)};
  }
  switch (step.operation) {
    case OpAdd:
      return {false, 0, left.real + right.real};
    case OpSub:
      return {false, 0, left.real - right.real};
    case OpMul:
      return {false, 0, left.real * right.real};
    default:
      return {false, 0, left.real / right.real};
  }
}

int ExprEval::Condition::FollowPart(Step const& step, Row const& row) {
  Value* top = machine_.Stack() - 1;
  machine_.Run(step.begin, step.end, &row, top);
  bool const unknown = options_.nullIsUnknown && internal::IsUnknown(*top);
  bool const holds = top->AsBool() != step.isNegated;
  top->Reset();
  return unknown ? step.ifUnknown : holds ? step.ifTrue : step.ifFalse;
}

int ExprEval::Condition::Follow(Step const& step, Row const& row) {
  if (step.kind == Kind::kPart) return FollowPart(step, row);
  Value const& cell = *cells_[static_cast<std::size_t>(step.cell)];
  int const type = cell.Type();
  if (step.kind == Kind::kIsNull) return type == Value::kNull ? step.ifTrue : step.ifFalse;
  if (step.kind == Kind::kText) {
    if ((type & Value::kKindMask) == Value::kString && cell.payload_.text != nullptr) {
      wchar_t const* const text = cell.payload_.text;
      if (step.test == Test::kEqual) {
        return *text == *step.text && std::wcscmp(text, step.text) == 0 ? step.ifTrue : step.ifFalse;
      }
      int const order = std::wcscmp(text, step.text);
      return (step.test == Test::kColumnLess ? order < 0 : order > 0) ? step.ifTrue : step.ifFalse;
    }
    return type == Value::kNull ? step.ifNull : FollowPart(step, row);
  }

  Number column;
  if (type == Value::kInt) {
    column = {true, cell.payload_.integer, static_cast<double>(cell.payload_.integer)};
  } else if (type == Value::kDouble) {
    if (options_.nullIsUnknown && std::isnan(cell.payload_.number)) return step.ifUnknown;
    column = {false, 0, cell.payload_.number};
  } else if (type == Value::kNull) {
    if (step.kind != Kind::kCalculated || options_.nullIsUnknown) return step.ifNull;
    column = {false, 0, 0.0};
  } else {
    return FollowPart(step, row);
  }
  if (step.kind == Kind::kCalculated) {
    column = Calculated(step, column);
    if (options_.nullIsUnknown && !column.isInteger && std::isnan(column.real)) return step.ifUnknown;
  }
  return Choose(step, column, step.literal);
}

bool ExprEval::Condition::Holds(Row const& row) {
  for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i] = &row[columns_[i]];
  int at = first_;
  while (at >= 0) at = Follow(steps_[static_cast<std::size_t>(at)], row);
  return at == kHolds;
}

}  // namespace fdo
