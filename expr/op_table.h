// The instructions of the expression machine, listed once: the stack check, the printed program and
// docs/expression_machine.md come from here.
#ifndef EXPR_OP_TABLE_H_
#define EXPR_OP_TABLE_H_

#include <fdo/expr_eval.h>

#include <cstddef>
#include <iterator>

namespace fdo::internal {

// What the operand of an instruction is.
enum class Operand {
  kNone,
  kLiteral,
  kColumnName,
  kColumn,
  kFunction,
  kSpatialOperation,
  kCount,
  kDistanceOperation
};

inline constexpr int kPopsByOperand = -1;  // how many values are popped depends on the operand

struct OpInfo {
  ExprOp op;
  wchar_t const* name;
  Operand operand;
  int pops;
  int pushes;
  char const* effect;  // the left operand, or the first argument, is on top
};

inline constexpr OpInfo kOps[] = {
    {OpPushLiteral, L"OpPushLiteral", Operand::kLiteral, 0, 1, "push the operand, borrowed"},
    {OpPushFieldByName, L"OpPushFieldByName", Operand::kColumnName, 0, 1,
     "push the row's field of that name, borrowed"},
    {OpPushField, L"OpPushField", Operand::kColumn, 0, 1, "push the row's field at that position, borrowed"},
    {OpAdd, L"OpAdd", Operand::kNone, 2, 1, "push left + right"},
    {OpSub, L"OpSub", Operand::kNone, 2, 1, "push left - right"},
    {OpMul, L"OpMul", Operand::kNone, 2, 1, "push left * right"},
    {OpDiv, L"OpDiv", Operand::kNone, 2, 1, "push left / right"},
    {OpNeg, L"OpNeg", Operand::kNone, 1, 1, "negate the top"},
    {OpAnd, L"OpAnd", Operand::kNone, 2, 1, "push whether both convert to true"},
    {OpOr, L"OpOr", Operand::kNone, 2, 1, "push whether one converts to true"},
    {OpLess, L"OpLess", Operand::kNone, 2, 1, "push left < right"},
    {OpLessEqual, L"OpLessEqual", Operand::kNone, 2, 1, "push not (right < left)"},
    {OpGreater, L"OpGreater", Operand::kNone, 2, 1, "push right < left"},
    {OpGreaterEqual, L"OpGreaterEqual", Operand::kNone, 2, 1, "push not (left < right)"},
    {OpEqual, L"OpEqual", Operand::kNone, 2, 1, "push whether neither is less than the other"},
    {OpNotEqual, L"OpNotEqual", Operand::kNone, 2, 1, "push whether one is less than the other"},
    {OpNot, L"OpNot", Operand::kNone, 1, 1, "replace the top by the negation of its conversion to a flag"},
    {OpFunction, L"OpFunction", Operand::kFunction, kPopsByOperand, 1, "call that function"},
    {OpLike, L"OpLike", Operand::kNone, 2, 1,
     "fail; with `allConditions` push whether left matches the pattern right"},
    {OpIsNull, L"OpIsNull", Operand::kNone, 1, 1, "replace the top by whether it is null"},
    {OpSpatial, L"OpSpatial", Operand::kSpatialOperation, 2, 1,
     "push whether left is in that relation to right"},
    {OpIn, L"OpIn", Operand::kCount, kPopsByOperand, 1,
     "push whether the top equals one of that many values below it"},
    {OpDistance, L"OpDistance", Operand::kDistanceOperation, 3, 1,
     "push whether left is beyond (0) or within (1) the distance, third, from right"},
};

constexpr bool OpsAscend() {
  for (std::size_t i = 1; i < std::size(kOps); ++i) {
    if (kOps[i - 1].op >= kOps[i].op) return false;
  }
  return true;
}
static_assert(OpsAscend(), "one row for each opcode, in numeric order; gaps are never reused");

// Null for a number that is no opcode; the machine passes such instructions over.
constexpr OpInfo const* FindOp(std::int32_t op) {
  for (OpInfo const& info : kOps) {
    if (info.op == op) return &info;
  }
  return nullptr;
}

constexpr bool IsComparison(std::int32_t op) { return op >= OpLess && op <= OpNotEqual; }
constexpr bool IsArithmetic(std::int32_t op) { return op >= OpAdd && op <= OpDiv; }

}  // namespace fdo::internal

#endif  // EXPR_OP_TABLE_H_
