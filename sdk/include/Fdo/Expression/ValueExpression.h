// FdoValueExpression is the base of literals, parameters and sub-selects.
#ifndef FDO_EXPRESSION_VALUE_EXPRESSION_H_
#define FDO_EXPRESSION_VALUE_EXPRESSION_H_

#include "Fdo/Expression/Expression.h"

class FDO_API FdoValueExpression : public FdoExpression {
 protected:
  FdoValueExpression();
  ~FdoValueExpression() override;
};

#endif  // FDO_EXPRESSION_VALUE_EXPRESSION_H_
