// FdoInCondition tests whether a property has one of several values.
#ifndef FDO_FILTER_IN_CONDITION_H_
#define FDO_FILTER_IN_CONDITION_H_

#include "Fdo/Expression/SubSelectExpression.h"
#include "Fdo/Filter/SearchCondition.h"
#include "Fdo/Filter/ValueExpressionCollection.h"

class FDO_API FdoInCondition : public FdoSearchCondition {
 public:
  // Gives: one reference. Objects are shared; texts are parsed as literals or parameters.
  static FdoInCondition* Create();
  static FdoInCondition* Create(FdoString* propertyName, FdoString** values, FdoInt32 length);
  static FdoInCondition* Create(FdoIdentifier* propertyName, FdoString** values, FdoInt32 length);
  static FdoInCondition* Create(FdoIdentifier* propertyName, FdoValueExpressionCollection* pCollection);
  static FdoInCondition* Create(FdoIdentifier* propertyName, FdoSubSelectExpression* subSel);

  // Give: one reference; name and sub-select may be null. What is changed in the values changes the
  // condition.
  FdoIdentifier* GetPropertyName();
  void SetPropertyName(FdoIdentifier* value);
  FdoValueExpressionCollection* GetValues();
  FdoSubSelectExpression* GetSubSelect();
  void SetSubSelect(FdoSubSelectExpression* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoInCondition();
  FdoInCondition(FdoIdentifier* propertyName, FdoValueExpressionCollection* values,
                 FdoSubSelectExpression* subSelect);
  ~FdoInCondition() override;
  void Dispose() override;

 private:
  FdoPtr<FdoIdentifier> m_propertyName;
  FdoPtr<FdoValueExpressionCollection> m_values;
  FdoPtr<FdoSubSelectExpression> m_subSelect;
};

#endif  // FDO_FILTER_IN_CONDITION_H_
