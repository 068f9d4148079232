// What the fuzz targets of geometries do with one that was made.
#ifndef SDK_RUNTIME_GEOMETRY_GEOMETRY_FUZZ_H_
#define SDK_RUNTIME_GEOMETRY_GEOMETRY_FUZZ_H_

#include <cstring>

#include "FdoGeometry.h"

namespace fdo_sdk {

inline bool SameBytes(FdoByteArray const& left, FdoByteArray const& right) {
  return left.GetCount() == right.GetCount() &&
         std::memcmp(left.GetData(), right.GetData(), static_cast<std::size_t>(left.GetCount())) == 0;
}

void LookAtEverything(FdoIGeometry* geometry);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_GEOMETRY_FUZZ_H_
