// Expressions and filters that are computed here, not by a source.
#ifndef TOOLS_QUILLON_FORMULA_H_
#define TOOLS_QUILLON_FORMULA_H_

#include <fdo/expr_eval.h>
#include <fdo/schema.h>

#include <Fdo.h>

#include <string>

namespace fdo::tool {

// One of the two; the other is null.
struct Formula {
  std::string text;
  FdoPtr<FdoExpression> expression;
  FdoPtr<FdoFilter> filter;
};

// An expression or, when the text is none, a filter; only a filter when that is asked for.
// Errors: throws Failure for text that is neither, with a caret under the place that the parser that came
// further stopped at, and for functions that are unknown or have a wrong number of arguments.
Formula ParseFormula(std::string const& text, bool isFilter);

// Computes as SQL stores do, see ExprOptions::AsInSql.
// Errors: throws Failure for what cannot be computed.
// Requires: every identifier is a column of def
ExprEval Compile(Formula const& formula, TableDef const& def);

// What the bytes are that the formula may give: bytes come from columns and from geometry literals only.
ColumnDef::DataType TypeOfBytes(ExprEval const& eval, TableDef const& def);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_FORMULA_H_
