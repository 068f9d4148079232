#ifndef FDO_CONNECTION_STRING_H_
#define FDO_CONNECTION_STRING_H_

#include <fdo/export.h>

#include <string>

namespace fdo {

// The connection string with which an FDO provider opens a file. How a string looks depends on what the
// provider's name begins with; for a provider that has no form here it is the file argument as it
// stands, which is then taken for a complete connection string.
//
//   OSGeo.SQLite           File="x.sqlite";UseFdoMetadata=TRUE
//   OSGeo.SDF              File="x.sdf"; ReadOnly=false
//   OSGeo.SHP              DefaultFileLocation="x.shp";
//   Vendrix.DesignService  File="x.dwg";ReadOnly=true
//
// For SDF ReadOnly is false when the file exists and this process may write it.
// Deliberate: the SDF form alone has a blank behind its semicolon, the SHP form ends with a semicolon, and
// a quotation mark in the file name is not escaped (MakeConnectionString.FormOfEachProvider).
// Requires: neither argument is null.
// Threads: any.
QUILLON_EXPORT std::wstring MakeConnectionString(wchar_t const* provider, wchar_t const* file);

}  // namespace fdo

#endif  // FDO_CONNECTION_STRING_H_
