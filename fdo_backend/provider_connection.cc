#include "fdo_backend/provider_connection.h"

#include <cwchar>
#include <string>

#include "access/boundary.h"
#include "access/diagnostics.h"
#include "fdo_backend/provider_library.h"
#include "fdo_backend/provider_table.h"
#include "values/number_text.h"

namespace fdo::internal {
namespace {

bool Contains(wchar_t const* text, wchar_t const* part) {
  return text != nullptr && std::wcsstr(text, part) != nullptr;
}

// Whether a registered provider was asked for a connection, which may have given none.
bool ConnectThroughRegistry(wchar_t const* provider, FdoPtr<FdoIConnection>& connection) {
  FdoPtr<IConnectionManager> const manager = FdoFeatureAccessManager::GetConnectionManager();
  std::wstring const name = RegisteredName(provider);
  if (manager == nullptr || name.empty()) return false;
  connection = manager->CreateConnection(name.c_str());
  return true;
}

FdoPtr<FdoIConnection> ConnectThroughLibraries(wchar_t const* provider) {
  FdoPtr<FdoIConnection> connection;
  for (ProviderLibrary const& row : kProviderLibraries) {
    if (!Contains(row.provider, provider)) continue;
    LoadedProviderLibrary const library = LoadProviderLibrary(row.library);
    if (!library.isLoaded) {
      ReportLine((std::string("Failed to load provider: ") + row.library).c_str());
    } else if (library.entryPoint == nullptr) {
      ReportLine((std::string("Failed to find FDO entry point: ") + row.library).c_str());
    } else {
      connection = library.entryPoint();
      if (connection != nullptr) return connection;
    }
  }
  return connection;
}

void Configure(FdoIConnection& connection, wchar_t const* configuration) {
  FdoPtr<FdoIoMemoryStream> const stream = FdoIoMemoryStream::Create(4096);
  FdoPtr<FdoIoTextWriter> const writer = FdoIoTextWriter::Create(stream.p);
  writer->Write(configuration);
  // A provider may read from where the stream stands.
  stream->Reset();
  connection.SetConfiguration(stream);
}

}  // namespace

wchar_t const* ProviderOfExtension(wchar_t const* path) {
  wchar_t const* const period = path == nullptr ? nullptr : std::wcsrchr(path, L'.');
  wchar_t const* const extension = period == nullptr ? L"" : period;
  for (FileExtension const& row : kFileExtensions) {
    if (EqualIgnoringCase(extension, row.extension)) return row.provider;
  }
  return nullptr;
}

wchar_t const* ProviderFromFileExtension(wchar_t const* path) {
  wchar_t const* const provider = ProviderOfExtension(path);
  if (provider == nullptr) ReportError(L"Failed to map file extension to FDO provider");
  return provider;
}

std::wstring RegisteredName(wchar_t const* provider) {
  FdoPtr<IProviderRegistry> const registry = FdoFeatureAccessManager::GetProviderRegistry();
  FdoProviderCollection const* const providers = registry == nullptr ? nullptr : registry->GetProviders();
  int const count = providers == nullptr ? 0 : providers->GetCount();
  for (int i = 0; i < count; ++i) {
    FdoPtr<FdoProvider> const candidate = providers->GetItem(i);
    if (Contains(candidate->GetName(), provider)) return candidate->GetName();
  }
  return {};
}

FdoPtr<FdoIConnection> CreateProviderConnection(wchar_t const* provider) {
  FdoPtr<FdoIConnection> connection;
  // A registry that fails is as good as none; the line below says what happens then.
  bool const isRegistered =
      AtSilentBoundary(false, [&] { return ConnectThroughRegistry(provider, connection); });
  if (isRegistered) return connection;
  ReportLine("No FDO providers found. Missing providers.xml? Will try fallback now.");
  return ConnectThroughLibraries(provider);
}

FdoPtr<FdoIConnection> OpenProviderConnection(wchar_t const* connectionString, wchar_t const* provider,
                                              wchar_t const* configuration, bool open) {
  FdoPtr<FdoIConnection> connection = CreateProviderConnection(provider);
  if (connection == nullptr) return connection;
  connection->SetConnectionString(connectionString);
  if (configuration != nullptr && *configuration != L'\0') Configure(*connection, configuration);
  if (open) connection->Open();
  return connection;
}

}  // namespace fdo::internal
