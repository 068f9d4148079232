// The formats that the tests of this back end run on, and what each can do.
#ifndef OGR_BACKEND_OGR_TEST_FORMATS_H_
#define OGR_BACKEND_OGR_TEST_FORMATS_H_

#include <ostream>

namespace fdo {

struct OgrFormat {
  char const* name;
  char const* fileName;  // its base is the name of the one table
  bool tellsNewId;       // an insert gives the identity; otherwise it is known when the row is read
  bool nullText;         // null text is not empty text
  bool emptyText;        // empty text is not null text
  bool times;            // a date-time keeps its time
  bool nullGeometry;     // rows without a geometry, or with an empty one, are kept
  bool emptyParts;       // so are empty parts of geometries
  bool exact;            // a geometry that is not empty reads back byte for byte
  double precision;      // otherwise its ordinates do, relatively, in any order
  bool m;
  bool curves;
  bool mixedTypes;      // geometries of several types in one table
  bool mixedOrdinates;  // and of several dimensionalities
  bool bytes;           // columns of bytes
  bool ownOrder;        // rows come in the order in which they were written
};

// A shapefile turns the rings of polygons and has one type for one part and for many; CSV has geometry
// as text of 15 digits.
inline constexpr OgrFormat kOgrFormats[] = {
    {.name = "Shapefile",
     .fileName = "town.shp",
     .tellsNewId = true,
     .nullText = true,
     .emptyText = false,
     .times = false,
     .nullGeometry = true,
     .emptyParts = false,
     .exact = false,
     .precision = 0,
     .m = true,
     .curves = false,
     .mixedTypes = false,
     .mixedOrdinates = false,
     .bytes = false,
     .ownOrder = true},
    {.name = "Gpkg",
     .fileName = "town.gpkg",
     .tellsNewId = true,
     .nullText = true,
     .emptyText = true,
     .times = true,
     .nullGeometry = true,
     .emptyParts = true,
     .exact = true,
     .precision = 0,
     .m = true,
     .curves = true,
     .mixedTypes = true,
     .mixedOrdinates = true,
     .bytes = true,
     .ownOrder = true},
    {.name = "GeoJson",
     .fileName = "town.geojson",
     .tellsNewId = true,
     .nullText = true,
     .emptyText = true,
     .times = true,
     .nullGeometry = true,
     .emptyParts = false,
     .exact = true,
     .precision = 0,
     .m = false,
     .curves = false,
     .mixedTypes = true,
     .mixedOrdinates = true,
     .bytes = false,
     .ownOrder = true},
    {.name = "FlatGeobuf",
     .fileName = "town.fgb",
     .tellsNewId = true,
     .nullText = true,
     .emptyText = true,
     .times = true,
     .nullGeometry = false,
     .emptyParts = false,
     .exact = true,
     .precision = 0,
     .m = true,
     .curves = true,
     .mixedTypes = true,
     .mixedOrdinates = false,
     .bytes = true,
     .ownOrder = false},
    {.name = "Csv",
     .fileName = "town.csv",
     .tellsNewId = false,
     .nullText = false,
     .emptyText = true,
     .times = true,
     .nullGeometry = true,
     .emptyParts = true,
     .exact = false,
     .precision = 1e-14,
     .m = true,
     .curves = true,
     .mixedTypes = true,
     .mixedOrdinates = true,
     .bytes = false,
     .ownOrder = true},
    {.name = "Sqlite",
     .fileName = "town.sqlite",
     .tellsNewId = true,
     .nullText = true,
     .emptyText = true,
     .times = true,
     .nullGeometry = true,
     .emptyParts = true,
     .exact = true,
     .precision = 0,
     .m = true,
     .curves = true,
     .mixedTypes = true,
     .mixedOrdinates = true,
     .bytes = true,
     .ownOrder = true},
};

inline std::ostream& operator<<(std::ostream& out, OgrFormat const& format) { return out << format.name; }

}  // namespace fdo

#endif  // OGR_BACKEND_OGR_TEST_FORMATS_H_
