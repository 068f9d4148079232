#include "Fdo/ClientServices/ProviderRegistry.h"

#include <algorithm>
#include <string>

#include "sdk/runtime/client_services/paths.h"
#include "sdk/runtime/client_services/provider_name.h"
#include "sdk/runtime/client_services/providers_file.h"

namespace {

using fdo_sdk::ProviderEntry;

std::wstring TextOf(FdoString* text) { return text == nullptr ? L"" : text; }

[[noreturn]] void Throw(std::wstring const& name, wchar_t const* what) {
  throw FdoClientServiceException::Create((L"The provider \"" + name + L"\" " + what + L".").c_str());
}

// A relative path with a folder goes on from the registry's file; a mere file name is searched for.
std::wstring ResolvedPath(std::wstring const& libraryPath, FdoString* registryFile) {
  std::filesystem::path const path = fdo_sdk::PathOf(libraryPath);
  if (path.is_absolute() || !path.has_parent_path()) return libraryPath;
  return fdo_sdk::WideOf((fdo_sdk::PathOf(registryFile).parent_path() / path).lexically_normal());
}

std::vector<ProviderEntry>::iterator Find(std::vector<ProviderEntry>& entries, std::wstring const& name) {
  return std::find_if(entries.begin(), entries.end(),
                      [&name](ProviderEntry const& entry) { return entry.name == name; });
}

}  // namespace

FdoProviderRegistry::FdoProviderRegistry()
    : FdoProviderRegistry(fdo_sdk::WideOf(fdo_sdk::ProvidersFile()).c_str()) {}

FdoProviderRegistry::FdoProviderRegistry(FdoString* fileName)
    : m_fileName(fileName), m_providers(new FdoProviderCollection()) {
  EnableObjectThreadLocking(true);
  ReadProviders();
}

FdoProviderRegistry::~FdoProviderRegistry() = default;

void FdoProviderRegistry::Dispose() { delete this; }

FdoProviderCollection const* FdoProviderRegistry::GetProviders() const { return m_providers; }

void FdoProviderRegistry::RegisterProvider(FdoString* name, FdoString* displayName, FdoString* description,
                                           FdoString* version, FdoString* fdoVersion, FdoString* libraryPath,
                                           bool isManaged) {
  ProviderEntry entry;
  entry.name = TextOf(name);
  entry.displayName = TextOf(displayName);
  entry.description = TextOf(description);
  entry.version = TextOf(version);
  entry.fdoVersion = TextOf(fdoVersion);
  entry.libraryPath = TextOf(libraryPath);
  entry.isManaged = isManaged;
  fdo_sdk::ProviderName const split = fdo_sdk::SplitProviderName(entry.name);
  if (split.names.size() < 2 || split.version.empty()) {
    Throw(entry.name, L"cannot be registered: a name has the form Company.Provider.Version");
  }
  if (entry.libraryPath.empty()) Throw(entry.name, L"cannot be registered: it has no library");

  std::lock_guard<std::mutex> const hold(m_fileLock);
  std::vector<ProviderEntry> entries = fdo_sdk::ReadProvidersFile(fdo_sdk::PathOf(m_fileName));
  if (Find(entries, entry.name) != entries.end()) Throw(entry.name, L"is registered already");
  entries.push_back(entry);
  fdo_sdk::WriteProvidersFile(fdo_sdk::PathOf(m_fileName), entries);
  ReadProviders();
}

void FdoProviderRegistry::UnregisterProvider(FdoString* name) {
  std::lock_guard<std::mutex> const hold(m_fileLock);
  std::vector<ProviderEntry> entries = fdo_sdk::ReadProvidersFile(fdo_sdk::PathOf(m_fileName));
  auto const found = Find(entries, TextOf(name));
  if (found == entries.end()) Throw(TextOf(name), L"is not registered");
  entries.erase(found);
  fdo_sdk::WriteProvidersFile(fdo_sdk::PathOf(m_fileName), entries);
  ReadProviders();
}

FdoProvider* FdoProviderRegistry::FindProvider(FdoString* name) const {
  std::wstring const wantedName = TextOf(name);
  fdo_sdk::ProviderName const wanted = fdo_sdk::SplitProviderName(wantedName);
  FdoPtr<FdoProvider> newest;
  fdo_sdk::ProviderName newestName;
  std::lock_guard<std::mutex> const hold(m_providers.p->m_lock);
  for (FdoPtr<FdoProvider> const& provider : m_providers.p->m_providers) {
    if (wantedName == provider.p->GetName()) return FDO_SAFE_ADDREF(provider.p);
    fdo_sdk::ProviderName const providerName = fdo_sdk::SplitProviderName(provider.p->GetName());
    if (!Satisfies(providerName, wanted)) continue;
    if (newest != nullptr && !IsNewer(providerName, newestName)) continue;
    newest = provider;
    newestName = providerName;
  }
  return newest.Detach();
}

// The collection stays the same object, because programs hold it without a reference.
void FdoProviderRegistry::ReadProviders() {
  std::vector<FdoPtr<FdoProvider>> providers;
  for (ProviderEntry const& entry : fdo_sdk::ReadProvidersFile(fdo_sdk::PathOf(m_fileName))) {
    std::wstring const path = ResolvedPath(entry.libraryPath, m_fileName);
    providers.push_back(FdoPtr<FdoProvider>(
        new FdoProvider(entry.name.c_str(), entry.displayName.c_str(), entry.description.c_str(),
                        entry.version.c_str(), entry.fdoVersion.c_str(), path.c_str(), entry.isManaged)));
  }
  std::lock_guard<std::mutex> const hold(m_providers->m_lock);
  m_providers->m_providers.swap(providers);
}
