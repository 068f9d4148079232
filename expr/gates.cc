// What the links of a condition come down to where cells are of the expected types.
#include <cmath>
#include <limits>

#include "expr/condition.h"

namespace fdo {

void ExprEval::Condition::SetIntegers(Link const& link, Gate& gate) {
  constexpr long long kLeast = std::numeric_limits<long long>::min();
  constexpr long long kGreatest = std::numeric_limits<long long>::max();
  bool const isEmpty = (link.code == Code::kIntegerLess && link.integer == kLeast) ||
                       (link.code == Code::kIntegerGreater && link.integer == kGreatest);
  // No range is empty.
  if (isEmpty && link.goesOnIf) return;
  auto const literal = static_cast<std::uint64_t>(link.integer);
  auto const least = static_cast<std::uint64_t>(kLeast);
  std::uint64_t const first = link.code == Code::kIntegerLess      ? least
                              : link.code == Code::kIntegerGreater ? literal + 1
                                                                   : literal;
  std::uint64_t const end = link.code == Code::kIntegerLess      ? literal
                            : link.code == Code::kIntegerGreater ? least
                                                                 : literal + 1;
  gate.least = link.goesOnIf ? first : end;
  gate.width = (link.goesOnIf ? end - first : first - end) - 1;
  gate.shape = Shape::kInteger;
}

void ExprEval::Condition::SetReals(Link const& link, Gate& gate) const {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  double const literal = link.real;
  bool const equalGoesOn = (link.code == Code::kRealEqual) == link.goesOnIf;
  // NaN, which does not lie outside, must come to the right thing: it is unknown, or has no order and is
  // therefore equal.
  gate.flips = options_.nullIsUnknown ? link.unknownGoesOn : equalGoesOn;
  bool const equalIsOutside = equalGoesOn != gate.flips;
  bool lessIsOutside = ((link.code == Code::kRealLess) == link.goesOnIf) != gate.flips;
  bool greaterIsOutside = ((link.code == Code::kRealGreater) == link.goesOnIf) != gate.flips;
  // Nothing is beyond infinity, so that it may as well go with what is equal.
  if (literal == -kInfinity) lessIsOutside = equalIsOutside;
  if (literal == kInfinity) greaterIsOutside = equalIsOutside;
  // A single number does not lie outside of any two.
  if (equalIsOutside && !lessIsOutside && !greaterIsOutside) return;
  gate.below = !lessIsOutside ? -kInfinity : equalIsOutside ? std::nextafter(literal, kInfinity) : literal;
  gate.above = !greaterIsOutside ? kInfinity : equalIsOutside ? std::nextafter(literal, -kInfinity) : literal;
  gate.factor = link.factor;
  gate.shape = Shape::kReal;
}

void ExprEval::Condition::SetTexts(Link const& link, Gate& gate) {
  gate.flips = !link.goesOnIf;
  gate.head[0] = link.text[0];
  if (link.text[0] != 0) {
    gate.lastHead = 1;
    gate.head[1] = link.text[1];
    gate.isLonger = link.text[1] != 0;
    gate.rest = link.text + 2;
  }
  gate.shape = Shape::kText;
}

ExprEval::Condition::Gate ExprEval::Condition::GateOf(Link const& link) const {
  Gate gate = {};
  gate.shape = Shape::kOther;
  gate.offset = link.column * sizeof(Value);
  if (link.code <= Code::kIntegerEqual) {
    SetIntegers(link, gate);
  } else if (link.code <= Code::kRealEqual) {
    SetReals(link, gate);
  } else if (link.code == Code::kTextEqual) {
    SetTexts(link, gate);
  }
  return gate;
}

}  // namespace fdo
