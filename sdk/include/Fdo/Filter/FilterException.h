// Errors of filters and their text.
#ifndef FDO_FILTER_FILTER_EXCEPTION_H_
#define FDO_FILTER_FILTER_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoFilterException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoFilterException* Create();
  static FdoFilterException* Create(FdoString* message);
  static FdoFilterException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoFilterException* Create(FdoString* message, FdoException* cause);
  static FdoFilterException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

 protected:
  FdoFilterException();
  FdoFilterException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoFilterException() override;
};

#endif  // FDO_FILTER_FILTER_EXCEPTION_H_
