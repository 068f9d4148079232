// FdoLOBValue is the base of the values that are large objects.
#ifndef FDO_EXPRESSION_LOBVALUE_H_
#define FDO_EXPRESSION_LOBVALUE_H_

#include "Fdo/Expression/DataValue.h"

class FDO_API FdoLOBValue : public FdoDataValue {
 public:
  FdoDataType GetDataType() override = 0;

  // Gives: one reference, or null.
  virtual FdoByteArray* GetData() = 0;
  // Shares the array; null makes the value null.
  virtual void SetData(FdoByteArray* value) = 0;

  void SetNull() override = 0;
  void Process(FdoIExpressionProcessor* p) override = 0;
  FdoString* ToString() override = 0;

  // As GetData.
  operator FdoByteArray*();

 protected:
  FdoLOBValue();
  ~FdoLOBValue() override;

  FdoByteArray* m_data;
};

#endif  // FDO_EXPRESSION_LOBVALUE_H_
