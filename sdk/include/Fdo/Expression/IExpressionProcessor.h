// FdoIExpressionProcessor is the visitor of expression nodes.
#ifndef FDO_EXPRESSION_IEXPRESSION_PROCESSOR_H_
#define FDO_EXPRESSION_IEXPRESSION_PROCESSOR_H_

#include "FdoStd.h"

class FdoBinaryExpression;
class FdoUnaryExpression;
class FdoFunction;
class FdoIdentifier;
class FdoComputedIdentifier;
class FdoParameter;
class FdoBooleanValue;
class FdoByteValue;
class FdoDateTimeValue;
class FdoDecimalValue;
class FdoDoubleValue;
class FdoInt16Value;
class FdoInt32Value;
class FdoInt64Value;
class FdoSingleValue;
class FdoStringValue;
class FdoBLOBValue;
class FdoCLOBValue;
class FdoGeometryValue;
class FdoSubSelectExpression;

// A node calls exactly one operation, with itself, and does not descend. The order of the operations is
// part of the interface.
class FdoIExpressionProcessor : public virtual FdoIDisposable {
 public:
  virtual void ProcessBinaryExpression(FdoBinaryExpression& expr) = 0;
  virtual void ProcessUnaryExpression(FdoUnaryExpression& expr) = 0;
  virtual void ProcessFunction(FdoFunction& expr) = 0;
  virtual void ProcessIdentifier(FdoIdentifier& expr) = 0;
  virtual void ProcessComputedIdentifier(FdoComputedIdentifier& expr) = 0;
  virtual void ProcessParameter(FdoParameter& expr) = 0;
  virtual void ProcessBooleanValue(FdoBooleanValue& expr) = 0;
  virtual void ProcessByteValue(FdoByteValue& expr) = 0;
  virtual void ProcessDateTimeValue(FdoDateTimeValue& expr) = 0;
  virtual void ProcessDecimalValue(FdoDecimalValue& expr) = 0;
  virtual void ProcessDoubleValue(FdoDoubleValue& expr) = 0;
  virtual void ProcessInt16Value(FdoInt16Value& expr) = 0;
  virtual void ProcessInt32Value(FdoInt32Value& expr) = 0;
  virtual void ProcessInt64Value(FdoInt64Value& expr) = 0;
  virtual void ProcessSingleValue(FdoSingleValue& expr) = 0;
  virtual void ProcessStringValue(FdoStringValue& expr) = 0;
  virtual void ProcessBLOBValue(FdoBLOBValue& expr) = 0;
  virtual void ProcessCLOBValue(FdoCLOBValue& expr) = 0;
  virtual void ProcessGeometryValue(FdoGeometryValue& expr) = 0;
  // Deliberate: not pure, so that processors that know no sub-selects pass them over.
  virtual void ProcessSubSelectExpression(FdoSubSelectExpression&) {}
};

#endif  // FDO_EXPRESSION_IEXPRESSION_PROCESSOR_H_
