// FdoExpression is the base of all nodes of an expression.
#ifndef FDO_EXPRESSION_EXPRESSION_H_
#define FDO_EXPRESSION_EXPRESSION_H_

#include "Fdo/Expression/ExpressionItemType.h"
#include "FdoStd.h"

class FdoIExpressionProcessor;

class FDO_API FdoExpression : public FdoIDisposable {
 public:
  // Gives: one reference to the tree that the text describes.
  // Errors: throws FdoExpressionException*, whose message names the place, what stands there and what was
  // expected instead.
  static FdoExpression* Parse(FdoString* expressionText);

  // Calls the one operation of the processor that belongs to this kind of node; does not descend.
  virtual void Process(FdoIExpressionProcessor* p) = 0;

  // The text that Parse reads as this tree.
  // Borrowed: until the next call or the end of the node.
  // Errors: throws FdoExpressionException* for what has no text, such as a number that is not finite.
  virtual FdoString* ToString() = 0;

  virtual FdoExpressionItemType GetExpressionType() = 0;

 protected:
  FdoExpression();
  ~FdoExpression() override;

  wchar_t* m_toString;  // what the last ToString gave
};

typedef FdoPtr<FdoExpression> FdoExpressionP;

#endif  // FDO_EXPRESSION_EXPRESSION_H_
