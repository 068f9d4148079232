// A generated family of valid geometries, as text, for comparisons with GEOS.
#ifndef SDK_RUNTIME_SPATIAL_GEOS_FAMILY_H_
#define SDK_RUNTIME_SPATIAL_GEOS_FAMILY_H_

#include <cstdint>
#include <string>
#include <vector>

namespace fdo_sdk {

// Points, lines, polygons with and without holes, rectangles and their multi types, on a coarse grid in a
// small square, so that shared corners, shared edges and equal geometries are common.
std::vector<std::string> GeosFamily(std::size_t count, std::uint64_t seed);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_SPATIAL_GEOS_FAMILY_H_
