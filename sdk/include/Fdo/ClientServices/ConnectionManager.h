// FdoConnectionManager loads the libraries of providers.
#ifndef FDO_CLIENT_SERVICES_CONNECTION_MANAGER_H_
#define FDO_CLIENT_SERVICES_CONNECTION_MANAGER_H_

#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/IConnectionManager.h"

class FdoProviderRegistry;

// A name is looked up in the registry first: the whole name, or the newest version when the name has
// none or only the start of one. Any other name is that of a library, as it is or completed to a
// library's file name ("Roads" to "libRoads.so"): beside the SDK's library, in the folder "providers"
// there, then where the platform's loader looks. A name with a folder is looked for in that folder only.
// Threads: any.
class FDO_API FdoConnectionManager : public IConnectionManager {
 public:
  // Errors: FdoClientServiceException*, naming the provider or library: it is unknown, cannot be
  // loaded, has no entry point CreateConnection, or makes no connection.
  FdoIConnection* CreateConnection(FdoString* providerName) override;

  // Deliberate: the library stays loaded, because objects of the provider may live on.
  void FreeLibrary(FdoString* providerName) override;

 protected:
  // Owns: a reference to the registry.
  explicit FdoConnectionManager(FdoProviderRegistry* registry);
  ~FdoConnectionManager() override;
  void Dispose() override;

 private:
  friend class FdoFeatureAccessManager;

  FdoPtr<FdoProviderRegistry> m_registry;
};

#endif  // FDO_CLIENT_SERVICES_CONNECTION_MANAGER_H_
