#include "Fdo/ClientServices/Provider.h"

#include <cwchar>
#include <string>

#include "Fdo/ClientServices/ProviderCollection.h"

FdoProvider::FdoProvider(FdoString* name, FdoString* displayName, FdoString* description, FdoString* version,
                         FdoString* fdoVersion, FdoString* libraryPath, bool isManaged)
    : m_name(name),
      m_displayName(displayName),
      m_description(description),
      m_version(version),
      m_fdoVersion(fdoVersion),
      m_libraryPath(libraryPath),
      m_isManaged(isManaged) {
  EnableObjectThreadLocking(true);
}

FdoProvider::~FdoProvider() = default;

void FdoProvider::Dispose() { delete this; }

FdoString* FdoProvider::GetName() const { return m_name; }

FdoString* FdoProvider::GetDisplayName() const { return m_displayName; }

FdoString* FdoProvider::GetDescription() const { return m_description; }

FdoString* FdoProvider::GetVersion() const { return m_version; }

FdoString* FdoProvider::GetFeatureDataObjectsVersion() const { return m_fdoVersion; }

FdoString* FdoProvider::GetLibraryPath() const { return m_libraryPath; }

bool FdoProvider::GetIsManaged() const { return m_isManaged; }

FdoProviderCollection::FdoProviderCollection() { EnableObjectThreadLocking(true); }

FdoProviderCollection::~FdoProviderCollection() = default;

void FdoProviderCollection::Dispose() { delete this; }

int FdoProviderCollection::GetCount() const {
  std::lock_guard<std::mutex> const hold(m_lock);
  return static_cast<int>(m_providers.size());
}

FdoProvider* const FdoProviderCollection::GetItem(int index) const {
  std::lock_guard<std::mutex> const hold(m_lock);
  if (index < 0 || static_cast<std::size_t>(index) >= m_providers.size()) {
    std::wstring const message = L"There is no provider at position " + std::to_wstring(index) + L".";
    throw FdoClientServiceException::Create(message.c_str());
  }
  return FDO_SAFE_ADDREF(m_providers[static_cast<std::size_t>(index)].p);
}

bool FdoProviderCollection::Contains(FdoString* name) const { return IndexOf(name) >= 0; }

int FdoProviderCollection::IndexOf(FdoString* name) const {
  std::lock_guard<std::mutex> const hold(m_lock);
  return PositionOf(name);
}

void FdoProviderCollection::Add(FdoProvider* provider) {
  std::lock_guard<std::mutex> const hold(m_lock);
  m_providers.push_back(FdoPtr<FdoProvider>(FDO_SAFE_ADDREF(provider)));
}

void FdoProviderCollection::Remove(FdoString* name) {
  std::lock_guard<std::mutex> const hold(m_lock);
  int const position = PositionOf(name);
  if (position >= 0) m_providers.erase(m_providers.begin() + position);
}

int FdoProviderCollection::PositionOf(FdoString* name) const {
  for (std::size_t i = 0; name != nullptr && i < m_providers.size(); ++i) {
    if (std::wcscmp(m_providers[i]->GetName(), name) == 0) return static_cast<int>(i);
  }
  return -1;
}
