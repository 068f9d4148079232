// Makes connections by the name of their provider.
#ifndef FDO_I_CONNECTION_MANAGER_H_
#define FDO_I_CONNECTION_MANAGER_H_

#include "FdoStd.h"

class FdoIConnection;

class FDO_API IConnectionManager : public FdoIDisposable {
 public:
  // Takes a registered name, or the file name or path of a provider's library.
  // Gives: one reference to a new, closed connection. Errors: FdoClientServiceException*, naming the
  // provider.
  virtual FdoIConnection* CreateConnection(FdoString* providerName) = 0;

  virtual void FreeLibrary(FdoString* providerName) = 0;
};

#endif  // FDO_I_CONNECTION_MANAGER_H_
