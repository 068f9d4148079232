// The layers of a data source as table definitions.
#ifndef OGR_BACKEND_SCHEMA_READER_H_
#define OGR_BACKEND_SCHEMA_READER_H_

#include <fdo/schema.h>

#include "ogr_backend/gdal_source.h"

namespace fdo::internal {

// The names that are shown for the id and the geometry of a layer that has none for them.
inline constexpr char kFidColumnName[] = "OGR_FID";
inline constexpr char kGeometryColumnName[] = "OGR_GEOMETRY";

// Defines the table of a layer: its id and geometry columns, then one column for each field. A layer
// with a coordinate system gets one named after it, with "_srs" appended.
void ReadTableDef(GdalApi const& gdal, OgrLayerH layer, TableDef& def);

// The value of a field's default, which GDAL keeps as SQL text: a number, a text in quotes, or, for
// the date types, a text in quotes that is turned into the library's own form. Null where there is
// none, and for a function of the store such as CURRENT_TIMESTAMP.
Value DefaultValueOf(GdalApi const& gdal, OgrFieldDefnH field);

// The sum of the kinds of geometry that a layer of that type takes, whatever its dimensionality: 0 for
// a layer of unknown type, 15 for collections and all types that are not made of one kind.
int GeometryMask(unsigned layerGeometryType);

}  // namespace fdo::internal

#endif  // OGR_BACKEND_SCHEMA_READER_H_
