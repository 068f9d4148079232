#ifndef TOOLS_QUILLON_GEOMETRY_JSON_H_
#define TOOLS_QUILLON_GEOMETRY_JSON_H_

#include <cstddef>
#include <string>

namespace fdo::tool {

// Appends the GeoJSON geometry of an FGF stream. Z is kept and M dropped. Arcs become line segments
// (see kArcTolerance). An empty point has an empty array of coordinates; another ordinate that is not
// finite is null.
// Errors: false, with "null" appended, for what GeoJSON has no form for: an unknown type, or a part
//   that does not belong in its collection. Throws FdoException* for a broken stream; out is then
//   unspecified.
bool AppendGeometryJson(std::string& out, unsigned char const* fgf, std::size_t length);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_GEOMETRY_JSON_H_
