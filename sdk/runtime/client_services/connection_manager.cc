#include "Fdo/ClientServices/ConnectionManager.h"

#include <string>

#include "Fdo/ClientServices/ProviderRegistry.h"
#include "Fdo/Connections/IConnection.h"
#include "sdk/runtime/client_services/paths.h"
#include "sdk/runtime/client_services/provider_library.h"

FdoConnectionManager::FdoConnectionManager(FdoProviderRegistry* registry)
    : m_registry(FDO_SAFE_ADDREF(registry)) {
  EnableObjectThreadLocking(true);
}

FdoConnectionManager::~FdoConnectionManager() = default;

void FdoConnectionManager::Dispose() { delete this; }

FdoIConnection* FdoConnectionManager::CreateConnection(FdoString* providerName) {
  if (providerName == nullptr || *providerName == 0) {
    throw FdoClientServiceException::Create(L"The name of the provider to connect to is empty.");
  }
  std::filesystem::path const beside = fdo_sdk::LibraryFolder();
  FdoPtr<FdoProvider> provider = m_registry->FindProvider(providerName);
  if (provider == nullptr) {
    return fdo_sdk::ConnectThroughLibrary(providerName, {beside, beside / "providers"});
  }
  // What is registered by its file name alone may stand beside the registry's file too.
  std::filesystem::path const registered = fdo_sdk::PathOf(m_registry->m_fileName).parent_path();
  return fdo_sdk::ConnectThroughLibrary(provider->GetLibraryPath(),
                                        {registered, beside, beside / "providers"});
}

void FdoConnectionManager::FreeLibrary(FdoString*) {}
