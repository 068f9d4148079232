// FdoUnaryLogicalOperator negates a filter.
#ifndef FDO_FILTER_UNARY_LOGICAL_OPERATOR_H_
#define FDO_FILTER_UNARY_LOGICAL_OPERATOR_H_

#include "Fdo/Filter/LogicalOperator.h"
#include "Fdo/Filter/UnaryLogicalOperations.h"

class FDO_API FdoUnaryLogicalOperator : public FdoLogicalOperator {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoUnaryLogicalOperator* Create();
  static FdoUnaryLogicalOperator* Create(FdoFilter* operand, FdoUnaryLogicalOperations operation);

  FdoUnaryLogicalOperations GetOperation();
  void SetOperation(FdoUnaryLogicalOperations value);

  // Gives: one reference, or null.
  FdoFilter* GetOperand();
  void SetOperand(FdoFilter* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoUnaryLogicalOperator();
  FdoUnaryLogicalOperator(FdoFilter* operand, FdoUnaryLogicalOperations operation);
  ~FdoUnaryLogicalOperator() override;
  void Dispose() override;

 private:
  FdoPtr<FdoFilter> m_operand;
  FdoUnaryLogicalOperations m_operation;
};

#endif  // FDO_FILTER_UNARY_LOGICAL_OPERATOR_H_
