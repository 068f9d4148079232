#include "tools/quillon/filter.h"

#include <charconv>

#include "tools/quillon/messages.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

// Visits every name of a column in a filter and holds it against a table.
class ColumnCheck : public FdoIFilterProcessor, public FdoIExpressionProcessor {
 public:
  explicit ColumnCheck(TableDef const& def) : def_(def) {}

  void Check(FdoFilter* filter) {
    if (filter != nullptr) filter->Process(this);
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    Check(FdoPtr<FdoFilter>(filter.GetLeftOperand()));
    Check(FdoPtr<FdoFilter>(filter.GetRightOperand()));
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    Check(FdoPtr<FdoFilter>(filter.GetOperand()));
  }
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    Check(FdoPtr<FdoExpression>(filter.GetLeftExpression()));
    Check(FdoPtr<FdoExpression>(filter.GetRightExpression()));
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    // The values are literals or parameters.
    Check(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    Check(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    Check(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Check(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    Check(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Check(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }

  void ProcessBinaryExpression(FdoBinaryExpression& expression) override {
    Check(FdoPtr<FdoExpression>(expression.GetLeftExpression()));
    Check(FdoPtr<FdoExpression>(expression.GetRightExpression()));
  }
  void ProcessUnaryExpression(FdoUnaryExpression& expression) override {
    Check(FdoPtr<FdoExpression>(expression.GetExpression()));
  }
  void ProcessFunction(FdoFunction& function) override {
    FdoPtr<FdoExpressionCollection> const arguments = function.GetArguments();
    for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) Check(FdoPtr<FdoExpression>(arguments->GetItem(i)));
  }
  void ProcessIdentifier(FdoIdentifier& identifier) override {
    // A column's own name may hold the characters that otherwise part a scope from a name.
    if (def_.IndexOf(identifier.GetText()) < 0) FindColumn(def_, Utf8(identifier.GetName()));
  }
  void ProcessComputedIdentifier(FdoComputedIdentifier& identifier) override {
    Check(FdoPtr<FdoExpression>(identifier.GetExpression()));
  }

  void ProcessParameter(FdoParameter&) override {}
  void ProcessBooleanValue(FdoBooleanValue&) override {}
  void ProcessByteValue(FdoByteValue&) override {}
  void ProcessDateTimeValue(FdoDateTimeValue&) override {}
  void ProcessDecimalValue(FdoDecimalValue&) override {}
  void ProcessDoubleValue(FdoDoubleValue&) override {}
  void ProcessInt16Value(FdoInt16Value&) override {}
  void ProcessInt32Value(FdoInt32Value&) override {}
  void ProcessInt64Value(FdoInt64Value&) override {}
  void ProcessSingleValue(FdoSingleValue&) override {}
  void ProcessStringValue(FdoStringValue&) override {}
  void ProcessBLOBValue(FdoBLOBValue&) override {}
  void ProcessCLOBValue(FdoCLOBValue&) override {}
  void ProcessGeometryValue(FdoGeometryValue&) override {}

 protected:
  // It lives on the stack and is never released.
  void Dispose() override {}

 private:
  void Check(FdoExpression* expression) {
    if (expression != nullptr) expression->Process(this);
  }

  TableDef const& def_;
};

}  // namespace

FdoPtr<FdoFilter> ParseFilter(std::string const& text) {
  std::wstring wide;
  WideFromUtf8(text, wide);
  try {
    return FdoFilter::Parse(wide.c_str());
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    FdoString* const message = failure->GetExceptionMessage();
    std::string const detail = message == nullptr ? "" : Utf8(message);
    throw BadFilter(text, detail, PositionInMessage(detail));
  }
}

std::optional<int> PositionInMessage(std::string_view message) {
  constexpr std::string_view kBeforePlace = "Character ";
  if (message.substr(0, kBeforePlace.size()) != kBeforePlace) return std::nullopt;
  message.remove_prefix(kBeforePlace.size());
  int place = 0;  // counted from 1
  auto const read = std::from_chars(message.data(), message.data() + message.size(), place);
  if (read.ec != std::errc() || place < 1) return std::nullopt;
  return place - 1;
}

void CheckColumns(FdoFilter* filter, TableDef const& def) { ColumnCheck(def).Check(filter); }

}  // namespace fdo::tool
