// FdoInt32Value is a 32-bit integer.
#ifndef FDO_EXPRESSION_INT32_VALUE_H_
#define FDO_EXPRESSION_INT32_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoInt32Value : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoInt32Value* Create();
  static FdoInt32Value* Create(FdoInt32 value);
  static FdoInt32Value* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                               FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  FdoInt32 GetInt32();
  void SetInt32(FdoInt32 value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator FdoInt32();

 protected:
  FdoInt32Value();
  explicit FdoInt32Value(FdoInt32 value);
  ~FdoInt32Value() override;
  void Dispose() override;

 private:
  FdoInt32 m_data;
};

#endif  // FDO_EXPRESSION_INT32_VALUE_H_
