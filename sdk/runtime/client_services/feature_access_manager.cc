#include "Fdo/ClientServices/FeatureAccessManager.h"

#include <mutex>

#include "Fdo/ClientServices/ConnectionManager.h"
#include "Fdo/ClientServices/ProviderRegistry.h"

namespace {

struct SharedObjects {
  std::mutex lock;
  FdoPtr<FdoProviderRegistry> registry;
  FdoPtr<FdoConnectionManager> manager;
};

SharedObjects& Shared() {
  static SharedObjects shared;
  return shared;
}

}  // namespace

IProviderRegistry* FdoFeatureAccessManager::GetProviderRegistry() {
  SharedObjects& shared = Shared();
  std::lock_guard<std::mutex> const hold(shared.lock);
  if (shared.registry == nullptr) shared.registry = new FdoProviderRegistry();
  return FDO_SAFE_ADDREF(shared.registry.p);
}

IConnectionManager* FdoFeatureAccessManager::GetConnectionManager() {
  FdoPtr<IProviderRegistry> registry = GetProviderRegistry();
  SharedObjects& shared = Shared();
  std::lock_guard<std::mutex> const hold(shared.lock);
  if (shared.manager == nullptr) shared.manager = new FdoConnectionManager(shared.registry);
  return FDO_SAFE_ADDREF(shared.manager.p);
}
