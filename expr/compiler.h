// Trees of FDO's filters and expressions as programs.
#ifndef EXPR_COMPILER_H_
#define EXPR_COMPILER_H_

#include <fdo/expr_eval.h>

#include <vector>

namespace fdo::internal {

struct CompiledTree {
  std::vector<OpRec> program;
  bool callsFit = true;  // every function is called with a number of arguments that it takes
};

// What the constructors of ExprEval promise. Recursion does not grow with the tree.
CompiledTree Compile(FdoFilter* filter, TableDef const* table, bool* usedColumns, ExprOptions const& options);
CompiledTree Compile(FdoExpression* expression, TableDef const* table, bool* usedColumns,
                     ExprOptions const& options);

}  // namespace fdo::internal

#endif  // EXPR_COMPILER_H_
