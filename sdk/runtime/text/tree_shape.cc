#include "sdk/runtime/text/tree_shape.h"

#include <cstdio>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

std::string Utf8(FdoString* text) { return static_cast<char const*>(FdoStringP(text)); }

// Walks by recursion, so it is also a measure of how deep parsed trees are.
class Shape final : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  std::string text;

  void Visit(FdoExpression* node) {
    if (node == nullptr) {
      text += "nothing";
    } else {
      node->Process(this);
    }
  }
  void Visit(FdoFilter* node) {
    if (node == nullptr) {
      text += "nothing";
    } else {
      node->Process(this);
    }
  }

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override {
    FdoPtr<FdoExpression> left = expr.GetLeftExpression();
    FdoPtr<FdoExpression> right = expr.GetRightExpression();
    text += "+-*/"[expr.GetOperation()];
    Pair(left.p, right.p);
  }
  void ProcessUnaryExpression(FdoUnaryExpression& expr) override {
    FdoPtr<FdoExpression> operand = expr.GetExpression();
    text += "-(";
    Visit(operand);
    text += ")";
  }
  void ProcessFunction(FdoFunction& expr) override {
    text += "call " + Utf8(expr.GetName()) + "(";
    FdoPtr<FdoExpressionCollection> arguments = expr.GetArguments();
    for (FdoInt32 i = 0; i < arguments->GetCount(); ++i) {
      if (i > 0) text += ", ";
      FdoPtr<FdoExpression> argument = arguments->GetItem(i);
      Visit(argument);
    }
    text += ")";
  }
  void ProcessIdentifier(FdoIdentifier& expr) override { text += "name " + Utf8(expr.GetText()); }
  void ProcessComputedIdentifier(FdoComputedIdentifier& expr) override {
    FdoPtr<FdoExpression> expression = expr.GetExpression();
    text += "computed " + Utf8(expr.GetName()) + "(";
    Visit(expression);
    text += ")";
  }
  void ProcessParameter(FdoParameter& expr) override { text += "parameter " + Utf8(expr.GetName()); }
  void ProcessBooleanValue(FdoBooleanValue& expr) override {
    Value(expr, "boolean", [&] { return std::string(expr.GetBoolean() ? "true" : "false"); });
  }
  void ProcessByteValue(FdoByteValue& expr) override {
    Value(expr, "byte", [&] { return std::to_string(expr.GetByte()); });
  }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override {
    Value(expr, "datetime", [&] {
      FdoDateTime const at = expr.GetDateTime();
      char parts[80];
      std::snprintf(parts, sizeof parts, "%d-%d-%d %d:%d:%.9g", at.year, at.month, at.day, at.hour, at.minute,
                    static_cast<double>(at.seconds));
      return std::string(parts);
    });
  }
  void ProcessDecimalValue(FdoDecimalValue& expr) override {
    Value(expr, "decimal", [&] { return Exact(expr.GetDecimal()); });
  }
  void ProcessDoubleValue(FdoDoubleValue& expr) override {
    Value(expr, "double", [&] { return Exact(expr.GetDouble()); });
  }
  void ProcessInt16Value(FdoInt16Value& expr) override {
    Value(expr, "int16", [&] { return std::to_string(expr.GetInt16()); });
  }
  void ProcessInt32Value(FdoInt32Value& expr) override {
    Value(expr, "int32", [&] { return std::to_string(expr.GetInt32()); });
  }
  void ProcessInt64Value(FdoInt64Value& expr) override {
    Value(expr, "int64", [&] { return std::to_string(expr.GetInt64()); });
  }
  void ProcessSingleValue(FdoSingleValue& expr) override {
    Value(expr, "single", [&] { return Exact(static_cast<double>(expr.GetSingle())); });
  }
  void ProcessStringValue(FdoStringValue& expr) override {
    Value(expr, "string", [&] { return Utf8(expr.GetString()); });
  }
  void ProcessBLOBValue(FdoBLOBValue& expr) override {
    Value(expr, "blob", [&] { return Bytes(FdoPtr<FdoByteArray>(expr.GetData())); });
  }
  void ProcessCLOBValue(FdoCLOBValue& expr) override {
    Value(expr, "clob", [&] { return Bytes(FdoPtr<FdoByteArray>(expr.GetData())); });
  }
  void ProcessGeometryValue(FdoGeometryValue& expr) override {
    FdoPtr<FdoByteArray> bytes = expr.GetGeometry();
    text += bytes == nullptr ? "geometry null" : "geometry " + Bytes(bytes);
  }
  void ProcessSubSelectExpression(FdoSubSelectExpression& expr) override {
    FdoPtr<FdoIdentifier> property = expr.GetPropertyName();
    FdoPtr<FdoIdentifier> selected = expr.GetFeatureClassName();
    FdoPtr<FdoFilter> filter = expr.GetFilter();
    FdoPtr<FdoJoinCriteriaCollection> joins = expr.GetJoinCriteria();
    text += "select(";
    Pair(static_cast<FdoExpression*>(property.p), static_cast<FdoExpression*>(selected.p));
    for (FdoInt32 i = 0; i < joins->GetCount(); ++i) {
      FdoPtr<FdoJoinCriteria> join = joins->GetItem(i);
      FdoPtr<FdoIdentifier> joined = join->GetJoinClass();
      FdoPtr<FdoFilter> condition = join->GetFilter();
      text += " join " + std::to_string(join->GetJoinType()) + " " + Utf8(join->GetAlias()) + " ";
      Visit(joined.p);
      text += " on ";
      Visit(condition);
    }
    text += " where ";
    Visit(filter);
    text += ")";
  }

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) override {
    FdoPtr<FdoFilter> left = filter.GetLeftOperand();
    FdoPtr<FdoFilter> right = filter.GetRightOperand();
    text += filter.GetOperation() == FdoBinaryLogicalOperations_And ? "AND" : "OR";
    Pair(left.p, right.p);
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) override {
    FdoPtr<FdoFilter> operand = filter.GetOperand();
    text += "NOT(";
    Visit(operand);
    text += ")";
  }
  void ProcessComparisonCondition(FdoComparisonCondition& filter) override {
    constexpr char const* kOperations[] = {"=", "<>", ">", ">=", "<", "<=", "LIKE"};
    FdoPtr<FdoExpression> left = filter.GetLeftExpression();
    FdoPtr<FdoExpression> right = filter.GetRightExpression();
    text += kOperations[filter.GetOperation()];
    Pair(left.p, right.p);
  }
  void ProcessInCondition(FdoInCondition& filter) override {
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    FdoPtr<FdoValueExpressionCollection> values = filter.GetValues();
    FdoPtr<FdoSubSelectExpression> subSelect = filter.GetSubSelect();
    text += "IN(";
    Visit(name.p);
    for (FdoInt32 i = 0; i < values->GetCount(); ++i) {
      FdoPtr<FdoValueExpression> value = values->GetItem(i);
      text += ", ";
      Visit(value.p);
    }
    if (subSelect != nullptr) {
      text += ", ";
      Visit(subSelect.p);
    }
    text += ")";
  }
  void ProcessNullCondition(FdoNullCondition& filter) override {
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    text += "NULL(";
    Visit(name.p);
    text += ")";
  }
  void ProcessSpatialCondition(FdoSpatialCondition& filter) override {
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    FdoPtr<FdoExpression> geometry = filter.GetGeometry();
    text += "spatial " + std::to_string(filter.GetOperation());
    Pair(static_cast<FdoExpression*>(name.p), geometry.p);
  }
  void ProcessDistanceCondition(FdoDistanceCondition& filter) override {
    FdoPtr<FdoIdentifier> name = filter.GetPropertyName();
    FdoPtr<FdoExpression> geometry = filter.GetGeometry();
    text += "distance " + std::to_string(filter.GetOperation()) + " " + Exact(filter.GetDistance());
    Pair(static_cast<FdoExpression*>(name.p), geometry.p);
  }

 protected:
  void Dispose() override {}

 private:
  template <class Node>
  void Pair(Node* left, Node* right) {
    text += "(";
    Visit(left);
    text += ", ";
    Visit(right);
    text += ")";
  }

  template <class Text>
  void Value(FdoDataValue& value, char const* type, Text valueText) {
    text += value.IsNull() ? std::string("null ") + type : type + (" " + valueText());
  }

  static std::string Exact(double number) {
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.17g", number);
    return digits;
  }

  static std::string Bytes(FdoByteArray* bytes) {
    std::string hex;
    for (FdoInt32 i = 0; i < bytes->GetCount(); ++i) {
      char digits[3];
      std::snprintf(digits, sizeof digits, "%02x", (*bytes)[i]);
      hex += digits;
    }
    return hex;
  }
};

}  // namespace

std::string ShapeOf(FdoFilter* filter) {
  Shape shape;
  shape.Visit(filter);
  return shape.text;
}

std::string ShapeOf(FdoExpression* expression) {
  Shape shape;
  shape.Visit(expression);
  return shape.text;
}

}  // namespace fdo_sdk
