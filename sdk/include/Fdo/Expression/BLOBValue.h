// FdoBLOBValue is a large object: bytes.
#ifndef FDO_EXPRESSION_BLOBVALUE_H_
#define FDO_EXPRESSION_BLOBVALUE_H_

#include "Fdo/Expression/LOBValue.h"

class FDO_API FdoBLOBValue : public FdoLOBValue {
 public:
  // Gives: one reference. The array is shared; without one the value is null.
  static FdoBLOBValue* Create();
  static FdoBLOBValue* Create(FdoByteArray* value);
  static FdoBLOBValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                              FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;
  FdoByteArray* GetData() override;
  void SetData(FdoByteArray* value) override;
  void SetNull() override;
  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

 protected:
  FdoBLOBValue();
  explicit FdoBLOBValue(FdoByteArray* value);
  ~FdoBLOBValue() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_BLOBVALUE_H_
