// FdoBooleanValue is a truth value.
#ifndef FDO_EXPRESSION_BOOLEAN_VALUE_H_
#define FDO_EXPRESSION_BOOLEAN_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoBooleanValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoBooleanValue* Create();
  static FdoBooleanValue* Create(bool value);
  static FdoBooleanValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                                 FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  bool GetBoolean();
  void SetBoolean(bool value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator bool();

 protected:
  FdoBooleanValue();
  explicit FdoBooleanValue(bool value);
  ~FdoBooleanValue() override;
  void Dispose() override;

 private:
  bool m_data;
};

#endif  // FDO_EXPRESSION_BOOLEAN_VALUE_H_
