// Errors of expressions and their text.
#ifndef FDO_EXPRESSION_EXPRESSION_EXCEPTION_H_
#define FDO_EXPRESSION_EXPRESSION_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoExpressionException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoExpressionException* Create();
  static FdoExpressionException* Create(FdoString* message);
  static FdoExpressionException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoExpressionException* Create(FdoString* message, FdoException* cause);
  static FdoExpressionException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

 protected:
  FdoExpressionException();
  FdoExpressionException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoExpressionException() override;
};

#endif  // FDO_EXPRESSION_EXPRESSION_EXCEPTION_H_
