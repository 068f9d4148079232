// FdoByteValue is an 8-bit unsigned integer.
#ifndef FDO_EXPRESSION_BYTE_VALUE_H_
#define FDO_EXPRESSION_BYTE_VALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoByteValue : public FdoDataValue {
 public:
  // Gives: one reference. Without a value it is null; a conversion follows the rules of FdoDataValue.
  static FdoByteValue* Create();
  static FdoByteValue* Create(FdoByte value);
  static FdoByteValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                              FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;

  // Requires: !IsNull().
  FdoByte GetByte();
  void SetByte(FdoByte value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

  operator FdoByte();

 protected:
  FdoByteValue();
  explicit FdoByteValue(FdoByte value);
  ~FdoByteValue() override;
  void Dispose() override;

 private:
  FdoByte m_data;
};

#endif  // FDO_EXPRESSION_BYTE_VALUE_H_
