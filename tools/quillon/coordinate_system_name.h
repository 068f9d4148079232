#ifndef TOOLS_QUILLON_COORDINATE_SYSTEM_NAME_H_
#define TOOLS_QUILLON_COORDINATE_SYSTEM_NAME_H_

#include <fdo/schema.h>

#include <string>

namespace fdo::tool {

// What well-known text calls its coordinate system: the first text in double quotes; "" without one.
std::wstring CoordinateSystemName(std::wstring const& wkt);

// That of a table's main geometry; "" when it has none or does not know.
std::wstring CoordinateSystemName(TableDef const& def);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_COORDINATE_SYSTEM_NAME_H_
