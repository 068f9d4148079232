#include "fdo_backend/provider_library.h"

#include <Fdo.h>

#include <filesystem>

#include "port/dynamic_library.h"

namespace fdo::internal {
namespace {

namespace fs = std::filesystem;

constexpr char kEntryPoint[] = "CreateConnection";

std::string Utf8Of(fs::path const& path) {
  std::u8string const text = path.u8string();
  return std::string(text.begin(), text.end());
}

// The folder of FDO's library; empty when FDO is part of the program and nobody knows of what file.
fs::path FdoFolder() {
  std::string const file =
      port::LibraryPathOf(reinterpret_cast<void const*>(&FdoFeatureAccessManager::GetConnectionManager));
  return fs::path(std::u8string(file.begin(), file.end())).parent_path();
}

// A file that is there has to load: the loader's own search would hide why it does not.
void* Load(std::string const& fileName) {
  fs::path const beside = FdoFolder();
  for (fs::path const& folder : {beside, beside / "providers"}) {
    std::error_code none;
    fs::path const file = folder / fileName;
    if (fs::is_regular_file(file, none)) return port::LoadLibraryByName(Utf8Of(file).c_str());
  }
  return port::LoadLibraryByName(fileName.c_str());
}

}  // namespace

LoadedProviderLibrary LoadProviderLibrary(char const* baseName) {
  LoadedProviderLibrary result;
  void* const library = Load(std::string(port::kLibraryPrefix) + baseName + port::kLibrarySuffix);
  if (library == nullptr) {
    result.problem = port::LoadFailure();
    return result;
  }
  result.isLoaded = true;
  result.entryPoint = reinterpret_cast<ProviderEntryPoint>(port::FindSymbol(library, kEntryPoint));
  return result;
}

}  // namespace fdo::internal
