// Paths of files as the interface's wide text, and the folders where providers are looked for.
#ifndef SDK_RUNTIME_CLIENT_SERVICES_PATHS_H_
#define SDK_RUNTIME_CLIENT_SERVICES_PATHS_H_

#include <filesystem>
#include <string>

namespace fdo_sdk {

std::filesystem::path PathOf(std::wstring const& text);
std::filesystem::path PathOf(wchar_t const* text);
std::string Utf8Of(std::filesystem::path const& path);
std::wstring WideOf(std::filesystem::path const& path);

// The folder of the SDK's library, or of the program that it is part of.
std::filesystem::path LibraryFolder();

// Where the registry's file is: in the folder that FDO_PROVIDERS_FOLDER names, else beside the library.
std::filesystem::path ProvidersFile();

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CLIENT_SERVICES_PATHS_H_
