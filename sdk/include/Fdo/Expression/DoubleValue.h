// FdoDoubleValue is a double.
#ifndef FDO_EXPRESSION_DOUBLE_VALUE_H_
#define FDO_EXPRESSION_DOUBLE_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoDoubleValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoDoubleValue* Create();
  static FdoDoubleValue* Create(double value);
  static FdoDoubleValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  double GetDouble();
  void SetDouble(double value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator double();

 protected:
  FdoDoubleValue();
  explicit FdoDoubleValue(double value);
  ~FdoDoubleValue() override;
  void Dispose() override;

 private:
  double m_data;
};

#endif  // FDO_EXPRESSION_DOUBLE_VALUE_H_
