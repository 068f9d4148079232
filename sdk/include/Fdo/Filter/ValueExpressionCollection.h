// FdoValueExpressionCollection is an ordered list of literals, parameters and sub-selects.
#ifndef FDO_FILTER_VALUE_EXPRESSION_COLLECTION_H_
#define FDO_FILTER_VALUE_EXPRESSION_COLLECTION_H_

#include "Fdo/Expression/ValueExpression.h"
#include "Fdo/Filter/FilterException.h"

class FDO_API FdoValueExpressionCollection : public FdoCollection<FdoValueExpression, FdoFilterException> {
 public:
  // Gives: one reference.
  static FdoValueExpressionCollection* Create();
  // Each text is parsed as a literal or a parameter. Errors: throws what FdoExpression::Parse throws.
  static FdoValueExpressionCollection* Create(FdoString** values, FdoInt32 length);

 protected:
  FdoValueExpressionCollection();
  ~FdoValueExpressionCollection() override;
  void Dispose() override;
};

#endif  // FDO_FILTER_VALUE_EXPRESSION_COLLECTION_H_
