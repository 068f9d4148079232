// The machine behind an ExprEval: the program, its stack, and how it runs.
#ifndef EXPR_MACHINE_H_
#define EXPR_MACHINE_H_

#include <Fdo.h>
#include <FdoSpatial.h>
#include <fdo/expr_eval.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace fdo {

class QUILLON_LOCAL ExprEval::Machine {
 public:
  Machine(std::vector<OpRec> program, ExprOptions const& options, bool isFilter, bool callsFit);
  ~Machine();
  Machine(Machine const&) = delete;
  Machine& operator=(Machine const&) = delete;

  // Those that share the machine; the last one deletes it.
  void Hold() { holders_.fetch_add(1, std::memory_order_relaxed); }
  void Release() {
    if (holders_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }

  std::vector<OpRec>& Program() { return program_; }
  Value* Stack() { return stack_.get() + 1; }
  std::size_t StackSize() const { return stackSize_; }
  bool Runs() const { return runs_; }

  // The same program in larger steps; null where there is none.
  Condition* AsCondition() { return condition_.get(); }
  // As ExprEval::Eval, one instruction after the other.
  bool EvalStepwise(Row const* row, Value* result);

  // Runs a part of the program, whose operands are on the stack.
  void Run(std::size_t begin, std::size_t end, Row const* row, Value*& top);

 private:
  friend class Condition;

  void PushField(Row const* row, int column, Value*& top);
  void Calculate(std::int32_t op, Value*& top);
  void CompareTop(std::int32_t op, Value*& top);
  void Join(std::int32_t op, Value*& top);
  void Negate(Value* top);
  void Call(OpRec const& record, Value*& top);
  void Match(Value*& top);
  void FindInList(OpRec const& record, Value*& top);
  void Relate(std::size_t at, Value*& top);
  void Measure(std::size_t at, Value*& top);
  void PrepareGeometry();
  FdoIGeometry* GeometryAt(std::size_t at, Value const& value, FdoPtr<FdoIGeometry>& made);
  bool AnyUnknown(Value const& left, Value const& right) const;

  ExprOptions const options_;
  bool const isFilter_;
  std::vector<OpRec> program_;
  bool runs_ = false;  // comes to one value, without leaving the stack
  std::size_t stackSize_ = 0;
  // The first entry is the place below the stack, where top points while the stack is empty.
  std::unique_ptr<Value[]> stack_;
  // For each spatial instruction whose right operand is a literal, the literal's geometry once it has been
  // made; it lends its bytes from the program. Empty without such instructions.
  struct Constant {
    bool isConstant = false;
    FdoPtr<FdoIGeometry> geometry;
  };
  std::vector<Constant> constants_;
  std::unique_ptr<Condition> condition_;
  std::atomic<int> holders_{1};
};

}  // namespace fdo

#endif  // EXPR_MACHINE_H_
