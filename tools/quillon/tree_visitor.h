// Walks filters and expressions.
#ifndef TOOLS_QUILLON_TREE_VISITOR_H_
#define TOOLS_QUILLON_TREE_VISITOR_H_

#include <Fdo.h>

namespace fdo::tool {

// Visits every node; a derived class says what is done at those of interest, operators before what they
// work on.
class TreeVisitor : public FdoIFilterProcessor, public FdoIExpressionProcessor {
 public:
  // Both accept null. Errors: throws what the derived class throws.
  void Visit(FdoFilter* filter) {
    if (filter != nullptr) filter->Process(this);
  }
  void Visit(FdoExpression* expression) {
    if (expression != nullptr) expression->Process(this);
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    Visit(FdoPtr<FdoFilter>(filter.GetLeftOperand()));
    Visit(FdoPtr<FdoFilter>(filter.GetRightOperand()));
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    Visit(FdoPtr<FdoFilter>(filter.GetOperand()));
  }
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    Visit(FdoPtr<FdoExpression>(filter.GetLeftExpression()));
    Visit(FdoPtr<FdoExpression>(filter.GetRightExpression()));
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    // The values are literals or parameters.
    Visit(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    Visit(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    Visit(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Visit(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    Visit(FdoPtr<FdoIdentifier>(filter.GetPropertyName()));
    Visit(FdoPtr<FdoExpression>(filter.GetGeometry()));
  }

  void ProcessBinaryExpression(FdoBinaryExpression& expression) override {
    Visit(FdoPtr<FdoExpression>(expression.GetLeftExpression()));
    Visit(FdoPtr<FdoExpression>(expression.GetRightExpression()));
  }
  void ProcessUnaryExpression(FdoUnaryExpression& expression) override {
    Visit(FdoPtr<FdoExpression>(expression.GetExpression()));
  }
  void ProcessFunction(FdoFunction& function) override {
    OnFunction(function);
    FdoPtr<FdoExpressionCollection> const arguments = function.GetArguments();
    for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) Visit(FdoPtr<FdoExpression>(arguments->GetItem(i)));
  }
  void ProcessIdentifier(FdoIdentifier& identifier) override { OnIdentifier(identifier); }
  void ProcessComputedIdentifier(FdoComputedIdentifier& identifier) override {
    Visit(FdoPtr<FdoExpression>(identifier.GetExpression()));
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

  virtual void OnIdentifier(FdoIdentifier&) {}
  virtual void OnFunction(FdoFunction&) {}
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_TREE_VISITOR_H_
