// The libraries of FDO providers, for when no registry names them.
#ifndef FDO_BACKEND_PROVIDER_LIBRARY_H_
#define FDO_BACKEND_PROVIDER_LIBRARY_H_

#include <string>

class FdoIConnection;

namespace fdo::internal {

// The exported function of every provider library. Gives: one reference, or null.
using ProviderEntryPoint = FdoIConnection* (*)();

// What became of an attempt to load a library.
struct LoadedProviderLibrary {
  bool isLoaded = false;
  ProviderEntryPoint entryPoint = nullptr;  // null when the library is no provider's
  std::string problem;                      // why it was not loaded, in the platform's words (UTF-8)
};

// Loads the library of that base name. It is looked for beside FDO's own library, then in the folder
// "providers" there, then where the platform's loader looks; it stays loaded until the process ends.
// Threads: any.
LoadedProviderLibrary LoadProviderLibrary(char const* baseName);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_PROVIDER_LIBRARY_H_
