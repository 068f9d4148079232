#include "expr/compiler.h"

#include <Fdo.h>

#include <stdexcept>
#include <utility>

#include "expr/column_kinds.h"
#include "expr/function_table.h"
#include "expr/text_reading.h"
#include "values/date_text.h"

namespace fdo {
namespace {

constexpr char const* kUnknownFunction = "Unknown function.";
constexpr char const* kUnknownIdentifier = "Unexpected identifier encountered.";
constexpr char const* kNoIn = "FdoInCondition not implemented yet for fdo::ExprEval.";
constexpr char const* kNoDistance = "FdoDistanceCondition not implemented yet for fdo::ExprEval.";
constexpr char const* kSubSelect = "A sub-select cannot be evaluated.";
constexpr char const* kTooDeep = "The expression is nested too deeply.";

// In the order of FDO's enumerations.
constexpr ExprOp kArithmetic[] = {OpAdd, OpSub, OpMul, OpDiv};
constexpr ExprOp kComparison[] = {OpEqual, OpNotEqual,  OpGreater, OpGreaterEqual,
                                  OpLess,  OpLessEqual, OpLike};
static_assert(FdoBinaryOperations_Add == 0 && FdoBinaryOperations_Divide == 3);
static_assert(FdoComparisonOperations_EqualTo == 0 && FdoComparisonOperations_Like == 6);

constexpr std::int32_t kNoOp = 0;

template <std::size_t size>
std::int32_t OpFor(ExprOp const (&ops)[size], int operation) {
  return operation >= 0 && static_cast<std::size_t>(operation) < size ? ops[operation] : kNoOp;
}

// What is still to be compiled: a node, or an instruction that comes after the nodes before it.
struct Task {
  FdoPtr<FdoFilter> filter;
  FdoPtr<FdoExpression> expression;
  OpRec emit;
  bool isEmit = false;
  int depth = 0;
  std::int32_t chain = kNoOp;  // the logical operator that the node is an operand of
};

// A node that is visited says what comes in its place: its children and its instruction. They wait in a list
// of their own instead of on the C stack, which so does not depend on the tree.
class FdoExprCompiler : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  FdoExprCompiler(std::vector<OpRec>* program, TableDef const* table, bool* usedColumns,
                  ExprOptions const& options)
      : program_(program), table_(table), usedColumns_(usedColumns), options_(options) {}

  void Compile(FdoFilter* filter) {
    ThenFilter(FDO_SAFE_ADDREF(filter), kNoOp);
    Run();
  }
  void Compile(FdoExpression* expression) {
    Then(FDO_SAFE_ADDREF(expression));
    Run();
  }

  bool CallsFit() const { return callsFit_; }

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override {
    Then(expr.GetRightExpression());
    Then(expr.GetLeftExpression());
    ThenEmit(OpFor(kArithmetic, expr.GetOperation()));
  }

  void ProcessUnaryExpression(FdoUnaryExpression& expr) override {
    Then(expr.GetExpression());
    ThenEmit(OpNeg);
  }

  void ProcessFunction(FdoFunction& expr) override {
    internal::FunctionInfo const* const info = internal::FindFunction(expr.GetName());
    if (info == nullptr) throw std::runtime_error(kUnknownFunction);
    FdoPtr<FdoExpressionCollection> const arguments = expr.GetArguments();
    FdoInt32 const count = arguments == nullptr ? 0 : arguments->GetCount();
    for (FdoInt32 i = count; i > 0; --i) Then(arguments->GetItem(i - 1));
    int const number = internal::FormFor(info->number, count);
    int const taken = internal::FindFunction(static_cast<long long>(number))->arguments;
    if (taken == internal::kAnyCount) {
      ThenEmit(OpPushLiteral, Value(count));
    } else {
      callsFit_ = callsFit_ && count == taken;
    }
    ThenEmit(OpFunction, Value(number));
  }

  void ProcessIdentifier(FdoIdentifier& expr) override {
    wchar_t const* const name = expr.GetName();
    if (table_ == nullptr) {
      Emit(OpPushFieldByName, Value(name));
      return;
    }
    int const column = name == nullptr ? -1 : table_->IndexOf(name);
    if (column < 0) throw std::runtime_error(kUnknownIdentifier);
    if (usedColumns_ != nullptr) usedColumns_[column] = true;
    Emit(OpPushField, Value(column));
  }

  // Deliberate: what has no counterpart is passed over, and the program then does not come to one value.
  void ProcessComputedIdentifier(FdoComputedIdentifier&) override {}
  void ProcessParameter(FdoParameter&) override {}
  void ProcessBLOBValue(FdoBLOBValue&) override {}
  void ProcessCLOBValue(FdoCLOBValue&) override {}
  void ProcessSubSelectExpression(FdoSubSelectExpression&) override {}

  void ProcessBooleanValue(FdoBooleanValue& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetBoolean()); });
  }
  void ProcessByteValue(FdoByteValue& expr) override {
    EmitLiteral(expr, [&] { return Value(static_cast<int>(expr.GetByte())); });
  }
  void ProcessInt16Value(FdoInt16Value& expr) override {
    EmitLiteral(expr, [&] { return Value(static_cast<int>(expr.GetInt16())); });
  }
  void ProcessInt32Value(FdoInt32Value& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetInt32()); });
  }
  void ProcessInt64Value(FdoInt64Value& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetInt64()); });
  }
  void ProcessDecimalValue(FdoDecimalValue& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetDecimal()); });
  }
  void ProcessDoubleValue(FdoDoubleValue& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetDouble()); });
  }
  void ProcessSingleValue(FdoSingleValue& expr) override {
    EmitLiteral(expr, [&] { return Value(static_cast<double>(expr.GetSingle())); });
  }
  void ProcessStringValue(FdoStringValue& expr) override {
    EmitLiteral(expr, [&] { return Value(expr.GetString()); });
  }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override {
    EmitLiteral(expr, [&] {
      wchar_t text[internal::kDateTextSize];
      internal::FormatDateTime(expr.GetDateTime(), text);
      return Value(text);
    });
  }
  void ProcessGeometryValue(FdoGeometryValue& expr) override {
    EmitLiteral(expr, [&] {
      FdoPtr<FdoByteArray> const fgf = expr.GetGeometry();
      return fgf == nullptr || fgf->GetCount() == 0 ? Value() : Value(fgf->GetData(), fgf->GetCount());
    });
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    ExprOp const op = filter.GetOperation() == FdoBinaryLogicalOperations_And ? OpAnd : OpOr;
    ThenFilter(filter.GetRightOperand(), op);
    ThenFilter(filter.GetLeftOperand(), op);
    ThenEmit(op);
  }

  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    ThenFilter(filter.GetOperand(), kNoOp);
    ThenEmit(OpNot);
  }

  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    FdoPtr<FdoExpression> const left = filter.GetLeftExpression();
    FdoPtr<FdoExpression> const right = filter.GetRightExpression();
    bool const isLike = filter.GetOperation() == FdoComparisonOperations_Like;
    ThenBeside(isLike ? nullptr : left.p, right);
    ThenBeside(isLike ? nullptr : right.p, left);
    ThenEmit(OpFor(kComparison, filter.GetOperation()));
  }

  void ProcessInCondition(FdoInCondition& filter) override {
    if (!options_.allConditions) throw std::runtime_error(kNoIn);
    if (FdoPtr<FdoSubSelectExpression>(filter.GetSubSelect()) != nullptr)
      throw std::runtime_error(kSubSelect);
    FdoPtr<FdoValueExpressionCollection> const values = filter.GetValues();
    FdoInt32 const count = values == nullptr ? 0 : values->GetCount();
    FdoPtr<FdoIdentifier> const column = filter.GetPropertyName();
    for (FdoInt32 i = count; i > 0; --i)
      ThenBeside(column, FdoPtr<FdoValueExpression>(values->GetItem(i - 1)));
    Then(FDO_SAFE_ADDREF(column.p));
    ThenEmit(OpIn, Value(count));
  }

  void ProcessNullCondition(FdoNullCondition& filter) override {
    EmitIdentifier(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Emit(OpIsNull, Value());
  }

  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    Then(filter.GetGeometry());
    Then(filter.GetPropertyName());
    ThenEmit(OpSpatial, Value(static_cast<int>(filter.GetOperation())));
  }

  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    if (!options_.allConditions) throw std::runtime_error(kNoDistance);
    ThenEmit(OpPushLiteral, Value(filter.GetDistance()));
    Then(filter.GetGeometry());
    Then(filter.GetPropertyName());
    ThenEmit(OpDistance, Value(static_cast<int>(filter.GetOperation())));
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  void Run() {
    while (true) {
      // What the last node asked for comes next, the first of it first.
      for (; !asked_.empty(); asked_.pop_back()) waiting_.push_back(std::move(asked_.back()));
      if (waiting_.empty()) return;
      Task const task = std::move(waiting_.back());
      waiting_.pop_back();
      if (task.isEmit) {
        program_->push_back(task.emit);
        continue;
      }
      depth_ = task.depth;
      chain_ = task.chain;
      if (task.filter != nullptr) {
        task.filter->Process(this);
      } else {
        task.expression->Process(this);
      }
    }
  }

  // Each takes the reference over. A missing child is passed over.
  void Then(FdoExpression* expression) {
    if (expression == nullptr) return;
    Task task;
    task.expression = expression;
    task.depth = NextDepth();
    asked_.push_back(std::move(task));
  }
  // What is compared with the other side, which may be null: as in SQL a text literal beside a column is what
  // the column holds, or unknown.
  void ThenBeside(FdoExpression* other, FdoExpression* expression) {
    auto* const text = options_.sqlValues ? dynamic_cast<FdoStringValue*>(expression) : nullptr;
    internal::ColumnKind const* const kind = text == nullptr || text->IsNull() ? nullptr : KindOf(other);
    if (kind != nullptr && kind->comparedAs == internal::ComparedAs::kNumber) {
      ThenEmit(OpPushLiteral, internal::NumberInText(text->GetString()));
    } else if (kind != nullptr && kind->comparedAs == internal::ComparedAs::kDate) {
      ThenEmit(OpPushLiteral, internal::DateInText(text->GetString()));
    } else {
      Then(FDO_SAFE_ADDREF(expression));
    }
  }
  // Of a column of the table; null for all else.
  internal::ColumnKind const* KindOf(FdoExpression* expression) const {
    auto* const column = dynamic_cast<FdoIdentifier*>(expression);
    // A computed identifier is an identifier, too, but no column.
    if (column == nullptr || table_ == nullptr || dynamic_cast<FdoComputedIdentifier*>(column) != nullptr)
      return nullptr;
    wchar_t const* const name = column->GetName();
    int const position = name == nullptr ? -1 : table_->IndexOf(name);
    return position < 0 ? nullptr : internal::KindOf((*table_)[position].Type());
  }
  void ThenFilter(FdoFilter* filter, std::int32_t chain) {
    if (filter == nullptr) return;
    Task task;
    task.filter = filter;
    task.depth = chain != kNoOp && chain == chain_ ? depth_ : NextDepth();
    task.chain = chain;
    asked_.push_back(std::move(task));
  }
  void ThenEmit(std::int32_t op, Value const& value = Value()) {
    Task task;
    task.emit = {op, value};
    task.isEmit = true;
    asked_.push_back(std::move(task));
  }

  int NextDepth() const {
    if (depth_ >= ExprEval::kMaxDepth) throw std::runtime_error(kTooDeep);
    return depth_ + 1;
  }

  // For nodes that ask for nothing else: at once.
  void Emit(ExprOp op, Value&& value) { program_->push_back({op, std::move(value)}); }
  void EmitIdentifier(FdoIdentifier* name) {
    if (name != nullptr) ProcessIdentifier(*name);
  }
  template <class Literal, class MakeValue>
  void EmitLiteral(Literal& literal, MakeValue makeValue) {
    Emit(OpPushLiteral, literal.IsNull() ? Value() : makeValue());
  }

  std::vector<OpRec>* program_;
  TableDef const* table_;  // may be null
  bool* usedColumns_;      // may be null
  ExprOptions const& options_;

  std::vector<Task> waiting_;  // what comes next is last
  std::vector<Task> asked_;    // by the node that is visited, what comes next first
  int depth_ = 0;              // of the node that is visited; the root's is 1
  std::int32_t chain_ = kNoOp;
  bool callsFit_ = true;
};

template <class Tree>
internal::CompiledTree CompileTree(Tree* tree, TableDef const* table, bool* usedColumns,
                                   ExprOptions const& options) {
  internal::CompiledTree compiled;
  FdoExprCompiler compiler(&compiled.program, table, usedColumns, options);
  compiler.Compile(tree);
  compiled.callsFit = compiler.CallsFit();
  return compiled;
}

}  // namespace

namespace internal {

CompiledTree Compile(FdoFilter* filter, TableDef const* table, bool* usedColumns,
                     ExprOptions const& options) {
  return CompileTree(filter, table, usedColumns, options);
}

CompiledTree Compile(FdoExpression* expression, TableDef const* table, bool* usedColumns,
                     ExprOptions const& options) {
  return CompileTree(expression, table, usedColumns, options);
}

}  // namespace internal

}  // namespace fdo
