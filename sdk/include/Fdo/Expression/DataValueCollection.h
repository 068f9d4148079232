// FdoDataValueCollection is an ordered list of data values.
#ifndef FDO_EXPRESSION_DATA_VALUE_COLLECTION_H_
#define FDO_EXPRESSION_DATA_VALUE_COLLECTION_H_

#include "Fdo/Expression/DataValue.h"
#include "Fdo/Expression/ExpressionException.h"

class FDO_API FdoDataValueCollection : public FdoCollection<FdoDataValue, FdoExpressionException> {
 public:
  // Gives: one reference.
  static FdoDataValueCollection* Create();

 protected:
  FdoDataValueCollection();
  ~FdoDataValueCollection() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_DATA_VALUE_COLLECTION_H_
