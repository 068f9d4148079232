// FdoLiteralValue is the base of data values and geometry values.
#ifndef FDO_EXPRESSION_LITERAL_VALUE_H_
#define FDO_EXPRESSION_LITERAL_VALUE_H_

#include "Fdo/Expression/LiteralValueType.h"
#include "Fdo/Expression/ValueExpression.h"

class FDO_API FdoLiteralValue : public FdoValueExpression {
 public:
  virtual FdoLiteralValueType GetLiteralValueType() const = 0;

 protected:
  FdoLiteralValue();
  ~FdoLiteralValue() override;
};

#endif  // FDO_EXPRESSION_LITERAL_VALUE_H_
