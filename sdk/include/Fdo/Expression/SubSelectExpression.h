// FdoSubSelectExpression stands for the values of a property in a class.
#ifndef FDO_EXPRESSION_SUB_SELECT_EXPRESSION_H_
#define FDO_EXPRESSION_SUB_SELECT_EXPRESSION_H_

#include "Fdo/Expression/Identifier.h"
#include "Fdo/Expression/JoinCriteriaCollection.h"
#include "Fdo/Expression/ValueExpression.h"
#include "Fdo/Filter/Filter.h"

// Its text is "SELECT property FROM class", then the joins and "WHERE filter" where there are any.
class FDO_API FdoSubSelectExpression : public FdoValueExpression {
 public:
  // Gives: one reference. All parts are shared and may be null.
  static FdoSubSelectExpression* Create();
  static FdoSubSelectExpression* Create(FdoIdentifier* className, FdoIdentifier* propertyName);
  static FdoSubSelectExpression* Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                        FdoFilter* filter);
  static FdoSubSelectExpression* Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                        FdoJoinCriteriaCollection* joinCritColl);
  static FdoSubSelectExpression* Create(FdoIdentifier* className, FdoIdentifier* propertyName,
                                        FdoFilter* filter, FdoJoinCriteriaCollection* joinCritColl);

  // Give: one reference, or null. The join criteria are never null: a collection is made when asked for.
  FdoIdentifier* GetFeatureClassName();
  void SetFeatureClassName(FdoIdentifier* value);
  FdoIdentifier* GetPropertyName();
  void SetPropertyName(FdoIdentifier* value);
  FdoJoinCriteriaCollection* GetJoinCriteria();
  void SetJoinCriteria(FdoJoinCriteriaCollection* value);
  FdoFilter* GetFilter();
  void SetFilter(FdoFilter* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoSubSelectExpression();
  FdoSubSelectExpression(FdoIdentifier* className, FdoIdentifier* propertyName, FdoFilter* filter,
                         FdoJoinCriteriaCollection* joinCritColl);
  ~FdoSubSelectExpression() override;
  void Dispose() override;

 private:
  FdoPtr<FdoIdentifier> m_className;
  FdoPtr<FdoIdentifier> m_propertyName;
  FdoPtr<FdoFilter> m_filter;
  FdoPtr<FdoJoinCriteriaCollection> m_joins;
};

#endif  // FDO_EXPRESSION_SUB_SELECT_EXPRESSION_H_
