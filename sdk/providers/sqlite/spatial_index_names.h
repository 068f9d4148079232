// What the tables of spatial indexes are called in a file.
#ifndef SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_NAMES_H_
#define SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_NAMES_H_

namespace fdo_sqlite {

inline constexpr char kIndexTable[] = "fdo_spatial_index";
inline constexpr char kIndexSegmentTable[] = "fdo_spatial_index_segment";
inline constexpr char kIndexNodeTable[] = "fdo_spatial_index_node";
inline constexpr char kIndexTouchedTable[] = "fdo_spatial_index_touched";

// None of these is a feature class.
inline constexpr char const* kSpatialIndexTables[] = {kIndexTable, kIndexSegmentTable, kIndexNodeTable,
                                                      kIndexTouchedTable};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SPATIAL_INDEX_NAMES_H_
