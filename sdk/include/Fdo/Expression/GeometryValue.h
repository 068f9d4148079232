// FdoGeometryValue is a literal geometry, as its FGF bytes.
#ifndef FDO_EXPRESSION_GEOMETRY_VALUE_H_
#define FDO_EXPRESSION_GEOMETRY_VALUE_H_

#include "Fdo/Expression/LiteralValue.h"

class FDO_API FdoGeometryValue : public FdoLiteralValue {
 public:
  // Gives: one reference. The array is shared; without one the value is null.
  static FdoGeometryValue* Create();
  static FdoGeometryValue* Create(FdoByteArray* geometry);

  bool IsNull();
  // Gives: one reference, or null.
  FdoByteArray* GetGeometry();
  void SetGeometry(FdoByteArray* value);
  void SetNullValue();

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;
  FdoLiteralValueType GetLiteralValueType() const override;

 protected:
  FdoGeometryValue();
  explicit FdoGeometryValue(FdoByteArray* geometry);
  ~FdoGeometryValue() override;
  void Dispose() override;

 private:
  FdoPtr<FdoByteArray> m_geometry;
};

#endif  // FDO_EXPRESSION_GEOMETRY_VALUE_H_
