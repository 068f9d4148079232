// What the drivers of GDAL differ in and no capability test of its interface tells.
#ifndef OGR_BACKEND_DRIVER_TRAITS_H_
#define OGR_BACKEND_DRIVER_TRAITS_H_

#include <cstring>

#include "ogr_backend/filter_language.h"

namespace fdo::internal {

struct DriverTraits {
  char const* name;  // GDAL's short name of the driver
  FilterLanguage filters;
  // A layer reports that it holds M ordinates, but they do not reach the file.
  bool losesM;
  // A row without a geometry, or with an empty one, is left out of the file, and reported as written.
  bool losesRowsWithoutGeometry;
  // Empty parts of a geometry are left out, or take the whole of it with them.
  bool losesEmptyParts;
  // All geometries of a layer are written with the ordinates of its type: Z and M are dropped, or made
  // up, where a geometry has others.
  bool oneDimensionality;
  // The first row decides the type of a layer that was created without one.
  bool firstRowDecides;
  // Real numbers have a field of 24 characters; of a longer one the last digits are left out, which makes
  // it another number.
  bool cutsHugeNumbers;
  // Once a scan has reached the end, the count of a layer without conditions is 0.
  bool losesCount;
  // Starting to read a new file forgets the rows that were written to it, and it is closed without them.
  bool losesRowsOfNewFile;
};

inline constexpr DriverTraits kDriverTraits[] = {
    // name, filters, losesM noGeom emptyParts oneDim firstRow cuts losesCount newFile
    {"CSV", FilterLanguage::kGdal, false, false, false, false, false, false, true, false},
    {"DXF", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"ESRI Shapefile", FilterLanguage::kGdal, false, false, true, true, true, true, false, false},
    {"ESRIJSON", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"FlatGeobuf", FilterLanguage::kGdal, false, true, true, true, false, false, false, true},
    {"GML", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"GPKG", FilterLanguage::kSqlite, false, false, false, false, false, false, false, false},
    {"GPX", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"GeoJSON", FilterLanguage::kGdal, true, false, true, false, false, false, false, false},
    {"GeoJSONSeq", FilterLanguage::kGdal, true, false, true, false, false, false, false, false},
    {"KML", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"LIBKML", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"MapInfo File", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"Memory", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"ODS", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"OpenFileGDB", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"PostgreSQL", FilterLanguage::kPostgreSql, false, false, false, false, false, false, false, false},
    {"SQLite", FilterLanguage::kSqlite, false, false, false, false, false, false, false, false},
    {"TopoJSON", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
    {"XLSX", FilterLanguage::kGdal, false, false, false, false, false, false, false, false},
};
inline constexpr DriverTraits kOtherDrivers = {
    "", FilterLanguage::kUnknown, false, false, false, false, false, false, false, false};

inline DriverTraits const& TraitsOf(char const* driver) {
  for (DriverTraits const& traits : kDriverTraits) {
    if (std::strcmp(traits.name, driver) == 0) return traits;
  }
  return kOtherDrivers;
}

}  // namespace fdo::internal

#endif  // OGR_BACKEND_DRIVER_TRAITS_H_
