// FdoDecimalValue is a decimal number, carried as a double.
#ifndef FDO_EXPRESSION_DECIMAL_VALUE_H_
#define FDO_EXPRESSION_DECIMAL_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoDecimalValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoDecimalValue* Create();
  static FdoDecimalValue* Create(double value);
  static FdoDecimalValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                 FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  double GetDecimal();
  void SetDecimal(double value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator double();

 protected:
  FdoDecimalValue();
  explicit FdoDecimalValue(double value);
  ~FdoDecimalValue() override;
  void Dispose() override;

 private:
  double m_data;
};

#endif  // FDO_EXPRESSION_DECIMAL_VALUE_H_
