// The operands of a condition: columns, literals, arithmetic and functions, with what they are and, where
// GDAL computes the same, how it writes them.
#ifndef OGR_BACKEND_SQL_OPERAND_H_
#define OGR_BACKEND_SQL_OPERAND_H_

#include <Fdo.h>
#include <fdo/schema.h>
#include <fdo/value.h>

#include <optional>
#include <string>
#include <vector>

#include "expr/column_kinds.h"
#include "ogr_backend/filter_sql.h"

namespace fdo::internal {

// Thrown where a filter has no meaning; caught by TranslateFilter.
struct FilterRefused {
  std::wstring reason;
};

struct SqlOperand {
  std::optional<ComparedAs> kind;  // nothing for null
  bool isReal = false;             // of numbers
  double bound = 0;                // of integers: none is farther from zero
  std::optional<Value> literal;    // an integer, a double or a text
  std::string sql;
  std::wstring rowsOnly;  // why there is no sql; empty where there is
};

SqlOperand NumberOperand(Value const& number, FilterLanguage language);

// Writes expressions. Throws FilterRefused for what has no value, and for what stores of SQL do not take:
// calculations with texts, and functions of what they are not made for.
class SqlOperandWriter : public FdoIExpressionProcessor {
 public:
  // columns: the flags of the columns that are used are set there.
  SqlOperandWriter(TableDef const& def, FilterTarget const& target, std::vector<bool>& columns)
      : def_(def), target_(target), columns_(columns) {}

  SqlOperand Write(FdoExpression* expression);
  SqlOperand WriteColumn(FdoIdentifier& identifier);

  void ProcessBinaryExpression(FdoBinaryExpression& expr) override;
  void ProcessUnaryExpression(FdoUnaryExpression& expr) override;
  void ProcessFunction(FdoFunction& expr) override;
  void ProcessIdentifier(FdoIdentifier& expr) override;
  void ProcessComputedIdentifier(FdoComputedIdentifier& expr) override;
  void ProcessParameter(FdoParameter& expr) override;
  void ProcessBooleanValue(FdoBooleanValue& expr) override;
  void ProcessByteValue(FdoByteValue& expr) override;
  void ProcessDateTimeValue(FdoDateTimeValue& expr) override;
  void ProcessDecimalValue(FdoDecimalValue& expr) override;
  void ProcessDoubleValue(FdoDoubleValue& expr) override;
  void ProcessInt16Value(FdoInt16Value& expr) override;
  void ProcessInt32Value(FdoInt32Value& expr) override;
  void ProcessInt64Value(FdoInt64Value& expr) override;
  void ProcessSingleValue(FdoSingleValue& expr) override;
  void ProcessStringValue(FdoStringValue& expr) override;
  void ProcessBLOBValue(FdoBLOBValue& expr) override;
  void ProcessCLOBValue(FdoCLOBValue& expr) override;
  void ProcessGeometryValue(FdoGeometryValue& expr) override;
  void ProcessSubSelectExpression(FdoSubSelectExpression& expr) override;

 protected:
  void Dispose() override {}  // lives on the stack of whoever writes a filter

 private:
  int FindColumn(FdoIdentifier& identifier) const;
  template <class Number>
  void Literal(FdoDataValue& value, Number number);
  void CheckCalculation(FdoBinaryOperations operation, SqlOperand const& right);

  TableDef const& def_;
  FilterTarget const& target_;
  std::vector<bool>& columns_;
  SqlOperand result_;
  int depth_ = 0;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_SQL_OPERAND_H_
