#ifndef FDO_PROVIDERS_H_
#define FDO_PROVIDERS_H_

#include <fdo/export.h>

#include <string>
#include <vector>

namespace fdo {

// An FDO provider that this library knows by name, and whether it can be used here.
struct KnownProvider {
  std::wstring name;          // "OSGeo.SQLite"
  std::wstring library;       // the base name of its library
  std::wstring registeredAs;  // the first name in FDO's registry that contains its own; "" without one
  std::wstring problem;       // why no connection can be made; "" when one can
};

// All that are known, in the order in which they are tried. Asks each for a connection, which loads the
// libraries of those that are there; nothing is printed.
// Threads: any.
QUILLON_EXPORT std::vector<KnownProvider> KnownProviders();

// The provider that is asked for files with the extension of that path, in any case of letters; "" when none
// is, and for null. Whether it can be used is another question. Threads: any.
QUILLON_EXPORT std::wstring ProviderForPath(wchar_t const* path);

}  // namespace fdo

#endif  // FDO_PROVIDERS_H_
