#include "sdk/providers/sqlite/expression_sql.h"

#include <vector>

#include "sdk/providers/sqlite/function_table.h"
#include "sdk/providers/sqlite/sql_names.h"

namespace fdo_sqlite {
namespace {

constexpr int kMaximumLevels = 255;

struct Arithmetic {
  FdoBinaryOperations operation;
  char const* sql;
  SqlPower power;
};

constexpr Arithmetic kArithmetic[] = {
    {FdoBinaryOperations_Add, "+", SqlPower::kSum},
    {FdoBinaryOperations_Subtract, "-", SqlPower::kSum},
    {FdoBinaryOperations_Multiply, "*", SqlPower::kProduct},
    {FdoBinaryOperations_Divide, "/", SqlPower::kProduct},
};

class ExpressionTranslation : public FdoIExpressionProcessor {
 public:
  explicit ExpressionTranslation(SqlScope const& scope) : scope_(scope) {}

  // Null is where an operand is missing.
  SqlValue Of(FdoExpression* expression) {
    if (expression == nullptr) Refuse(L"A part of the expression is missing.");
    if (++levels_ > kMaximumLevels) Refuse(L"The expression is nested too deeply.");
    expression->Process(this);
    --levels_;
    return std::move(value_);
  }

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override {
    FdoPtr<FdoExpression> operand = expr.GetLeftExpression();
    SqlValue const left = Of(operand);
    operand = expr.GetRightExpression();
    SqlValue const right = Of(operand);
    value_ = SqlValue();
    value_.isAggregate = left.isAggregate || right.isAggregate;
    value_.readsRow = left.readsRow || right.readsRow;
    RequireOneSort(value_);
    bool const isText = left.kind == SqlKind::kText || right.kind == SqlKind::kText;
    if (isText && expr.GetOperation() == FdoBinaryOperations_Add) {
      Join(left, right);
    } else {
      Calculate(left, expr.GetOperation(), right);
    }
  }

  void ProcessUnaryExpression(FdoUnaryExpression& expr) override {
    FdoPtr<FdoExpression> operand = expr.GetExpression();
    SqlValue const value = Of(operand);
    SqlFragment const number = AsNumber(value, L"A minus sign");
    SqlFragment negated("-");
    // In parentheses, since two minus signs together begin a comment.
    negated.Add("(");
    negated.Add(number, 2);
    negated.Add(")");
    SqlValue made = Number(value);
    made.sql = negated;
    value_ = std::move(made);
  }

  void ProcessFunction(FdoFunction& expr) override {
    FdoPtr<FdoExpressionCollection> given = expr.GetArguments();
    FdoInt32 const count = given == nullptr ? 0 : given->GetCount();
    FunctionRow const& row = FindFunction(expr.GetName(), static_cast<std::size_t>(count));
    if (row.isAggregate && !scope_.aggregates) {
      Refuse(std::wstring(L"The function \"") + row.name + L"\" summarises rows and has no value for one.");
    }
    std::vector<SqlValue> arguments;
    for (FdoInt32 i = 0; i < count; ++i) {
      FdoPtr<FdoExpression> argument = given->GetItem(i);
      arguments.push_back(Of(argument));
    }
    value_ = CallFunction(row, arguments);
  }

  void ProcessIdentifier(FdoIdentifier& expr) override {
    StoreColumn const& column = ColumnNamed(expr, scope_);
    value_ = ColumnValue(column, SqlNameOf(column, scope_));
  }

  void ProcessComputedIdentifier(FdoComputedIdentifier& expr) override {
    FdoPtr<FdoExpression> expression = expr.GetExpression();
    value_ = Of(expression);
  }

  void ProcessParameter(FdoParameter& expr) override {
    std::wstring const name = expr.GetName();
    FdoPtr<FdoParameterValue> given =
        scope_.parameters == nullptr ? nullptr : scope_.parameters->FindItem(name.c_str());
    FdoPtr<FdoLiteralValue> value = given == nullptr ? nullptr : given->GetValue();
    if (value == nullptr) Refuse(L"The parameter \"" + name + L"\" has no value.");
    value_ = Of(value);
  }

  void ProcessBooleanValue(FdoBooleanValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessByteValue(FdoByteValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessDecimalValue(FdoDecimalValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessDoubleValue(FdoDoubleValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessInt16Value(FdoInt16Value& expr) override { value_ = LiteralValue(expr); }
  void ProcessInt32Value(FdoInt32Value& expr) override { value_ = LiteralValue(expr); }
  void ProcessInt64Value(FdoInt64Value& expr) override { value_ = LiteralValue(expr); }
  void ProcessSingleValue(FdoSingleValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessStringValue(FdoStringValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessBLOBValue(FdoBLOBValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessCLOBValue(FdoCLOBValue& expr) override { value_ = LiteralValue(expr); }
  void ProcessGeometryValue(FdoGeometryValue&) override {
    Refuse(L"A geometry can only be the constant of a spatial or distance condition.");
  }
  void ProcessSubSelectExpression(FdoSubSelectExpression&) override {
    Refuse(L"This provider has no sub-selects.");
  }

 protected:
  void Dispose() override {}  // lives on the stack

 private:
  // A number made from this one.
  static SqlValue Number(SqlValue const& value) {
    SqlValue made;
    made.kind = value.kind == SqlKind::kBoolean ? SqlKind::kInteger : value.kind;
    made.type = made.kind == SqlKind::kReal ? FdoDataType_Double : FdoDataType_Int64;
    made.isAggregate = value.isAggregate;
    made.readsRow = value.readsRow;
    return made;
  }

  void Calculate(SqlValue const& left, FdoBinaryOperations operation, SqlValue const& right) {
    bool const isReal = left.kind == SqlKind::kReal || right.kind == SqlKind::kReal;
    value_.kind = isReal ? SqlKind::kReal : SqlKind::kInteger;
    value_.type = isReal ? FdoDataType_Double : FdoDataType_Int64;
    for (Arithmetic const& row : kArithmetic) {
      if (row.operation != operation) continue;
      std::wstring const sign(1, static_cast<wchar_t>(row.sql[0]));
      std::wstring const of = L"The operator \"" + sign + L"\"";
      value_.sql = SqlFragment::Binary(AsNumber(left, of), row.sql, row.power, AsNumber(right, of));
      return;
    }
    Refuse(L"An arithmetic operation is unknown.");
  }

  void Join(SqlValue const& left, SqlValue const& right) {
    constexpr wchar_t kOf[] = L"The operator \"+\" after or before a text";
    value_.kind = SqlKind::kText;
    value_.type = FdoDataType_String;
    SqlFragment const joined =
        SqlFragment::Binary(AsText(left, kOf), "||", SqlPower::kProduct, AsText(right, kOf));
    value_.sql.AddWithin(joined, SqlPower::kAtom, 0);
  }

  SqlScope const& scope_;
  SqlValue value_;
  int levels_ = 0;
};

}  // namespace

StoreColumn const& ColumnNamed(FdoIdentifier& name, SqlScope const& scope) {
  FdoInt32 scopes = 0;
  FdoString** const within = name.GetScope(scopes);
  bool const isOfClass = scopes == 0 || (scopes == 1 && scope.ofClass.name == within[0]);
  StoreColumn const* column = isOfClass ? scope.ofClass.Column(name.GetName()) : nullptr;
  if (column == nullptr) {
    FdoString* const text = name.GetText();
    Refuse(L"The class \"" + scope.ofClass.name + L"\" has no property \"" + (text == nullptr ? L"" : text) +
           L"\".");
  }
  return *column;
}

std::string SqlNameOf(StoreColumn const& column, SqlScope const& scope) {
  return scope.tablePrefix + QuotedName(column.sqlName);
}

SqlValue TranslateExpression(FdoExpression& expression, SqlScope const& scope) {
  return ExpressionTranslation(scope).Of(&expression);
}

}  // namespace fdo_sqlite
