// FdoProviderNameTokens takes the name of a provider apart.
#ifndef FDO_CLIENT_SERVICES_PROVIDER_NAME_TOKENS_H_
#define FDO_CLIENT_SERVICES_PROVIDER_NAME_TOKENS_H_

#include "Common/Vector.h"
#include "FdoStd.h"

// A name has its parts separated by periods: the company, the provider, and at the end the version,
// which is all the numbers there. Company and version may be missing.
class FDO_API FdoProviderNameTokens : public FdoIDisposable {
 public:
  // Gives: one reference.
  static FdoProviderNameTokens* Create(FdoString* name);

  // Without the version: "Company", "Provider".
  FdoStringsP GetNameTokens() const;
  // The numbers of the version; an empty collection without one.
  FdoVectorP GetVersionTokens() const;
  // Without company and version: "Provider".
  FdoStringP GetLocalName() const;

 protected:
  explicit FdoProviderNameTokens(FdoString* name);
  ~FdoProviderNameTokens() override;
  void Dispose() override;

 private:
  FdoStringsP m_nameTokens;
  FdoVectorP m_versionTokens;
};

#endif  // FDO_CLIENT_SERVICES_PROVIDER_NAME_TOKENS_H_
