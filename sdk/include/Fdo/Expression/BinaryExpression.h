// FdoBinaryExpression is an arithmetic operation on two expressions.
#ifndef FDO_EXPRESSION_BINARY_EXPRESSION_H_
#define FDO_EXPRESSION_BINARY_EXPRESSION_H_

#include "Fdo/Expression/BinaryOperations.h"
#include "Fdo/Expression/Expression.h"

class FDO_API FdoBinaryExpression : public FdoExpression {
 public:
  // Gives: one reference. Operands are shared and may be null until the node is written or processed.
  static FdoBinaryExpression* Create();
  static FdoBinaryExpression* Create(FdoExpression* leftExpression, FdoBinaryOperations operation,
                                     FdoExpression* rightExpression);

  FdoBinaryOperations GetOperation();
  void SetOperation(FdoBinaryOperations value);

  // Give: one reference, or null.
  FdoExpression* GetLeftExpression();
  void SetLeftExpression(FdoExpression* value);
  FdoExpression* GetRightExpression();
  void SetRightExpression(FdoExpression* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoBinaryExpression();
  FdoBinaryExpression(FdoExpression* leftExpression, FdoBinaryOperations operation,
                      FdoExpression* rightExpression);
  ~FdoBinaryExpression() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_left;
  FdoPtr<FdoExpression> m_right;
  FdoBinaryOperations m_operation;
};

#endif  // FDO_EXPRESSION_BINARY_EXPRESSION_H_
