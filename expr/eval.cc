// The way from a row to the outcome of a filter.
#include <fdo/expr_eval.h>

#include <cmath>
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
    real *= link.factor;
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
    if (type == expected) {
      bool const isUnknown = expected == Value::kDouble && options_.nullIsUnknown && std::isnan(real);
      undecided &= isUnknown ? link.unknownGoesOn : holds == link.goesOnIf;
    } else if (type == Value::kNull && !link.nullIsUnexpected) {
      undecided &= link.nullGoesOn;
    } else {
      return Outcome::kUnexpected;
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

inline Value const& ExprEval::Condition::CellOf(Gate const& gate, Value const* cells) {
  return *reinterpret_cast<Value const*>(reinterpret_cast<unsigned char const*>(cells) + gate.offset);
}

template <ExprEval::Condition::Shape kShape>
QUILLON_ALWAYS_INLINE std::uint64_t ExprEval::Condition::Oddness(Gate const& gate, Value const* cells) {
  Value const& cell = CellOf(gate, cells);
  if constexpr (kShape == Shape::kInteger) return cell.word_ ^ Value::kInt;
  if constexpr (kShape == Shape::kReal) return cell.word_ ^ Value::kDouble;
  bool const isText = (cell.word_ & Value::kKindMask) == Value::kString && cell.payload_.text != nullptr;
  return isText ? 0 : Value::kCodeMask;
}

template <ExprEval::Condition::Shape kShape>
QUILLON_ALWAYS_INLINE bool ExprEval::Condition::GoesOn(Gate const& gate, Value const* cells) {
  Value const& cell = CellOf(gate, cells);
  if constexpr (kShape == Shape::kInteger) {
    std::uint64_t integer;
    std::memcpy(&integer, &cell.payload_, sizeof(integer));
    return integer - gate.least <= gate.width;
  } else if constexpr (kShape == Shape::kReal) {
    double real;
    std::memcpy(&real, &cell.payload_, sizeof(real));
    real *= gate.factor;
    return ((real < gate.below) | (real > gate.above)) != gate.flips;
  } else {
    wchar_t const* const text = cell.payload_.text;
    // Texts that differ in the first or second unit, as most do, are told without a jump, which no processor
    // could foresee. The second unit is looked at where there is one in both.
    std::uint32_t const last = static_cast<std::uint32_t>(text[0] == gate.head[0]) & gate.lastHead;
    bool same = text[last] == gate.head[last];
    if (same && gate.isLonger) same = internal::IsSameText(text + 2, gate.rest);
    return same != gate.flips;
  }
}

// All are tested, because which one decides is not foreseen by a processor.
template <ExprEval::Condition::Shape... kShapes>
bool ExprEval::Condition::EvalShaped(Condition& self, Row const* row, Value* result) {
  Value const* const cells = row->values_;
  Gate const* gate = self.gates_.data();
  std::uint64_t odd = 0;
  ((odd |= Oddness<kShapes>(*gate, cells), ++gate), ...);
  if ((odd & Value::kCodeMask) != 0) return EvalLinks(self, row, result);
  bool undecided = true;
  // Texts first: what is known of numbers would have to be kept while texts are compared.
  Gate const* text = self.gates_.data();
  ((undecided &= kShapes != Shape::kText || GoesOn<kShapes>(*text, cells), ++text), ...);
  Gate const* number = self.gates_.data();
  ((undecided &= kShapes == Shape::kText || GoesOn<kShapes>(*number, cells), ++number), ...);
  return Give(result, undecided == self.holdsAtEnd_);
}

// The function for links that begin with the shapes.
template <ExprEval::Condition::Shape... kShapes>
ExprEval::Condition::EvalWay* ExprEval::Condition::FindShaped() const {
  if constexpr (sizeof...(kShapes) > 0) {
    if (links_.size() == sizeof...(kShapes)) return EvalShaped<kShapes...>;
  }
  if constexpr (sizeof...(kShapes) < kMostGates) {
    switch (gates_[sizeof...(kShapes)].shape) {
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
