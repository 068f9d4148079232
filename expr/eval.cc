// The way from a row to the outcome of a filter.
#include <fdo/expr_eval.h>

#include <cstring>

#include "expr/condition.h"
#include "expr/machine.h"
#include "expr/same_text.h"

namespace fdo {

ExprEval::Condition::Outcome ExprEval::Condition::FollowLinks(Value const* cells) const {
  bool undecided = true;
  for (Link const& link : links_) {
    Value const& cell = cells[link.column];
    int const type = cell.Type();
    // Whichever of the two it is; the other is not looked at.
    long long integer;
    double real;
    std::memcpy(&integer, &cell.payload_, sizeof(integer));
    std::memcpy(&real, &cell.payload_, sizeof(real));
    int expected = Value::kDouble;
    bool holds = false;
    switch (link.code) {
      case Code::kIntegerLess:
        expected = Value::kInt;
        holds = integer < link.integer;
        break;
      case Code::kIntegerGreater:
        expected = Value::kInt;
        holds = integer > link.integer;
        break;
      case Code::kIntegerEqual:
        expected = Value::kInt;
        holds = integer == link.integer;
        break;
      case Code::kRealLess:
        holds = real < link.real;
        break;
      case Code::kRealGreater:
        holds = real > link.real;
        break;
      case Code::kRealEqual:
        holds = !(real < link.real) & !(real > link.real);
        break;
      case Code::kProductLess:
        holds = real * link.factor < link.real;
        break;
      case Code::kProductGreater:
        holds = real * link.factor > link.real;
        break;
      case Code::kProductEqual:
        holds = !(real * link.factor < link.real) & !(real * link.factor > link.real);
        break;
      default:
        expected = type;
        if ((type & Value::kKindMask) != Value::kString || cell.payload_.text == nullptr) {
          expected = Value::kUndef;
        } else if (!undecided) {
          continue;
        } else if (link.code == Code::kTextEqual) {
          holds = internal::IsSameText(cell.payload_.text, link.text);
        } else {
          int const order = internal::CompareText(cell.payload_.text, link.text);
          holds = link.code == Code::kTextLess ? order < 0 : order > 0;
        }
        break;
    }
    if (type != expected) {
      bool const isProduct = link.code >= Code::kProductLess && link.code <= Code::kProductEqual;
      if (type != Value::kNull || isProduct) return Outcome::kUnexpected;
      undecided &= link.nullGoesOn;
    } else {
      undecided &= holds == link.goesOnIf;
    }
  }
  bool const holdsAtEnd = steps_.back().goesOn == kHolds;
  return undecided == holdsAtEnd ? Outcome::kHolds : Outcome::kFails;
}

bool ExprEval::Eval(Row const* row, Value* result) {
  Condition* const condition = machine_->AsCondition();
  if (condition == nullptr || row == nullptr) return machine_->EvalStepwise(row, result);
  Condition::Outcome outcome = Condition::Outcome::kUnexpected;
  if (int const first = condition->FirstColumn(); first >= 0) {
    // Only the column that the program fetches first is fetched here; cells stand one behind the other.
    outcome = condition->FollowLinks(&(*row)[first] - first);
  }
  if (outcome == Condition::Outcome::kUnexpected) {
    outcome = condition->Holds(*row) ? Condition::Outcome::kHolds : Condition::Outcome::kFails;
  }
  bool const holds = outcome == Condition::Outcome::kHolds;
  if (result == nullptr) return holds;
  result->Reset(holds);
  return true;
}

}  // namespace fdo
