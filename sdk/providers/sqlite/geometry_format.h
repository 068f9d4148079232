// How the geometries of a column are stored, as geometry_columns names it.
#ifndef SDK_PROVIDERS_SQLITE_GEOMETRY_FORMAT_H_
#define SDK_PROVIDERS_SQLITE_GEOMETRY_FORMAT_H_

namespace fdo_sqlite {

// Unsupported: named in the file, known to nobody here; every geometry of the column is null.
enum class GeometryFormat { kFgf, kWkb, kWkt, kUnsupported };

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_GEOMETRY_FORMAT_H_
