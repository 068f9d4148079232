// What the links of a condition come down to where cells are of the expected types.
#include <limits>

#include "expr/condition.h"

namespace fdo {
namespace {

constexpr long long kLeast = std::numeric_limits<long long>::min();
constexpr long long kGreatest = std::numeric_limits<long long>::max();

}  // namespace

ExprEval::Condition::Shape ExprEval::Condition::ShapeOf(Link const& link) {
  if (link.code <= Code::kIntegerEqual) {
    // No range is empty.
    bool const isNever = link.goesOnIf && ((link.code == Code::kIntegerLess && link.integer == kLeast) ||
                                           (link.code == Code::kIntegerGreater && link.integer == kGreatest));
    return isNever ? Shape::kOther : Shape::kInteger;
  }
  if (link.code <= Code::kProductEqual) return Shape::kReal;
  return link.code == Code::kTextEqual ? Shape::kText : Shape::kOther;
}

ExprEval::Condition::Gate ExprEval::Condition::GateOf(Link const& link) {
  constexpr auto kFirst = static_cast<std::uint64_t>(kLeast);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  Gate gate = {};
  gate.offset = link.column * sizeof(Value);
  gate.factor = link.factor;
  auto const integer = static_cast<std::uint64_t>(link.integer);
  // Of integers those from first to before end, or the others where those do not go on.
  auto const range = [&](std::uint64_t first, std::uint64_t end) {
    gate.least = link.goesOnIf ? first : end;
    gate.width = (link.goesOnIf ? end - first : first - end) - 1;
  };
  auto const outside = [&](double below, double above, bool flips) {
    gate.below = below;
    gate.above = above;
    gate.flips = flips;
  };
  switch (link.code) {
    case Code::kIntegerLess:
      range(kFirst, integer);
      break;
    case Code::kIntegerGreater:
      range(integer + 1, kFirst);
      break;
    case Code::kIntegerEqual:
      range(integer, integer + 1);
      break;
    case Code::kRealLess:
    case Code::kProductLess:
      outside(link.real, kInfinity, !link.goesOnIf);
      break;
    case Code::kRealGreater:
    case Code::kProductGreater:
      outside(-kInfinity, link.real, !link.goesOnIf);
      break;
    case Code::kRealEqual:
    case Code::kProductEqual:
      outside(link.real, link.real, link.goesOnIf);
      break;
    case Code::kTextEqual:
      gate.flips = !link.goesOnIf;
      gate.head[0] = link.text[0];
      if (link.text[0] != 0) {
        gate.lastHead = 1;
        gate.head[1] = link.text[1];
        gate.isLonger = link.text[1] != 0;
        gate.rest = link.text + 2;
      }
      break;
    default:
      break;
  }
  return gate;
}

}  // namespace fdo
