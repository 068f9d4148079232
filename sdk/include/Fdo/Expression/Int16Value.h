// FdoInt16Value is a 16-bit integer.
#ifndef FDO_EXPRESSION_INT16_VALUE_H_
#define FDO_EXPRESSION_INT16_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoInt16Value : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoInt16Value* Create();
  static FdoInt16Value* Create(FdoInt16 value);
  static FdoInt16Value* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                               FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  FdoInt16 GetInt16();
  void SetInt16(FdoInt16 value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator FdoInt16();

 protected:
  FdoInt16Value();
  explicit FdoInt16Value(FdoInt16 value);
  ~FdoInt16Value() override;
  void Dispose() override;

 private:
  FdoInt16 m_data;
};

#endif  // FDO_EXPRESSION_INT16_VALUE_H_
