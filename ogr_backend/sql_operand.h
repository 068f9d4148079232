// The operands of a condition: columns, literals and arithmetic, written as SQL.
#ifndef OGR_BACKEND_SQL_OPERAND_H_
#define OGR_BACKEND_SQL_OPERAND_H_

#include <Fdo.h>
#include <fdo/schema.h>

#include <string>
#include <vector>

#include "ogr_backend/filter_sql.h"

namespace fdo::internal {

// Thrown where a filter cannot be written; caught by TranslateFilter.
struct FilterRefused {
  std::wstring reason;
  bool holdsForRows = false;  // the filter has a meaning all the same
};

struct SqlOperand {
  enum Kind { kNumber, kText, kDate, kGeometry, kOther };

  std::string sql;
  Kind kind = kOther;
  bool isLiteral = false;
  bool isZero = false;  // of a number literal
  std::wstring text;    // of a text literal
};

// A text constant in single quotes. Throws FilterRefused for text that GDAL's dialect cannot hold.
std::string QuoteText(std::wstring const& text, FilterTarget const& target);

// Writes expressions. Throws FilterRefused.
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
  void Integer(FdoDataValue& value, __int64 number);
  void Real(FdoDataValue& value, double number);

  TableDef const& def_;
  FilterTarget const& target_;
  std::vector<bool>& columns_;
  SqlOperand result_;
  int depth_ = 0;
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_SQL_OPERAND_H_
