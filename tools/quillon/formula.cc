#include "tools/quillon/formula.h"

#include <algorithm>
#include <exception>

#include "tools/quillon/filter.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/tree_visitor.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr ExprOptions kAsInSql = ExprOptions::AsInSql();

// Holds every call against the functions that there are.
class CallCheck : public TreeVisitor {
 protected:
  void OnFunction(FdoFunction& function) override {
    FdoPtr<FdoExpressionCollection> const given = function.GetArguments();
    // The same call without what may be wrong inside its arguments.
    FdoPtr<FdoExpressionCollection> const nulls = FdoExpressionCollection::Create();
    for (FdoInt32 i = 0; i < given->GetCount(); ++i)
      nulls->Add(FdoPtr<FdoInt32Value>(FdoInt32Value::Create()));
    FdoPtr<FdoExpression> const call = FdoFunction::Create(function.GetName(), nulls);
    bool fits = false;
    try {
      fits = ExprEval(call, nullptr, nullptr, kAsInSql).IsComplete();
    } catch (std::exception const&) {
      throw NoSuchFunction(Utf8(function.GetName()));
    }
    if (!fits) throw WrongArgumentCount(Utf8(function.GetName()), given->GetCount());
  }
};

}  // namespace

Formula ParseFormula(std::string const& text, bool isFilter) {
  Formula formula{text, nullptr, nullptr};
  std::string error;
  if (!isFilter) formula.expression = TryParseExpression(text, error);
  if (formula.expression == nullptr) {
    std::string filterError;
    formula.filter = TryParseFilter(text, filterError);
    if (formula.filter == nullptr) {
      auto const place = PositionInMessage(error), filterPlace = PositionInMessage(filterError);
      if (isFilter || filterPlace > place) throw BadFilter(text, filterError, filterPlace);
      throw BadExpression(text, error, place);
    }
  }
  CallCheck check;
  check.Visit(formula.expression.p);
  check.Visit(formula.filter.p);
  return formula;
}

ExprEval Compile(Formula const& formula, TableDef const& def) {
  try {
    ExprEval eval = formula.filter != nullptr ? ExprEval(formula.filter.p, &def, nullptr, kAsInSql)
                                              : ExprEval(formula.expression.p, &def, nullptr, kAsInSql);
    if (eval.IsComplete()) return eval;
  } catch (std::exception const& failure) {
    throw CannotCompute(formula.text, failure.what());
  }
  throw CannotCompute(formula.text, "it has something in it that has no value, such as a parameter");
}

ColumnDef::DataType TypeOfBytes(ExprEval const& eval, TableDef const& def) {
  auto const columns = eval.Columns();
  bool const mayBePlain = std::any_of(columns.begin(), columns.end(), [&](int column) {
    return def[column].Type() == ColumnDef::kBlob || def[column].Type() == ColumnDef::kClob;
  });
  return mayBePlain ? ColumnDef::kBlob : ColumnDef::kGeometry;
}

}  // namespace fdo::tool
