#include <Fdo.h>
#include <fdo/providers.h>
#include <fdo/text_conversion.h>

#include "access/boundary.h"
#include "fdo_backend/provider_connection.h"
#include "fdo_backend/provider_library.h"
#include "fdo_backend/provider_table.h"

namespace fdo {
namespace {

using internal::ProviderLibrary;

constexpr wchar_t const* kNoConnection = L"it makes no connection";

// Runs attempt, which gives what is wrong; what it throws is wrong, too.
template <class Attempt>
std::wstring ProblemOf(Attempt attempt) {
  std::wstring problem;
  auto const report = [&](FdoString* message) { problem = message == nullptr ? kNoConnection : message; };
  AtBoundaryReporting(false, report, [&] {
    problem = attempt();
    return true;
  });
  return problem;
}

std::wstring ProblemOfRegistered(std::wstring const& name) {
  return ProblemOf([&]() -> std::wstring {
    FdoPtr<IConnectionManager> const manager = FdoFeatureAccessManager::GetConnectionManager();
    if (manager == nullptr) return L"FDO has no connection manager";
    FdoPtr<FdoIConnection> const connection = manager->CreateConnection(name.c_str());
    return connection == nullptr ? kNoConnection : L"";
  });
}

std::wstring ProblemOfLibrary(ProviderLibrary const& row) {
  return ProblemOf([&]() -> std::wstring {
    internal::LoadedProviderLibrary const library = internal::LoadProviderLibrary(row.library);
    if (!library.isLoaded)
      return library.problem.empty() ? L"it cannot be loaded" : ToWide(library.problem.c_str());
    if (library.entryPoint == nullptr) return L"it has no entry point CreateConnection";
    FdoPtr<FdoIConnection> const connection = library.entryPoint();
    return connection == nullptr ? kNoConnection : L"";
  });
}

KnownProvider Examine(ProviderLibrary const& row) {
  KnownProvider known{row.provider, ToWide(row.library), L"", L""};
  std::wstring const registryProblem = ProblemOf([&]() -> std::wstring {
    known.registeredAs = internal::RegisteredName(row.provider);
    return known.registeredAs.empty() ? L"" : ProblemOfRegistered(known.registeredAs);
  });
  if (!known.registeredAs.empty() && registryProblem.empty()) return known;
  // As for a connection: where the registry does not help the library is tried.
  known.problem = ProblemOfLibrary(row);
  if (!known.problem.empty() && !registryProblem.empty())
    known.problem = registryProblem + L"; " + known.problem;
  return known;
}

}  // namespace

std::vector<KnownProvider> KnownProviders() {
  std::vector<KnownProvider> known;
  for (ProviderLibrary const& row : internal::kProviderLibraries) known.push_back(Examine(row));
  return known;
}

std::wstring ProviderForPath(wchar_t const* path) {
  wchar_t const* const provider = internal::ProviderOfExtension(path);
  return provider == nullptr ? L"" : provider;
}

}  // namespace fdo
