// The file providers.xml: the providers that are registered on a machine.
#ifndef SDK_RUNTIME_CLIENT_SERVICES_PROVIDERS_FILE_H_
#define SDK_RUNTIME_CLIENT_SERVICES_PROVIDERS_FILE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace fdo_sdk {

struct ProviderEntry {
  std::wstring name;
  std::wstring displayName;
  std::wstring description;
  std::wstring version;
  std::wstring fdoVersion;
  std::wstring libraryPath;  // as it stands in the file; relative to the file's folder
  bool isManaged = false;
};

// The entries are the elements under the document's root, whatever their names; the texts of an entry
// are in elements that are called as the getters of FdoProvider without "Get". What else there is
// does not count.
// Errors: FdoClientServiceException*, naming the file and the line. Without a file there are no entries.
std::vector<ProviderEntry> ReadProvidersFile(std::filesystem::path const& file);

// Puts a new file in the place of the old one in one step: whoever reads sees one of the two.
// Errors: FdoClientServiceException*, naming the file, which stays as it was.
void WriteProvidersFile(std::filesystem::path const& file, std::vector<ProviderEntry> const& entries);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CLIENT_SERVICES_PROVIDERS_FILE_H_
