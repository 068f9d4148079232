// Errors of the provider registry and the connection manager.
#ifndef FDO_CLIENT_SERVICES_CLIENT_SERVICE_EXCEPTION_H_
#define FDO_CLIENT_SERVICES_CLIENT_SERVICE_EXCEPTION_H_

#include "FdoStd.h"

class FDO_API FdoClientServiceException : public FdoException {
 public:
  // Gives: one reference, meant to be thrown. The message is copied and may be null.
  static FdoClientServiceException* Create();
  static FdoClientServiceException* Create(FdoString* message);
  static FdoClientServiceException* Create(FdoString* message, FdoInt64 nativeErrorCode);

  FdoString* ToString() override;

 protected:
  FdoClientServiceException();
  FdoClientServiceException(FdoString* message, FdoInt64 nativeErrorCode);
  ~FdoClientServiceException() override;
};

#endif  // FDO_CLIENT_SERVICES_CLIENT_SERVICE_EXCEPTION_H_
