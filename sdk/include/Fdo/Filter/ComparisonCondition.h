// FdoComparisonCondition compares two expressions.
#ifndef FDO_FILTER_COMPARISON_CONDITION_H_
#define FDO_FILTER_COMPARISON_CONDITION_H_

#include "Fdo/Expression/Expression.h"
#include "Fdo/Filter/ComparisonOperations.h"
#include "Fdo/Filter/SearchCondition.h"

class FDO_API FdoComparisonCondition : public FdoSearchCondition {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoComparisonCondition* Create();
  static FdoComparisonCondition* Create(FdoExpression* leftExpression, FdoComparisonOperations operation,
                                        FdoExpression* rightExpression);

  FdoComparisonOperations GetOperation();
  void SetOperation(FdoComparisonOperations operation);

  // Give: one reference, or null.
  FdoExpression* GetLeftExpression();
  void SetLeftExpression(FdoExpression* value);
  FdoExpression* GetRightExpression();
  void SetRightExpression(FdoExpression* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoComparisonCondition();
  FdoComparisonCondition(FdoExpression* leftExpression, FdoComparisonOperations operation,
                         FdoExpression* rightExpression);
  ~FdoComparisonCondition() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_left;
  FdoPtr<FdoExpression> m_right;
  FdoComparisonOperations m_operation;
};

#endif  // FDO_FILTER_COMPARISON_CONDITION_H_
