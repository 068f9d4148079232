// FdoProvider is one entry of the provider registry.
#ifndef FDO_CLIENT_SERVICES_PROVIDER_H_
#define FDO_CLIENT_SERVICES_PROVIDER_H_

#include "FdoStd.h"

// Never changes, and may be used on several threads.
// Borrowed: every text, while the provider lives.
class FDO_API FdoProvider : public FdoIDisposable {
 public:
  // Company.Provider.Version
  virtual FdoString* GetName() const;
  virtual FdoString* GetDisplayName() const;
  virtual FdoString* GetDescription() const;
  virtual FdoString* GetVersion() const;
  virtual FdoString* GetFeatureDataObjectsVersion() const;
  virtual FdoString* GetLibraryPath() const;
  virtual bool GetIsManaged() const;

 protected:
  FdoProvider(FdoString* name, FdoString* displayName, FdoString* description, FdoString* version,
              FdoString* fdoVersion, FdoString* libraryPath, bool isManaged);
  ~FdoProvider() override;
  void Dispose() override;

 private:
  friend class FdoProviderRegistry;

  FdoStringP m_name;
  FdoStringP m_displayName;
  FdoStringP m_description;
  FdoStringP m_version;
  FdoStringP m_fdoVersion;
  FdoStringP m_libraryPath;
  bool m_isManaged;
};

#endif  // FDO_CLIENT_SERVICES_PROVIDER_H_
