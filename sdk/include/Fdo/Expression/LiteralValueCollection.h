// FdoLiteralValueCollection is an ordered list of literal values.
#ifndef FDO_EXPRESSION_LITERAL_VALUE_COLLECTION_H_
#define FDO_EXPRESSION_LITERAL_VALUE_COLLECTION_H_

#include "Fdo/Expression/ExpressionException.h"
#include "Fdo/Expression/LiteralValue.h"

class FDO_API FdoLiteralValueCollection : public FdoCollection<FdoLiteralValue, FdoExpressionException> {
 public:
  // Gives: one reference.
  static FdoLiteralValueCollection* Create();

 protected:
  FdoLiteralValueCollection();
  ~FdoLiteralValueCollection() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_LITERAL_VALUE_COLLECTION_H_
