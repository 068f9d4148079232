// FdoBinaryLogicalOperator joins two filters by AND or OR.
#ifndef FDO_FILTER_BINARY_LOGICAL_OPERATOR_H_
#define FDO_FILTER_BINARY_LOGICAL_OPERATOR_H_

#include "Fdo/Filter/LogicalOperator.h"

class FDO_API FdoBinaryLogicalOperator : public FdoLogicalOperator {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoBinaryLogicalOperator* Create();
  static FdoBinaryLogicalOperator* Create(FdoFilter* leftOperand, FdoBinaryLogicalOperations operation,
                                          FdoFilter* rightOperand);

  FdoBinaryLogicalOperations GetOperation();
  void SetOperation(FdoBinaryLogicalOperations value);

  // Give: one reference, or null.
  FdoFilter* GetLeftOperand();
  void SetLeftOperand(FdoFilter* value);
  FdoFilter* GetRightOperand();
  void SetRightOperand(FdoFilter* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoBinaryLogicalOperator();
  FdoBinaryLogicalOperator(FdoFilter* leftOperand, FdoBinaryLogicalOperations operation,
                           FdoFilter* rightOperand);
  ~FdoBinaryLogicalOperator() override;
  void Dispose() override;

 private:
  FdoPtr<FdoFilter> m_left;
  FdoPtr<FdoFilter> m_right;
  FdoBinaryLogicalOperations m_operation;
};

#endif  // FDO_FILTER_BINARY_LOGICAL_OPERATOR_H_
