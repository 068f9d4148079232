// From a file or a provider's name to a connection.
#ifndef FDO_BACKEND_PROVIDER_CONNECTION_H_
#define FDO_BACKEND_PROVIDER_CONNECTION_H_

#include <Fdo.h>

#include <string>

namespace fdo::internal {

// The provider that the extension stands for: what follows the last period of the whole path, with it,
// in any case of letters.
// Gives: a constant. Errors: null and a diagnostic line for any other extension.
wchar_t const* ProviderFromFileExtension(wchar_t const* path);
// The same without the line.
wchar_t const* ProviderOfExtension(wchar_t const* path);

// The first registered name that contains that text; "" when there is none.
// Errors: throws FdoException* when the registry cannot be read.
std::wstring RegisteredName(wchar_t const* provider);

// A new, closed connection. The provider is the first registered one whose name contains that text or,
// without any, the first library of kProviderLibraries whose provider's name contains it and which makes
// a connection; a diagnostic line says that the libraries are tried, and one why each was passed over.
// Deliberate: part of a name is enough, so "OSGeo.S" is whichever comes first
// (CreateProviderConnectionTest.PartOfANameIsEnough).
// Errors: null. What a library's entry point throws passes.
FdoPtr<FdoIConnection> CreateProviderConnection(wchar_t const* provider);

// The same, configured with that text unless it is null or empty, and opened if asked for.
// Errors: null without a provider. FdoException* from the connection passes; nothing is left of it then.
FdoPtr<FdoIConnection> OpenProviderConnection(wchar_t const* connectionString, wchar_t const* provider,
                                              wchar_t const* configuration, bool open);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_PROVIDER_CONNECTION_H_
