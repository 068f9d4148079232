#ifndef TOOLS_QUILLON_GEOMETRY_TEXT_H_
#define TOOLS_QUILLON_GEOMETRY_TEXT_H_

#include <cstddef>
#include <string>

namespace fdo::tool {

// Appends the well-known text of an FGF stream, as "MULTIPOINT Z ((1 2 3), (4 5 6))". Z, M and curves
// are kept; numbers have the shortest digits that read back the same.
// Errors: false, with nothing appended, for an unknown type and for a part that does not belong in its
//   collection. Throws FdoException* for a broken stream; out is then unspecified.
bool AppendGeometryText(std::string& out, unsigned char const* fgf, std::size_t length);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_GEOMETRY_TEXT_H_
