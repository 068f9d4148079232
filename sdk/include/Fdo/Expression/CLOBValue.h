// FdoCLOBValue is a large object: the bytes of a long text.
#ifndef FDO_EXPRESSION_CLOBVALUE_H_
#define FDO_EXPRESSION_CLOBVALUE_H_

#include "Fdo/Expression/LOBValue.h"

class FDO_API FdoCLOBValue : public FdoLOBValue {
 public:
  // Gives: one reference. The array is shared; without one the value is null.
  static FdoCLOBValue* Create();
  static FdoCLOBValue* Create(FdoByteArray* value);
  static FdoCLOBValue* Create(FdoDataValue* src, FdoBoolean nullIfIncompatible = false,
                              FdoBoolean shift = true, FdoBoolean truncate = false);

  FdoDataType GetDataType() override;
  FdoByteArray* GetData() override;
  void SetData(FdoByteArray* value) override;
  void SetNull() override;
  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;

 protected:
  FdoCLOBValue();
  explicit FdoCLOBValue(FdoByteArray* value);
  ~FdoCLOBValue() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_CLOBVALUE_H_
