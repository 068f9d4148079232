// FdoInt64Value is a 64-bit integer.
#ifndef FDO_EXPRESSION_INT64_VALUE_H_
#define FDO_EXPRESSION_INT64_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoInt64Value : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoInt64Value* Create();
  static FdoInt64Value* Create(FdoInt64 value);
  static FdoInt64Value* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                               FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  FdoInt64 GetInt64();
  void SetInt64(FdoInt64 value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator FdoInt64();

 protected:
  FdoInt64Value();
  explicit FdoInt64Value(FdoInt64 value);
  ~FdoInt64Value() override;
  void Dispose() override;

 private:
  FdoInt64 m_data;
};

#endif  // FDO_EXPRESSION_INT64_VALUE_H_
