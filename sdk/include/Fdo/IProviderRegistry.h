// The list of providers that programs can ask for by name.
#ifndef FDO_I_PROVIDER_REGISTRY_H_
#define FDO_I_PROVIDER_REGISTRY_H_

#include "FdoStd.h"

class FdoProviderCollection;

class FDO_API IProviderRegistry : public FdoIDisposable {
 public:
  // Borrowed: while the registry lives. Not for FdoPtr: the pointer is to a constant.
  virtual FdoProviderCollection const* GetProviders() const = 0;

  // The name has the form Company.Provider.Version, the library path is complete.
  // Errors: FdoClientServiceException*.
  virtual void RegisterProvider(wchar_t const* name, wchar_t const* displayName, wchar_t const* description,
                                wchar_t const* version, wchar_t const* fdoVersion, wchar_t const* libraryPath,
                                bool isManaged) = 0;

  virtual void UnregisterProvider(wchar_t const* name) = 0;
};

#endif  // FDO_I_PROVIDER_REGISTRY_H_
