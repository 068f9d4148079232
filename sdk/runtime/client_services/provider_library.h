// The library of a provider: where it is looked for, and its entry point.
#ifndef SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_LIBRARY_H_
#define SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_LIBRARY_H_

#include <filesystem>
#include <string>
#include <vector>

class FdoIConnection;

namespace fdo_sdk {

// The file names that a name may stand for: itself, and completed to a library's file name.
std::vector<std::wstring> LibraryFileNames(std::wstring const& name);

// Loads the library and asks it for a connection. A name with a folder is looked for in that folder; a
// mere name in the folders in turn, then where the platform's loader looks.
// Gives: one reference. Errors: FdoClientServiceException*, naming the library; what the library throws
// passes.
FdoIConnection* ConnectThroughLibrary(std::wstring const& name,
                                      std::vector<std::filesystem::path> const& folders);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CLIENT_SERVICES_PROVIDER_LIBRARY_H_
