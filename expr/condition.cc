#include "expr/condition.h"

#include <cmath>
#include <utility>

#include "expr/comparison.h"
#include "expr/same_text.h"
#include "port/inlining.h"

namespace fdo {
namespace {

// The rules of Value's order between numbers: an integer is less than a double that is no number, which
// itself is less than nothing.
inline bool Less(long long left, long long right) { return left < right; }
inline bool Less(double left, double right) { return left < right; }
inline bool Less(long long left, double right) { return !(static_cast<double>(left) >= right); }
inline bool Less(double left, long long right) { return left < static_cast<double>(right); }

// Whether the test, one of Condition::Test, holds for the column's number.
template <class Test, class Column, class Literal>
QUILLON_ALWAYS_INLINE bool Holds(Test test, Column column, Literal literal) {
  switch (test) {
    case Test::kColumnLess:
      return Less(column, literal);
    case Test::kLiteralLess:
      return Less(literal, column);
    default:
      return !(Less(column, literal) || Less(literal, column));
  }
}

}  // namespace

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
  return unknown ? step.ifUnknown : step.ways[holds];
}

int ExprEval::Condition::FollowText(Step const& step, Value const& cell, Row const& row) {
  int const type = cell.Type();
  wchar_t const* const text = cell.payload_.text;
  if ((type & Value::kKindMask) == Value::kString && text != nullptr) {
    if (step.test == Test::kEqual) return step.ways[internal::IsSameText(text, step.text)];
    int const order = internal::CompareText(text, step.text);
    return step.ways[step.test == Test::kColumnLess ? order < 0 : order > 0];
  }
  return type == Value::kNull ? step.ifNull : FollowPart(step, row);
}

// Numbers of every kind, and what stands for none.
int ExprEval::Condition::FollowNumber(Step const& step, Value const& cell, Row const& row) {
  int const type = cell.Type();
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
  Number const& literal = step.literal;
  if (column.isInteger) {
    return step.ways[literal.isInteger ? fdo::Holds(step.test, column.integer, literal.integer)
                                       : fdo::Holds(step.test, column.integer, literal.real)];
  }
  return step.ways[literal.isInteger ? fdo::Holds(step.test, column.real, literal.integer)
                                     : fdo::Holds(step.test, column.real, literal.real)];
}

// The numbers that columns are expected to hold go straight to their test.
QUILLON_ALWAYS_INLINE int ExprEval::Condition::Follow(Step const& step, Row const& row) {
  if (step.kind == Kind::kPart) return FollowPart(step, row);
  Value const& cell = *cells_[static_cast<std::size_t>(step.cell)];
  int const type = cell.Type();
  switch (step.kind) {
    case Kind::kInteger:
      if (type == Value::kInt)
        return step.ways[fdo::Holds(step.test, cell.payload_.integer, step.literal.integer)];
      return FollowNumber(step, cell, row);
    case Kind::kReal:
      if (type == Value::kDouble && !options_.nullIsUnknown)
        return step.ways[fdo::Holds(step.test, cell.payload_.number, step.literal.real)];
      return FollowNumber(step, cell, row);
    case Kind::kCalculated:
      if (type == Value::kDouble && step.operation == OpMul && !options_.nullIsUnknown &&
          !step.literal.isInteger)
        return step.ways[fdo::Holds(step.test, cell.payload_.number * step.operand.real, step.literal.real)];
      return FollowNumber(step, cell, row);
    case Kind::kIsNull:
      return step.ways[type == Value::kNull];
    default:
      return FollowText(step, cell, row);
  }
}

bool ExprEval::Condition::HoldsAsChain(Row const& row) {
  bool undecided = true;
  for (Step const& step : steps_) {
    if (step.isDear && !undecided) break;
    undecided &= Follow(step, row) == step.goesOn;
  }
  // The last step's way is an outcome, and so is the one of whatever decides before.
  int const atEnd = steps_.back().goesOn;
  return undecided ? atEnd == kHolds : atEnd != kHolds;
}

void ExprEval::Condition::MakeLinks() {
  if (!isChain_) return;
  std::vector<Link> links;
  for (Step const& step : steps_) {
    bool const isProduct =
        step.kind == Kind::kCalculated && step.operation == OpMul && !step.literal.isInteger;
    int first = 0;
    if (step.kind == Kind::kInteger) {
      first = static_cast<int>(Code::kIntegerLess);
    } else if (step.kind == Kind::kReal || isProduct) {
      first = static_cast<int>(Code::kRealLess);
    } else if (step.kind == Kind::kText) {
      first = static_cast<int>(Code::kTextLess);
    } else {
      return;
    }
    Link link = {};
    link.code = static_cast<Code>(first + static_cast<int>(step.test));
    link.goesOnIf = step.ways[1] == step.goesOn;
    link.nullGoesOn = step.ifNull == step.goesOn;
    link.nullIsUnexpected = isProduct && !options_.nullIsUnknown;
    link.unknownGoesOn = step.ifUnknown == step.goesOn;
    link.column = static_cast<std::size_t>(columns_[static_cast<std::size_t>(step.cell)]);
    link.integer = step.literal.integer;
    link.real = step.literal.real;
    link.factor = isProduct ? step.operand.real : 1.0;
    link.text = step.text;
    links.push_back(link);
  }
  links_ = std::move(links);
  holdsAtEnd_ = steps_.back().goesOn == kHolds;
  for (std::size_t i = 0; i < links_.size() && i < kMostGates; ++i) gates_[i] = GateOf(links_[i]);
  eval_ = FindEval();
}

bool ExprEval::Condition::Holds(Row const& row) {
  for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i] = &row[columns_[i]];
  if (isChain_) return HoldsAsChain(row);
  int at = first_;
  while (at >= 0) at = Follow(steps_[static_cast<std::size_t>(at)], row);
  return at == kHolds;
}

}  // namespace fdo
