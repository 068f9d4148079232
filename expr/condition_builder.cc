// How a program becomes a condition.
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "expr/condition.h"
#include "expr/function_table.h"
#include "expr/op_table.h"
#include "expr/sql_values.h"
#include "expr/stack_check.h"

namespace fdo {

// Follows the program as the machine does, with the parts that leave a value on the stack instead of the
// values. Parts are steps only once AND, OR, NOT or the end asks for their truth.
class ExprEval::Condition::Builder {
 public:
  Builder(Condition& condition, std::span<OpRec const> program, ExprOptions const& options)
      : condition_(condition), steps_(condition.steps_), program_(program), options_(options) {}

  bool Build() {
    for (std::size_t at = 0; at < program_.size(); ++at) {
      if (!Take(at)) return false;
    }
    if (!parts_.back().ways && !GivesFlag(program_.back().op)) return false;
    Ways const all = WaysOf(parts_.back());
    Patch(all.whenTrue, kHolds);
    Patch(all.whenFalse, kFails);
    condition_.first_ = all.first;
    for (Step& step : steps_) Finish(step);
    MakeChain();
    condition_.MakeLinks();
    return true;
  }

 private:
  // Ways on that are not known yet, linked through next_: 2 * step + 0 or 1, as in Step::ways.
  struct Open {
    int head;
    int tail;
  };
  // Steps that together have one truth.
  struct Ways {
    int first;
    int begin;  // the steps, from begin to end
    int end;
    int cost;
    Open whenTrue;
    Open whenFalse;
  };
  // What leaves one value: a stretch of the program, whose last instruction takes the left operand from
  // split on.
  struct Part {
    std::size_t begin;
    std::size_t split;
    std::size_t end;
    std::optional<Ways> ways;  // of the logic inside, if there is any
  };

  static bool GivesFlag(std::int32_t op) {
    return internal::IsComparison(op) || op == OpIsNull || op == OpSpatial || op == OpLike || op == OpIn ||
           op == OpDistance;
  }

  bool Take(std::size_t at) {
    std::int32_t const op = program_[at].op;
    if (internal::FindOp(op) == nullptr || op == OpPushFieldByName) return false;
    internal::StackEffect const effect = internal::EffectOf(program_, at);
    if (effect.pushes != 1) return false;  // a function that does not exist
    std::size_t const firstPopped = parts_.size() - effect.pops;
    Part whole{effect.pops == 0 ? at : parts_[firstPopped].begin, effect.pops == 0 ? at : parts_.back().begin,
               at + 1, std::nullopt};
    if (op == OpAnd || op == OpOr || op == OpNot) {
      whole.ways = op == OpNot ? Negated(WaysOf(parts_.back()))
                               : Joined(op, WaysOf(parts_[firstPopped]), WaysOf(parts_.back()));
    } else {
      if (!options_.allConditions && !IsHarmless(at, whole)) return false;
      for (std::size_t i = firstPopped; i < parts_.size(); ++i) {
        if (parts_[i].ways) return false;  // logic inside of something else
      }
    }
    if (op == OpPushField) CellOf(at);
    parts_.resize(firstPopped);
    parts_.push_back(whole);
    return true;
  }

  // Whether nothing is lost when the instruction is not run: it cannot throw, trap or change anything.
  bool IsHarmless(std::size_t at, Part const& whole) const {
    switch (program_[at].op) {
      case OpLike:
      case OpSpatial:
      case OpIn:
      case OpDistance:
        return false;
      case OpDiv:
        return whole.split == whole.begin + 1 && program_[whole.begin].op == OpPushLiteral &&
               IsSafeDivisor(program_[whole.begin].value);
      case OpFunction: {
        internal::FunctionInfo const* const function =
            internal::FindFunction(static_cast<long long>(static_cast<__int64>(program_[at].value)));
        return function->apply == function->applySafely && function->apply != internal::Random;
      }
      default:
        return true;
    }
  }

  static bool IsSafeDivisor(Value const& divisor) {
    long long const number = static_cast<__int64>(divisor);
    return divisor.Type() == Value::kDouble || (divisor.Type() == Value::kInt && number != 0 && number != -1);
  }

  int CellOf(std::size_t at) {
    int const column = static_cast<int>(static_cast<__int64>(program_[at].value));
    std::vector<int>& columns = condition_.columns_;
    auto const found = std::find(columns.begin(), columns.end(), column);
    int const cell = static_cast<int>(found - columns.begin());
    if (found == columns.end()) columns.push_back(column);
    condition_.cells_.resize(columns.size());
    return cell;
  }

  // --- Logic -----------------------------------------------------------------------------------

  Ways WaysOf(Part const& part) {
    if (part.ways) return *part.ways;
    int const number = static_cast<int>(steps_.size());
    steps_.push_back(StepFor(part));
    next_.resize(2 * steps_.size(), kEnd);
    Open const ifFalse{2 * number, 2 * number};
    Open const ifTrue{2 * number + 1, 2 * number + 1};
    bool const negated = steps_.back().isNegated;
    return {number,
            number,
            number + 1,
            CostOf(steps_.back()),
            negated ? ifFalse : ifTrue,
            negated ? ifTrue : ifFalse};
  }

  Ways Negated(Ways ways) {
    std::swap(ways.whenTrue, ways.whenFalse);
    for (int i = ways.begin; i < ways.end; ++i) {
      Step& step = steps_[static_cast<std::size_t>(i)];
      step.isUnderNot = !step.isUnderNot;
    }
    return ways;
  }

  // The cheaper side comes first, the other one only where that does not decide.
  Ways Joined(std::int32_t op, Ways const& right, Ways const& left) {
    bool const leftFirst = left.cost < right.cost;
    Ways const& first = leftFirst ? left : right;
    Ways const& second = leftFirst ? right : left;
    Ways joined{first.first,
                std::min(left.begin, right.begin),
                std::max(left.end, right.end),
                std::min(kDearest, first.cost + second.cost),
                second.whenTrue,
                second.whenFalse};
    if (op == OpAnd) {
      Patch(first.whenTrue, second.first);
      joined.whenFalse = Linked(first.whenFalse, second.whenFalse);
    } else {
      Patch(first.whenFalse, second.first);
      joined.whenTrue = Linked(first.whenTrue, second.whenTrue);
    }
    return joined;
  }

  Open Linked(Open const& a, Open const& b) {
    next_[static_cast<std::size_t>(a.tail)] = b.head;
    return {a.head, b.tail};
  }

  void Patch(Open const& open, int target) {
    for (int way = open.head; way != kEnd; way = next_[static_cast<std::size_t>(way)]) {
      Step& step = steps_[static_cast<std::size_t>(way / 2)];
      step.ways[way % 2] = target;
    }
  }

  // Unknown must come to what fails, on whichever side of NOT.
  void Finish(Step& step) {
    step.ifUnknown = step.ways[step.isUnderNot != step.isNegated];
    if (options_.nullIsUnknown) {
      step.ifNull = step.ifUnknown;
    } else {
      // Null is less than everything else.
      step.ifNull = step.ways[step.test == Test::kColumnLess];
    }
  }

  // A chain when every step but the last has one way to the next and the other to what decides, which is the
  // same for all; the last has that one and the opposite. Steps are then put in their order.
  void MakeChain() {
    std::vector<Step> chain;
    int decides = 0;
    for (int at = condition_.first_; at >= 0; at = chain.back().goesOn) {
      Step step = steps_[static_cast<std::size_t>(at)];
      bool const isLast = step.ways[0] < 0 && step.ways[1] < 0;
      if (!isLast && step.ways[0] >= 0 && step.ways[1] >= 0) return;
      // Of a single step either way may be the one that decides.
      bool const decidesByTruth = isLast ? !chain.empty() && step.ways[1] == decides : step.ways[1] < 0;
      if (!chain.empty() && step.ways[decidesByTruth] != decides) return;
      decides = step.ways[decidesByTruth];
      step.goesOn = step.ways[!decidesByTruth];
      if (isLast && step.goesOn == decides) return;
      step.isDear = step.kind == Kind::kText || step.kind == Kind::kPart;
      chain.push_back(step);
    }
    if (chain.size() != steps_.size()) return;
    steps_ = std::move(chain);
    condition_.isChain_ = true;
  }

  static int CostOf(Step const& step) {
    if (step.kind == Kind::kPart) return kPartCost * static_cast<int>(step.end - step.begin);
    return step.kind == Kind::kText ? kTextCost : 1;
  }

  // --- Steps -----------------------------------------------------------------------------------

  bool IsField(std::size_t begin, std::size_t end) const {
    return end == begin + 1 && program_[begin].op == OpPushField;
  }
  bool IsLiteral(std::size_t begin, std::size_t end) const {
    return end == begin + 1 && program_[begin].op == OpPushLiteral;
  }
  // A column calculated with a number.
  bool IsCalculation(std::size_t begin, std::size_t end) const {
    if (end != begin + 3 || !internal::IsArithmetic(program_[end - 1].op)) return false;
    bool const columnIsRight = IsField(begin, begin + 1);
    std::size_t const number = columnIsRight ? begin + 1 : begin;
    std::size_t const column = columnIsRight ? begin : begin + 1;
    if (!IsField(column, column + 1) || !IsLiteral(number, number + 1)) return false;
    Value const& value = program_[number].value;
    if (value.Type() != Value::kInt && value.Type() != Value::kDouble) return false;
    // As in SQL integers may become doubles, and what is divided by zero null.
    if (options_.sqlValues && (value.Type() == Value::kInt || static_cast<double>(value) == 0)) return false;
    return program_[end - 1].op != OpDiv || (!columnIsRight && IsSafeDivisor(value));
  }

  // Whether the number compares as its double does with integers, and with doubles.
  static bool ComparesAsDouble(Value const& number) {
    double const real = static_cast<double>(number);
    return std::fabs(real) < static_cast<double>(internal::kExactIntegers);
  }

  static Number NumberOf(Value const& value) {
    return {value.Type() == Value::kInt, static_cast<__int64>(value), static_cast<double>(value)};
  }

  Step StepFor(Part const& part) {
    Step step;
    step.begin = part.begin;
    step.end = part.end;
    std::int32_t const op = program_[part.end - 1].op;
    if (op == OpIsNull && IsField(part.begin, part.end - 1)) {
      step.kind = Kind::kIsNull;
      step.cell = CellOf(part.begin);
    } else if (internal::IsComparison(op)) {
      FillComparison(step, part, op);
    }
    return step;
  }

  // Leaves what is not a column against a literal as it is.
  void FillComparison(Step& step, Part const& part, std::int32_t op) {
    bool const literalIsRight = IsLiteral(part.begin, part.split);
    std::size_t const literal = literalIsRight ? part.begin : part.split;
    std::size_t const begin = literalIsRight ? part.split : part.begin;
    std::size_t const end = literalIsRight ? part.end - 1 : part.split;
    if (!literalIsRight && !IsLiteral(part.split, part.end - 1)) return;
    Value const& value = program_[literal].value;
    int const type = value.Type();
    bool const isNumber = type == Value::kInt || type == Value::kDouble;
    if (options_.nullIsUnknown && type == Value::kDouble && std::isnan(static_cast<double>(value))) return;
    if (options_.sqlValues && isNumber && !ComparesAsDouble(value)) return;
    if (IsField(begin, end) && (isNumber || type == Value::kString)) {
      step.kind = type == Value::kInt ? Kind::kInteger : type == Value::kDouble ? Kind::kReal : Kind::kText;
      step.cell = CellOf(begin);
    } else if (IsCalculation(begin, end) && isNumber) {
      step.kind = Kind::kCalculated;
      step.numberIsLeft = IsField(begin, begin + 1);
      std::size_t const number = step.numberIsLeft ? begin + 1 : begin;
      step.cell = CellOf(step.numberIsLeft ? begin : begin + 1);
      step.operand = NumberOf(program_[number].value);
      step.operation = program_[end - 1].op;
    } else {
      return;
    }
    if (isNumber) {
      step.literal = NumberOf(value);
    } else {
      step.text = static_cast<wchar_t const*>(value);
    }
    // left < right, with the column on either side.
    Test const columnLessIfLeft = literalIsRight ? Test::kColumnLess : Test::kLiteralLess;
    Test const literalLessIfLeft = literalIsRight ? Test::kLiteralLess : Test::kColumnLess;
    bool const isEquality = op == OpEqual || op == OpNotEqual;
    bool const isLeftLess = op == OpLess || op == OpGreaterEqual;
    step.test = isEquality ? Test::kEqual : isLeftLess ? columnLessIfLeft : literalLessIfLeft;
    step.isNegated = op == OpLessEqual || op == OpGreaterEqual || op == OpNotEqual;
  }

  static constexpr int kEnd = -1;
  static constexpr int kTextCost = 2;
  static constexpr int kPartCost = 10;
  static constexpr int kDearest = 1 << 20;

  Condition& condition_;
  std::vector<Step>& steps_;
  std::span<OpRec const> program_;
  ExprOptions const& options_;
  std::vector<Part> parts_;
  std::vector<int> next_;
};

std::unique_ptr<ExprEval::Condition> ExprEval::Condition::Make(Machine& machine, ExprOptions const& options) {
  std::unique_ptr<Condition> condition(new Condition(machine, options));
  if (!Builder(*condition, machine.Program(), options).Build()) return nullptr;
  return condition;
}

}  // namespace fdo
