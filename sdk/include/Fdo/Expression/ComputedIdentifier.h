// FdoComputedIdentifier gives a name to the value of an expression.
#ifndef FDO_EXPRESSION_COMPUTED_IDENTIFIER_H_
#define FDO_EXPRESSION_COMPUTED_IDENTIFIER_H_

#include "Fdo/Expression/Identifier.h"

// Its text is "expression AS name"; inside another expression the expression alone is written.
class FDO_API FdoComputedIdentifier : public FdoIdentifier {
 public:
  // Gives: one reference. The name has no scope; the expression is shared and may be null.
  static FdoComputedIdentifier* Create();
  static FdoComputedIdentifier* Create(FdoString* name, FdoExpression* expression);

  // Gives: one reference, or null.
  FdoExpression* GetExpression();
  void SetExpression(FdoExpression* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoComputedIdentifier();
  FdoComputedIdentifier(FdoString* name, FdoExpression* expression);
  ~FdoComputedIdentifier() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_expression;
};

#endif  // FDO_EXPRESSION_COMPUTED_IDENTIFIER_H_
