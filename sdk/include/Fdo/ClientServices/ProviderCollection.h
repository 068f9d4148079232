// FdoProviderCollection is the list of providers that the registry shows.
#ifndef FDO_CLIENT_SERVICES_PROVIDER_COLLECTION_H_
#define FDO_CLIENT_SERVICES_PROVIDER_COLLECTION_H_

#include <mutex>
#include <vector>

#include "Fdo/ClientServices/ClientServiceException.h"
#include "Fdo/ClientServices/Provider.h"

// Threads: any. A position may change its meaning when a provider is registered or removed meanwhile.
class FDO_API FdoProviderCollection : public FdoIDisposable {
 public:
  virtual int GetCount() const;

  // Gives: one reference. Errors: throws FdoClientServiceException* out of range.
  virtual FdoProvider* const GetItem(int index) const;

  // By the whole name. Errors: -1 when absent.
  virtual bool Contains(FdoString* name) const;
  virtual int IndexOf(FdoString* name) const;

 protected:
  FdoProviderCollection();
  ~FdoProviderCollection() override;
  void Dispose() override;

  virtual void Add(FdoProvider* provider);
  virtual void Remove(FdoString* name);

 private:
  friend class FdoProviderRegistry;

  int PositionOf(FdoString* name) const;

  mutable std::mutex m_lock;
  std::vector<FdoPtr<FdoProvider>> m_providers;
};

#endif  // FDO_CLIENT_SERVICES_PROVIDER_COLLECTION_H_
