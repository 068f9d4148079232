// The formats that the tests of this back end run on, and what each can do.
#ifndef OGR_BACKEND_OGR_TEST_FORMATS_H_
#define OGR_BACKEND_OGR_TEST_FORMATS_H_

#include <ostream>

namespace fdo {

struct OgrFormat {
  char const* name;
  char const* fileName;  // its base is the name of the one table
  bool changes;          // rows of an existing file can be changed
  bool nullText;         // null text is not empty text
  bool emptyText;        // empty text is not null text
  bool times;            // a date-time keeps its time
  bool nullGeometry;     // rows without a geometry are kept
  bool m;
  bool curves;
  bool mixedTypes;  // geometries of several types in one table
  bool bytes;       // columns of bytes
  bool ownOrder;    // rows come in the order in which they were written
};

inline constexpr OgrFormat kOgrFormats[] = {
    // name        file            changes nullText emptyText times nullGeom m   curves mixed  bytes order
    {"Shapefile", "town.shp", true, true, false, false, true, true, false, false, false, true},
    {"Gpkg", "town.gpkg", true, true, true, true, true, true, true, true, true, true},
    {"GeoJson", "town.geojson", true, true, true, true, true, false, false, true, false, true},
    {"FlatGeobuf", "town.fgb", false, true, true, true, false, true, true, true, true, false},
    {"Csv", "town.csv", false, false, true, true, true, true, true, true, false, true},
    {"Sqlite", "town.sqlite", true, true, true, true, true, true, true, true, true, true},
};

inline std::ostream& operator<<(std::ostream& out, OgrFormat const& format) { return out << format.name; }

}  // namespace fdo

#endif  // OGR_BACKEND_OGR_TEST_FORMATS_H_
