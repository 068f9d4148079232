// A program as text, a line for each instruction.
#ifndef EXPR_LISTING_H_
#define EXPR_LISTING_H_

#include <fdo/expr_eval.h>

#include <span>
#include <string>

namespace fdo::internal {

// See ExprEval::Listing. The table may be null.
std::wstring ListProgram(std::span<OpRec const> program, TableDef const* table);

}  // namespace fdo::internal

#endif  // EXPR_LISTING_H_
