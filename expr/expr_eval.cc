#include <fdo/expr_eval.h>

#include <algorithm>
#include <utility>

#include "expr/compiler.h"
#include "expr/function_table.h"
#include "expr/listing.h"
#include "expr/machine.h"
#include "expr/spatial.h"

namespace fdo {
namespace {

ExprOptions Complete(ExprOptions const& options) {
  return options.sqlValues ? ExprOptions::AsInSql() : options;
}

}  // namespace

ExprEval::ExprEval(std::vector<OpRec> program, ExprOptions const& options, bool isFilter, bool callsFit)
    : machine_(new Machine(std::move(program), options, isFilter, callsFit)) {
  ops_ = machine_->Program().data();
  count_ = machine_->Program().size();
  stack_ = machine_->Stack();
}

ExprEval::ExprEval(internal::CompiledTree&& compiled, ExprOptions const& options, bool isFilter)
    : ExprEval(std::move(compiled.program), options, isFilter, compiled.callsFit) {}

ExprEval::ExprEval(FdoFilter* filter, TableDef const* table, bool* usedColumns)
    : ExprEval(filter, table, usedColumns, ExprOptions()) {}

ExprEval::ExprEval(FdoExpression* expression, TableDef const* table, bool* usedColumns)
    : ExprEval(expression, table, usedColumns, ExprOptions()) {}

ExprEval::ExprEval(FdoFilter* filter, TableDef const* table, bool* usedColumns, ExprOptions const& options)
    : ExprEval(internal::Compile(filter, table, usedColumns, Complete(options)), Complete(options),
               /*isFilter=*/true) {}

ExprEval::ExprEval(FdoExpression* expression, TableDef const* table, bool* usedColumns,
                   ExprOptions const& options)
    : ExprEval(internal::Compile(expression, table, usedColumns, Complete(options)), Complete(options),
               /*isFilter=*/false) {}

ExprEval::~ExprEval() { machine_->Release(); }

ExprEval::ExprEval(ExprEval const& other) noexcept
    : ops_(other.ops_), count_(other.count_), stack_(other.stack_), machine_(other.machine_) {
  machine_->Hold();
}

ExprEval& ExprEval::operator=(ExprEval const& other) noexcept {
  other.machine_->Hold();
  machine_->Release();
  ops_ = other.ops_;
  count_ = other.count_;
  stack_ = other.stack_;
  machine_ = other.machine_;
  return *this;
}

bool ExprEval::IsComplete() const { return machine_->Runs(); }

std::wstring ExprEval::Listing(TableDef const* table) const {
  return internal::ListProgram({ops_, static_cast<std::size_t>(count_)}, table);
}

std::vector<int> ExprEval::Columns() const {
  std::vector<int> columns;
  for (std::uint64_t at = 0; at < count_; ++at) {
    if (ops_[at].op != OpPushField) continue;
    int const column = static_cast<int>(static_cast<__int64>(ops_[at].value));
    if (std::find(columns.begin(), columns.end(), column) == columns.end()) columns.push_back(column);
  }
  return columns;
}

void ExprEval::EvalFunction(OpRec const* op, Value*& top) {
  internal::FunctionInfo const* const function =
      internal::FindFunction(static_cast<long long>(static_cast<__int64>(op->value)));
  if (function != nullptr) function->apply(top);
}

void ExprEval::SpatialOp(OpRec const* op, Value*& top) {
  FdoPtr<FdoIGeometry> const row = internal::GeometryOf(*top);
  FdoPtr<FdoIGeometry> const literal = internal::GeometryOf(top[-1]);
  bool const holds = internal::IsInRelation(row, static_cast<__int64>(op->value), literal);
  top->Reset();
  --top;
  top->Reset(holds);
}

void ExprEval::xyzmFunc(int which, Value*& top) {
  internal::ReplaceByOrdinate(which, internal::Lender::kRefused, *top);
}

}  // namespace fdo
