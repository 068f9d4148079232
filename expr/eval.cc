// The way from a row to the outcome of a filter.
#include <fdo/expr_eval.h>

#include <cstring>

#include "expr/condition.h"
#include "expr/machine.h"
#include "expr/same_text.h"
#include "port/inlining.h"

namespace fdo {

ExprEval::Condition::Outcome ExprEval::Condition::FollowLinks(Value const* cells) const {
  constexpr int kNoType = -1;
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
          expected = kNoType;
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
  return undecided == holdsAtEnd_ ? Outcome::kHolds : Outcome::kFails;
}

// Out of line as all that is rare, so that the ways for most rows keep nothing on the machine's stack for it.
QUILLON_NEVER_INLINE bool ExprEval::Condition::Put(Value* result, bool holds) {
  result->Reset(holds);
  return true;
}

inline bool ExprEval::Condition::Give(Value* result, bool holds) {
  return result == nullptr ? holds : Put(result, holds);
}

QUILLON_NEVER_INLINE bool ExprEval::Condition::EvalSteps(Condition& self, Row const* row, Value* result) {
  return Give(result, self.Holds(*row));
}

QUILLON_NEVER_INLINE bool ExprEval::Condition::EvalLinks(Condition& self, Row const* row, Value* result) {
  Outcome const outcome = self.FollowLinks(row->values_);
  if (outcome == Outcome::kUnexpected) return EvalSteps(self, row, result);
  return Give(result, outcome == Outcome::kHolds);
}

template <ExprEval::Condition::Shape kShape>
QUILLON_ALWAYS_INLINE bool ExprEval::Condition::GoesOn(Link const& link, Value const* cells, unsigned& odd) {
  Value const& cell = cells[link.column];
  auto const type = static_cast<unsigned>(cell.Type());
  bool less = false;
  bool greater = false;
  if constexpr (kShape == Shape::kInteger) {
    odd |= type ^ Value::kInt;
    long long integer;
    std::memcpy(&integer, &cell.payload_, sizeof(integer));
    less = integer < link.integer;
    greater = integer > link.integer;
  } else if constexpr (kShape == Shape::kReal) {
    odd |= type ^ Value::kDouble;
    double real;
    std::memcpy(&real, &cell.payload_, sizeof(real));
    double const calculated = real * link.factor;
    less = calculated < link.real;
    greater = calculated > link.real;
  } else {
    bool const isText = (type & Value::kKindMask) == Value::kString && cell.payload_.text != nullptr;
    if (!isText) {
      odd = 1;
      return false;
    }
    return internal::IsSameAsLiteral(cell.payload_.text, link.text) == link.goesOnIf;
  }
  return (link.goesOnWhere >> (static_cast<int>(less) + 2 * static_cast<int>(greater))) & 1;
}

// All are tested, because which one decides is not foreseen by a processor.
template <ExprEval::Condition::Shape... kShapes>
bool ExprEval::Condition::EvalShaped(Condition& self, Row const* row, Value* result) {
  Link const* const links = self.links_.data();
  Value const* const cells = row->values_;
  unsigned odd = 0;
  bool undecided = true;
  // Texts first: what is known of numbers would have to be kept while texts are compared.
  Link const* text = links;
  ((undecided &= kShapes != Shape::kText || GoesOn<kShapes>(*text, cells, odd), ++text), ...);
  Link const* number = links;
  ((undecided &= kShapes == Shape::kText || GoesOn<kShapes>(*number, cells, odd), ++number), ...);
  if (odd != 0) return EvalLinks(self, row, result);
  return Give(result, undecided == self.holdsAtEnd_);
}

ExprEval::Condition::Shape ExprEval::Condition::ShapeOf(Link const& link) {
  if (link.code <= Code::kIntegerEqual) return Shape::kInteger;
  if (link.code <= Code::kProductEqual) return Shape::kReal;
  return link.code == Code::kTextEqual ? Shape::kText : Shape::kOther;
}

// The function for links that begin with the shapes.
template <ExprEval::Condition::Shape... kShapes>
ExprEval::Condition::EvalWay* ExprEval::Condition::FindShaped() const {
  constexpr std::size_t kMostLinks = 3;  // each more makes three times as many functions
  if constexpr (sizeof...(kShapes) > 0) {
    if (links_.size() == sizeof...(kShapes)) return EvalShaped<kShapes...>;
  }
  if constexpr (sizeof...(kShapes) < kMostLinks) {
    switch (ShapeOf(links_[sizeof...(kShapes)])) {
      case Shape::kInteger:
        return FindShaped<kShapes..., Shape::kInteger>();
      case Shape::kReal:
        return FindShaped<kShapes..., Shape::kReal>();
      case Shape::kText:
        return FindShaped<kShapes..., Shape::kText>();
      case Shape::kOther:
        break;
    }
  }
  return EvalLinks;
}

ExprEval::Condition::EvalWay* ExprEval::Condition::FindEval() const {
  return links_.empty() ? EvalSteps : FindShaped<>();
}

bool ExprEval::Eval(Row const* row, Value* result) {
  Condition* const condition = machine_->AsCondition();
  if (condition == nullptr || row == nullptr) return machine_->EvalStepwise(row, result);
  return condition->Eval(row, result);
}

}  // namespace fdo
