// FdoFeatureAccessManager is where a program starts: it gives the registry and the connection manager.
#ifndef FDO_CLIENT_SERVICES_FEATURE_ACCESS_MANAGER_H_
#define FDO_CLIENT_SERVICES_FEATURE_ACCESS_MANAGER_H_

#include "Fdo/IConnectionManager.h"
#include "Fdo/IProviderRegistry.h"
#include "FdoStd.h"

// One registry and one manager serve the whole process.
// Threads: any.
class FDO_API FdoFeatureAccessManager {
 public:
  // Give: one reference. Errors: FdoClientServiceException*, naming the file, when providers.xml cannot
  // be read; the next call tries again.
  static IConnectionManager* GetConnectionManager();
  static IProviderRegistry* GetProviderRegistry();

 private:
  FdoFeatureAccessManager();
};

#endif  // FDO_CLIENT_SERVICES_FEATURE_ACCESS_MANAGER_H_
