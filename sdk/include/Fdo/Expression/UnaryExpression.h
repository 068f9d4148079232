// FdoUnaryExpression is an arithmetic operation on one expression.
#ifndef FDO_EXPRESSION_UNARY_EXPRESSION_H_
#define FDO_EXPRESSION_UNARY_EXPRESSION_H_

#include "Fdo/Expression/Expression.h"
#include "Fdo/Expression/UnaryOperations.h"

class FDO_API FdoUnaryExpression : public FdoExpression {
 public:
  // Gives: one reference. The operand is shared and may be null until the node is written or processed.
  static FdoUnaryExpression* Create();
  static FdoUnaryExpression* Create(FdoUnaryOperations operation, FdoExpression* expression);

  FdoUnaryOperations GetOperation();
  void SetOperation(FdoUnaryOperations value);

  // Gives: one reference, or null.
  FdoExpression* GetExpression();
  void SetExpression(FdoExpression* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoUnaryExpression();
  FdoUnaryExpression(FdoUnaryOperations operation, FdoExpression* expression);
  ~FdoUnaryExpression() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_operand;
  FdoUnaryOperations m_operation;
};

#endif  // FDO_EXPRESSION_UNARY_EXPRESSION_H_
