#include "testing/memory_provider/filter_evaluation.h"

#include <string>

#include "FdoSpatial.h"
#include "testing/memory_provider/function_evaluation.h"
#include "testing/memory_provider/value_comparison.h"

namespace memory_provider {
namespace {

[[noreturn]] void Refuse(std::wstring const& what) { throw FdoCommandException::Create(what.c_str()); }

// Null and unknown are one: what is neither true nor false.
enum class Truth { kFalse, kTrue, kUnknown };

Truth TruthOf(bool value) { return value ? Truth::kTrue : Truth::kFalse; }

bool IsNullValue(FdoLiteralValue* value) {
  if (auto* data = dynamic_cast<FdoDataValue*>(value)) return data->IsNull();
  if (auto* geometry = dynamic_cast<FdoGeometryValue*>(value)) return geometry->IsNull();
  return true;
}

// Evaluates one filter for one row; each operation leaves its answer in truth.
class Evaluation : public FdoIFilterProcessor {
 public:
  Evaluation(Table const& table, Row const& row, FdoParameterValueCollection* parameters)
      : table_(table), row_(row), parameters_(parameters) {}

  Truth Of(FdoFilter* filter) {
    FdoPtr<FdoFilter> operand(filter);
    if (operand == nullptr) Refuse(L"A part of the filter is missing.");
    operand->Process(this);
    return truth_;
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    bool const isAnd = filter.GetOperation() == FdoBinaryLogicalOperations_And;
    Truth const decisive = isAnd ? Truth::kFalse : Truth::kTrue;
    Truth const left = Of(filter.GetLeftOperand());
    if (left == decisive) {
      truth_ = left;
      return;
    }
    Truth const right = Of(filter.GetRightOperand());
    truth_ = right == decisive || left != Truth::kUnknown ? right : left;
  }

  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    Truth const operand = Of(filter.GetOperand());
    truth_ = operand == Truth::kUnknown ? operand : TruthOf(operand == Truth::kFalse);
  }

  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    FdoPtr<FdoLiteralValue> left = Value(filter.GetLeftExpression());
    FdoPtr<FdoLiteralValue> right = Value(filter.GetRightExpression());
    if (filter.GetOperation() == FdoComparisonOperations_Like) {
      auto* date = dynamic_cast<FdoDateTimeValue*>(left.p);
      if (date != nullptr) left = FdoStringValue::Create(DateText(date->GetDateTime()).c_str());
      auto* text = dynamic_cast<FdoStringValue*>(left.p);
      auto* pattern = dynamic_cast<FdoStringValue*>(right.p);
      truth_ = text == nullptr || pattern == nullptr
                   ? Truth::kUnknown
                   : TruthOf(MatchesPattern(text->GetString(), pattern->GetString()));
      return;
    }
    truth_ = Compared(CompareLiterals(left, right), filter.GetOperation());
  }

  void ProcessInCondition(FdoInCondition& filter) override {
    FdoPtr<FdoSubSelectExpression> subSelect = filter.GetSubSelect();
    if (subSelect != nullptr) Refuse(L"The memory provider evaluates no sub-selects.");
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    FdoLiteralValue* value = ValueOf(name);
    FdoPtr<FdoValueExpressionCollection> values = filter.GetValues();
    // As one comparison after the other, joined by OR.
    truth_ = Truth::kFalse;
    for (FdoInt32 i = 0; i < values->GetCount(); ++i) {
      FdoPtr<FdoLiteralValue> listed = Value(values->GetItem(i));
      Truth const same = Compared(CompareLiterals(value, listed), FdoComparisonOperations_EqualTo);
      if (same == Truth::kTrue || truth_ == Truth::kFalse) truth_ = same;
      if (truth_ == Truth::kTrue) return;
    }
  }

  void ProcessNullCondition(FdoNullCondition& filter) override {
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    truth_ = TruthOf(ValueOf(name) == nullptr);
  }

  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    FdoPtr<FdoIGeometry> left;
    FdoPtr<FdoIGeometry> right;
    if (!Sides(filter, filter.GetGeometry(), left, right)) return;
    truth_ = TruthOf(FdoSpatialUtility::Evaluate(left, filter.GetOperation(), right));
  }

  // Positions nearer than the distance count as one.
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    FdoPtr<FdoIGeometry> left;
    FdoPtr<FdoIGeometry> right;
    if (!Sides(filter, filter.GetGeometry(), left, right)) return;
    double const distance = filter.GetDistance();
    FdoSpatialOperations const operation = FdoSpatialOperations_Intersects;
    bool const near = distance > 0 ? FdoSpatialUtility::Evaluate(left, operation, right, distance)
                                   : FdoSpatialUtility::Evaluate(left, operation, right);
    truth_ = TruthOf(near == (filter.GetOperation() == FdoDistanceOperations_Within));
  }

  // Takes the reference over. Gives: one reference, or null for null.
  FdoLiteralValue* Value(FdoExpression* given) {
    FdoPtr<FdoExpression> expression(given);
    if (auto* literal = dynamic_cast<FdoLiteralValue*>(expression.p)) {
      return IsNullValue(literal) ? nullptr : FDO_SAFE_ADDREF(literal);
    }
    if (auto* binary = dynamic_cast<FdoBinaryExpression*>(expression.p)) {
      FdoPtr<FdoLiteralValue> left = Value(binary->GetLeftExpression());
      FdoPtr<FdoLiteralValue> right = Value(binary->GetRightExpression());
      return Calculate(left, binary->GetOperation(), right);
    }
    if (auto* unary = dynamic_cast<FdoUnaryExpression*>(expression.p)) {
      FdoPtr<FdoLiteralValue> zero = FdoInt32Value::Create(0);
      FdoPtr<FdoLiteralValue> operand = Value(unary->GetExpression());
      return Calculate(zero, FdoBinaryOperations_Subtract, operand);
    }
    if (auto* function = dynamic_cast<FdoFunction*>(expression.p)) {
      FdoPtr<FdoExpressionCollection> given = function->GetArguments();
      Arguments arguments;
      for (FdoInt32 i = 0; i < given->GetCount(); ++i) {
        arguments.push_back(FdoPtr<FdoLiteralValue>(Value(given->GetItem(i))));
      }
      return CallFunction(function->GetName(), arguments);
    }
    if (auto* parameter = dynamic_cast<FdoParameter*>(expression.p)) {
      FdoPtr<FdoParameterValue> bound = parameters_->GetItem(parameter->GetName());
      FdoPtr<FdoLiteralValue> value = bound->GetValue();
      return IsNullValue(value) ? nullptr : value.Detach();
    }
    if (auto* computed = dynamic_cast<FdoComputedIdentifier*>(expression.p))
      return Value(computed->GetExpression());
    if (auto* identifier = dynamic_cast<FdoIdentifier*>(expression.p)) {
      return FDO_SAFE_ADDREF(ValueOf(identifier));
    }
    Refuse(L"The memory provider evaluates no sub-selects.");
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  static Truth Compared(FdoCompareType order, FdoComparisonOperations operation) {
    if (order == FdoCompareType_Undefined) return Truth::kUnknown;
    bool const equal = order == FdoCompareType_Equal;
    switch (operation) {
      case FdoComparisonOperations_EqualTo:
        return TruthOf(equal);
      case FdoComparisonOperations_NotEqualTo:
        return TruthOf(!equal);
      case FdoComparisonOperations_GreaterThan:
        return TruthOf(order == FdoCompareType_Greater);
      case FdoComparisonOperations_GreaterThanOrEqualTo:
        return TruthOf(order == FdoCompareType_Greater || equal);
      case FdoComparisonOperations_LessThan:
        return TruthOf(order == FdoCompareType_Less);
      case FdoComparisonOperations_LessThanOrEqualTo:
        return TruthOf(order == FdoCompareType_Less || equal);
      case FdoComparisonOperations_Like:
        break;
    }
    return Truth::kUnknown;
  }

  // The two geometries of a condition; false, and the answer unknown, when one is null. Takes operand over.
  bool Sides(FdoGeometricCondition& condition, FdoExpression* operand, FdoPtr<FdoIGeometry>& left,
             FdoPtr<FdoIGeometry>& right) {
    FdoPtr<FdoIdentifier> name = condition.GetPropertyName();
    FdoPtr<FdoLiteralValue> constant = Value(operand);
    left = GeometryOf(ValueOf(name));
    right = GeometryOf(constant);
    truth_ = Truth::kUnknown;
    return left != nullptr && right != nullptr;
  }

  // Gives: one reference; null for null.
  static FdoIGeometry* GeometryOf(FdoLiteralValue* value) {
    auto* geometry = dynamic_cast<FdoGeometryValue*>(value);
    if (geometry == nullptr) return nullptr;
    FdoPtr<FdoByteArray> bytes = geometry->GetGeometry();
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    return factory->CreateGeometryFromFgf(bytes);
  }

  // Borrowed: while the row lives. Null for null.
  FdoLiteralValue* ValueOf(FdoIdentifier* name) {
    if (name == nullptr) Refuse(L"A condition has no property.");
    return row_[table_.ExistingPositionOf(name->GetName())];
  }

  Table const& table_;
  Row const& row_;
  FdoParameterValueCollection* parameters_;
  Truth truth_ = Truth::kUnknown;
};

}  // namespace

bool Holds(FdoFilter* filter, Table const& table, Row const& row, FdoParameterValueCollection* parameters) {
  if (filter == nullptr) return true;
  return Evaluation(table, row, parameters).Of(FDO_SAFE_ADDREF(filter)) == Truth::kTrue;
}

FdoLiteralValue* Evaluate(FdoExpression* expression, Table const& table, Row const& row,
                          FdoParameterValueCollection* parameters) {
  return Evaluation(table, row, parameters).Value(FDO_SAFE_ADDREF(expression));
}

}  // namespace memory_provider
