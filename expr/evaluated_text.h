// Rows and results as readable text, for tests of expressions.
#ifndef EXPR_EVALUATED_TEXT_H_
#define EXPR_EVALUATED_TEXT_H_

#include <Fdo.h>
#include <fdo/expr_eval.h>
#include <fdo/text_conversion.h>

#include <cmath>
#include <string>

#include "expr/listing.h"

namespace fdo {

// A value as a listing has it, its type told by its form; "undefined" for one that is.
inline std::string TextOf(Value const& value) {
  if (!value.IsValid()) return "undefined";
  OpRec const push[] = {{OpPushLiteral, value}};
  std::wstring const line = internal::ListProgram(push, nullptr);
  std::size_t const operand = line.find_first_not_of(L' ', std::wstring(L"OpPushLiteral").size());
  return ToUtf8(line.substr(operand, line.size() - operand - 1).c_str());
}

inline FdoPtr<FdoFilter> ParsedFilter(wchar_t const* text) {
  return FdoPtr<FdoFilter>(FdoFilter::Parse(text));
}
inline FdoPtr<FdoExpression> ParsedExpression(wchar_t const* text) {
  return FdoPtr<FdoExpression>(FdoExpression::Parse(text));
}

// What the expression, or filter, gives for the row: the value as text, or "fails".
inline std::string Evaluated(ExprEval& eval, Row const* row) {
  Value result(L"left from before");
  if (eval.Eval(row, &result)) return TextOf(result);
  return result.IsValid() ? "fails and leaves a result" : "fails";
}
inline std::string EvaluatedExpression(wchar_t const* text, Row const* row = nullptr,
                                       ExprOptions const& options = {}) {
  ExprEval eval(ParsedExpression(text), row == nullptr ? nullptr : row->Def(), nullptr, options);
  return Evaluated(eval, row);
}
inline std::string EvaluatedFilter(wchar_t const* text, Row const* row = nullptr,
                                   ExprOptions const& options = {}) {
  ExprEval eval(ParsedFilter(text), row == nullptr ? nullptr : row->Def(), nullptr, options);
  return Evaluated(eval, row);
}

}  // namespace fdo

#endif  // EXPR_EVALUATED_TEXT_H_
