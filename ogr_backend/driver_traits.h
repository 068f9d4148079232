// What the drivers of GDAL differ in and no capability test of its interface tells.
#ifndef OGR_BACKEND_DRIVER_TRAITS_H_
#define OGR_BACKEND_DRIVER_TRAITS_H_

#include <cstring>

namespace fdo::internal {

struct DriverTraits {
  char const* name;  // GDAL's short name of the driver
  // An attribute filter is run by the store as SQL of its own, in which text compares exactly, a null
  // makes a condition unknown, and a bad filter is noticed only when the rows are asked for. The other
  // drivers evaluate GDAL's own dialect.
  bool runsOwnSql;
  // A layer reports that it holds M ordinates, but they do not reach the file.
  bool losesM;
  // A row without a geometry is left out of the file, and reported as written.
  bool losesRowsWithoutGeometry;
  // Once a scan has reached the end, the count of a layer without conditions is 0.
  bool losesCount;
};

inline constexpr DriverTraits kDriverTraits[] = {
    // name          runsOwnSql  losesM  losesRowsWithoutGeometry  losesCount
    {"CSV", false, false, false, true},        {"FlatGeobuf", false, false, true, false},
    {"GPKG", true, false, false, false},       {"GeoJSON", false, true, false, false},
    {"GeoJSONSeq", false, true, false, false}, {"PostgreSQL", true, false, false, false},
    {"SQLite", true, false, false, false},
};
inline constexpr DriverTraits kOtherDrivers = {"", false, false, false, false};

inline DriverTraits const& TraitsOf(char const* driver) {
  for (DriverTraits const& traits : kDriverTraits) {
    if (std::strcmp(traits.name, driver) == 0) return traits;
  }
  return kOtherDrivers;
}

}  // namespace fdo::internal

#endif  // OGR_BACKEND_DRIVER_TRAITS_H_
