// How much of the stack a program uses, found without running it.
#ifndef EXPR_STACK_CHECK_H_
#define EXPR_STACK_CHECK_H_

#include <fdo/expr_eval.h>

#include <cstddef>
#include <span>

namespace fdo::internal {

struct StackUse {
  // Every instruction finds its operands, and exactly one value is left. What is no instruction and a
  // function that does not exist count as nothing, as the machine takes them.
  bool balanced = false;
  std::size_t deepest = 0;  // entries in use at once, as far as the program was followed
};

// How many values the instruction takes off the stack and puts on it.
struct StackEffect {
  std::size_t pops = 0;
  std::size_t pushes = 0;
  bool known = true;  // false for a count that is not the literal before the instruction
};

// Requires: at < ops.size()
StackEffect EffectOf(std::span<OpRec const> ops, std::size_t at);

StackUse CheckStack(std::span<OpRec const> ops);

}  // namespace fdo::internal

#endif  // EXPR_STACK_CHECK_H_
