// FdoExpressionCollection is an ordered list of expressions.
#ifndef FDO_EXPRESSION_EXPRESSION_COLLECTION_H_
#define FDO_EXPRESSION_EXPRESSION_COLLECTION_H_

#include "Fdo/Expression/Expression.h"
#include "Fdo/Expression/ExpressionException.h"

class FDO_API FdoExpressionCollection : public FdoCollection<FdoExpression, FdoExpressionException> {
 public:
  // Gives: one reference.
  static FdoExpressionCollection* Create();

 protected:
  FdoExpressionCollection();
  ~FdoExpressionCollection() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_EXPRESSION_COLLECTION_H_
