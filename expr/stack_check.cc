#include "expr/stack_check.h"

#include <algorithm>
#include <limits>

#include "expr/function_table.h"
#include "expr/op_table.h"

namespace fdo::internal {
namespace {

// A count and what it counts; the result takes the place of one of them.
StackEffect EffectOfCounted(Value const& count, std::size_t others) {
  if (count.Type() != Value::kInt) return {0, 0, /*known=*/false};
  long long const number = static_cast<__int64>(count);
  if (number < 0 || number > std::numeric_limits<int>::max()) return {0, 0, /*known=*/false};
  return {static_cast<std::size_t>(number) + others, 1};
}

}  // namespace

StackEffect EffectOf(std::span<OpRec const> ops, std::size_t at) {
  OpInfo const* const info = FindOp(ops[at].op);
  if (info == nullptr) return {};
  if (info->pops != kPopsByOperand) {
    return {static_cast<std::size_t>(info->pops), static_cast<std::size_t>(info->pushes)};
  }
  if (info->operand == Operand::kCount) return EffectOfCounted(ops[at].value, /*others=*/1);
  FunctionInfo const* const function = FindFunction(static_cast<__int64>(ops[at].value));
  if (function == nullptr) return {};
  if (function->arguments != kAnyCount) return {static_cast<std::size_t>(function->arguments), 1};
  if (at == 0 || ops[at - 1].op != OpPushLiteral) return {0, 0, /*known=*/false};
  return EffectOfCounted(ops[at - 1].value, /*others=*/1);
}

StackUse CheckStack(std::span<OpRec const> ops) {
  StackUse use;
  std::size_t depth = 0;
  for (std::size_t at = 0; at < ops.size(); ++at) {
    StackEffect const effect = EffectOf(ops, at);
    if (!effect.known || effect.pops > depth) return use;
    depth = depth - effect.pops + effect.pushes;
    use.deepest = std::max(use.deepest, depth);
  }
  use.balanced = depth == 1;
  return use;
}

}  // namespace fdo::internal
