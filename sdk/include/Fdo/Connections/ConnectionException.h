// Errors of connections.
#ifndef FDO_CONNECTIONS_CONNECTION_EXCEPTION_H_
#define FDO_CONNECTIONS_CONNECTION_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoConnectionException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied, the cause shared; each may be null.
  static FdoConnectionException* Create();
  static FdoConnectionException* Create(FdoString* message);
  static FdoConnectionException* Create(FdoString* message, FdoInt64 nativeErrorCode);
  static FdoConnectionException* Create(FdoString* message, FdoException* cause);
  static FdoConnectionException* Create(FdoString* message, FdoException* cause, FdoInt64 nativeErrorCode);

 protected:
  FdoConnectionException();
  FdoConnectionException(FdoString* message, FdoException* cause = nullptr, FdoInt64 nativeErrorCode = 0);
  ~FdoConnectionException() override;
};

#endif  // FDO_CONNECTIONS_CONNECTION_EXCEPTION_H_
