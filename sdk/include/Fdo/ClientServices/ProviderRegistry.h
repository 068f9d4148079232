// FdoProviderRegistry keeps the list of providers in the file providers.xml.
#ifndef FDO_CLIENT_SERVICES_PROVIDER_REGISTRY_H_
#define FDO_CLIENT_SERVICES_PROVIDER_REGISTRY_H_

#include <mutex>

#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/ClientServices/ProviderCollection.h"
#include "Fdo/IProviderRegistry.h"

// The file stands in the folder that the environment variable FDO_PROVIDERS_FOLDER names, or else beside
// the SDK's library. It is read once; without a file the list is empty. Registering and unregistering
// read it again, and put a new file in its place in one step.
// Threads: any.
class FDO_API FdoProviderRegistry : public IProviderRegistry {
 public:
  FdoProviderCollection const* GetProviders() const override;

  // Errors: throw FdoClientServiceException*, naming the provider or the file: for a name that is not of
  // the form Company.Provider.Version, is registered already or is not registered, and for a file
  // that cannot be read or written.
  void RegisterProvider(FdoString* name, FdoString* displayName, FdoString* description, FdoString* version,
                        FdoString* fdoVersion, FdoString* libraryPath, bool isManaged) override;
  void UnregisterProvider(FdoString* name) override;

 protected:
  // Errors: throw FdoClientServiceException*, naming the file, when it cannot be read.
  FdoProviderRegistry();
  explicit FdoProviderRegistry(FdoString* fileName);
  ~FdoProviderRegistry() override;
  void Dispose() override;

 private:
  friend class FdoConnectionManager;
  friend class FdoFeatureAccessManager;

  // The provider of that name or, when the name has no version or only the start of one, the newest
  // of those that go on from there.
  // Gives: one reference, or null.
  FdoProvider* FindProvider(FdoString* name) const;
  void ReadProviders();

  std::mutex m_fileLock;
  FdoStringP m_fileName;
  FdoPtr<FdoProviderCollection> m_providers;
};

#endif  // FDO_CLIENT_SERVICES_PROVIDER_REGISTRY_H_
