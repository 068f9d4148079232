#include "expr/machine.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "expr/comparison.h"
#include "expr/condition.h"
#include "expr/function_table.h"
#include "expr/op_table.h"
#include "expr/spatial.h"
#include "expr/sql_values.h"
#include "expr/stack_check.h"
#include "expr/text_pattern.h"

namespace fdo {
namespace {

constexpr char const* kNoLike = "\"Like\" not implemented yet for fdo::ExprEval.";

void Drop(Value*& top) {
  top->Reset();
  --top;
}

}  // namespace

ExprEval::Machine::Machine(std::vector<OpRec> program, ExprOptions const& options, bool isFilter,
                           bool callsFit)
    : options_(options), isFilter_(isFilter), program_(std::move(program)) {
  internal::StackUse const use = internal::CheckStack(program_);
  runs_ = use.balanced && callsFit;
  stackSize_ = std::max(kLeastStack, use.deepest);
  stack_ = std::make_unique<Value[]>(stackSize_ + 1);
  if (!runs_) return;
  PrepareGeometry();
  condition_ = Condition::Make(*this, options_);
}

ExprEval::Machine::~Machine() = default;

bool ExprEval::Machine::EvalStepwise(Row const* row, Value* result) {
  if (!runs_) {
    if (result != nullptr) result->Invalidate();
    return false;
  }
  Value* top = Stack() - 1;
  Run(0, program_.size(), row, top);
  bool gives = true;
  if (result == nullptr) {
    gives = top->AsBool();
  } else if (isFilter_ && options_.nullIsUnknown) {
    result->Reset(top->AsBool());
  } else {
    result->CopyFrom(*top);
  }
  top->Reset();
  return gives;
}

void ExprEval::Machine::Run(std::size_t begin, std::size_t end, Row const* row, Value*& top) {
  for (std::size_t at = begin; at < end; ++at) {
    OpRec const& record = program_[at];
    switch (record.op) {
      case OpPushLiteral:
        (++top)->ShallowCopy(record.value);
        break;
      case OpPushFieldByName: {
        wchar_t const* const name = static_cast<wchar_t const*>(record.value);
        PushField(row, row == nullptr || name == nullptr ? -1 : row->Def()->IndexOf(name), top);
        break;
      }
      case OpPushField:
        PushField(row, static_cast<int>(static_cast<__int64>(record.value)), top);
        break;
      case OpAdd:
      case OpSub:
      case OpMul:
      case OpDiv:
        Calculate(record.op, top);
        break;
      case OpNeg:
        if (options_.nullIsUnknown && internal::IsUnknown(*top)) {
          top->Reset();
        } else if (options_.sqlValues) {
          internal::NegateAsInSql(*top);
        } else {
          Value::Neg(*top);
        }
        break;
      case OpAnd:
      case OpOr:
        Join(record.op, top);
        break;
      case OpLess:
      case OpLessEqual:
      case OpGreater:
      case OpGreaterEqual:
      case OpEqual:
      case OpNotEqual:
        CompareTop(record.op, top);
        break;
      case OpNot:
        Negate(top);
        break;
      case OpFunction:
        Call(record, top);
        break;
      case OpLike:
        Match(top);
        break;
      case OpIsNull:
        top->Reset(top->IsNull());
        break;
      case OpSpatial:
        Relate(at, top);
        break;
      case OpIn:
        FindInList(record, top);
        break;
      case OpDistance:
        Measure(at, top);
        break;
      default:
        break;  // no instruction
    }
  }
}

bool ExprEval::Machine::AnyUnknown(Value const& left, Value const& right) const {
  return options_.nullIsUnknown && (internal::IsUnknown(left) || internal::IsUnknown(right));
}

// What the row does not have is null.
void ExprEval::Machine::PushField(Row const* row, int column, Value*& top) {
  ++top;
  if (row == nullptr || column < 0) {
    top->Reset();
  } else {
    top->ShallowCopy((*row)[column]);
  }
}

void ExprEval::Machine::Calculate(std::int32_t op, Value*& top) {
  Value& left = *top;
  Value& right = *(top - 1);
  if (AnyUnknown(left, right)) {
    right.Reset();
  } else if (options_.sqlValues) {
    internal::CalculateAsInSql(op, left, right, right);
  } else if (op == OpAdd) {
    Value::Add(right, left, right);
  } else if (op == OpSub) {
    Value::Sub(right, left, right);
  } else if (op == OpMul) {
    Value::Mul(right, left, right);
  } else if (options_.allConditions && left.Type() == Value::kInt && right.Type() == Value::kInt &&
             right.payload_.integer == 0) {
    right.Reset();
  } else if (options_.allConditions && left.Type() == Value::kInt && right.Type() == Value::kInt &&
             right.payload_.integer == -1 && left.payload_.integer == std::numeric_limits<long long>::min()) {
    right.Reset(-static_cast<double>(left));
  } else {
    Value::Div(right, left, right);
  }
  Drop(top);
}

void ExprEval::Machine::CompareTop(std::int32_t op, Value*& top) {
  Value& left = *top;
  Value& right = *(top - 1);
  if (AnyUnknown(left, right)) {
    right.Reset();
  } else if (options_.sqlValues) {
    internal::SqlOrder const order = internal::CompareAsInSql(left, right);
    if (order == internal::SqlOrder::kUnknown) {
      right.Reset();
    } else {
      right.Reset(internal::HoldsOf(order, op));
    }
  } else {
    right.Reset(internal::Compare(op, left, right));
  }
  Drop(top);
}

void ExprEval::Machine::Join(std::int32_t op, Value*& top) {
  Value& left = *top;
  Value& right = *(top - 1);
  bool const a = left.AsBool();
  bool const b = right.AsBool();
  if (options_.nullIsUnknown) {
    // The side that is known decides by being false for AND, true for OR.
    bool const decisive = op == OpOr;
    bool const leftUnknown = internal::IsUnknown(left);
    bool const rightUnknown = internal::IsUnknown(right);
    if ((!leftUnknown && a == decisive) || (!rightUnknown && b == decisive)) {
      right.Reset(decisive);
    } else if (leftUnknown || rightUnknown) {
      right.Reset();
    } else {
      right.Reset(!decisive);
    }
  } else {
    right.Reset(op == OpAnd ? a && b : a || b);
  }
  Drop(top);
}

void ExprEval::Machine::Negate(Value* top) {
  if (options_.nullIsUnknown && internal::IsUnknown(*top)) {
    top->Reset();
  } else {
    top->Reset(!top->AsBool());
  }
}

void ExprEval::Machine::Call(OpRec const& record, Value*& top) {
  internal::FunctionInfo const* const function =
      internal::FindFunction(static_cast<long long>(static_cast<__int64>(record.value)));
  if (function == nullptr) return;
  if (options_.nullIsUnknown && function->ofNull == internal::OfNull::kIsNull) {
    bool unknown = false;
    for (int i = 0; i < function->arguments; ++i) unknown = unknown || internal::IsUnknown(top[-i]);
    if (unknown) {
      for (int i = 1; i < function->arguments; ++i) Drop(top);
      top->Reset();
      return;
    }
  }
  (options_.allConditions ? function->applySafely : function->apply)(top);
}

void ExprEval::Machine::Match(Value*& top) {
  if (!options_.allConditions) throw std::runtime_error(kNoLike);
  Value& left = *top;
  Value& right = *(top - 1);
  if (AnyUnknown(left, right)) {
    right.Reset();
  } else {
    wchar_t const* const text = static_cast<wchar_t const*>(left);
    wchar_t const* const pattern = static_cast<wchar_t const*>(right);
    right.Reset(text != nullptr && pattern != nullptr && internal::MatchesPattern(text, pattern));
  }
  Drop(top);
}

// The column is on top, the values are below it. In an empty list is nothing, whatever the column.
void ExprEval::Machine::FindInList(OpRec const& record, Value*& top) {
  long long const count = static_cast<__int64>(record.value);
  bool found = false;
  bool unknown = false;
  for (long long i = 1; i <= count && !found; ++i) {
    if (AnyUnknown(*top, top[-i])) {
      unknown = true;
    } else if (options_.sqlValues) {
      internal::SqlOrder const order = internal::CompareAsInSql(*top, top[-i]);
      found = order == internal::SqlOrder::kEqual;
      unknown = unknown || order == internal::SqlOrder::kUnknown;
    } else {
      found = *top == top[-i];
    }
  }
  for (long long i = 0; i < count; ++i) Drop(top);
  if (unknown && !found) {
    top->Reset();
  } else {
    top->Reset(found);
  }
}

// Finds the spatial instructions whose right operand is the literal two before them.
void ExprEval::Machine::PrepareGeometry() {
  for (std::size_t at = 2; at < program_.size(); ++at) {
    bool const isSpatial = program_[at].op == OpSpatial || program_[at].op == OpDistance;
    bool const field = program_[at - 1].op == OpPushField || program_[at - 1].op == OpPushFieldByName;
    if (!isSpatial || !field || program_[at - 2].op != OpPushLiteral) continue;
    if (program_[at - 2].value.AsBlob() == nullptr) continue;
    constants_.resize(program_.size());
    constants_[at].isConstant = true;
  }
}

// Borrowed: while made is alive and the program is.
FdoIGeometry* ExprEval::Machine::GeometryAt(std::size_t at, Value const& value, FdoPtr<FdoIGeometry>& made) {
  if (constants_.empty() || !constants_[at].isConstant) return made = internal::GeometryOf(value);
  // Made when it is first needed, since a literal that makes no sense fails then and not before.
  FdoPtr<FdoIGeometry>& constant = constants_[at].geometry;
  if (constant == nullptr) constant = internal::GeometryOf(program_[at - 2].value);
  return constant;
}

void ExprEval::Machine::Relate(std::size_t at, Value*& top) {
  Value& left = *top;
  Value& right = *(top - 1);
  if (options_.allConditions && (left.AsBlob() == nullptr || right.AsBlob() == nullptr)) {
    if (options_.nullIsUnknown) {
      right.Reset();
    } else {
      right.Reset(false);
    }
  } else {
    FdoPtr<FdoIGeometry> const row = internal::GeometryOf(left);
    FdoPtr<FdoIGeometry> made;
    FdoIGeometry* const literal = GeometryAt(at, right, made);
    bool const holds = internal::IsInRelation(row, static_cast<__int64>(program_[at].value), literal);
    right.Reset(holds);
  }
  Drop(top);
}

// The distance is third.
void ExprEval::Machine::Measure(std::size_t at, Value*& top) {
  Value& left = *top;
  Value& right = *(top - 1);
  Value& outcome = *(top - 2);
  double const distance = static_cast<double>(outcome);
  bool known = left.AsBlob() != nullptr && right.AsBlob() != nullptr && distance >= 0;
  bool holds = false;
  if (known) {
    FdoPtr<FdoIGeometry> const row = internal::GeometryOf(left);
    FdoPtr<FdoIGeometry> made;
    FdoIGeometry* const literal = GeometryAt(at, right, made);
    known = !internal::IsEmpty(row) && !internal::IsEmpty(literal);
    bool const isWithin = static_cast<__int64>(program_[at].value) == FdoDistanceOperations_Within;
    holds = known && internal::IsWithinDistance(row, literal, distance) == isWithin;
  }
  if (known || !options_.nullIsUnknown) {
    outcome.Reset(holds);
  } else {
    outcome.Reset();
  }
  Drop(top);
  Drop(top);
}

}  // namespace fdo
