// FdoSingleValue is a float.
#ifndef FDO_EXPRESSION_SINGLE_VALUE_H_
#define FDO_EXPRESSION_SINGLE_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoSingleValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoSingleValue* Create();
  static FdoSingleValue* Create(float value);
  static FdoSingleValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  float GetSingle();
  void SetSingle(float value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator float();

 protected:
  FdoSingleValue();
  explicit FdoSingleValue(float value);
  ~FdoSingleValue() override;
  void Dispose() override;

 private:
  float m_data;
};

#endif  // FDO_EXPRESSION_SINGLE_VALUE_H_
