// Writes the heads of WKB geometries, little-endian.
#ifndef GEOMETRY_WKB_HEADER_H_
#define GEOMETRY_WKB_HEADER_H_

#include "geometry/stream_writer.h"
#include "geometry/wkb_layout.h"

namespace fdo {

QUILLON_ALWAYS_INLINE void AppendWkbHeader(StreamWriter& out, std::uint32_t code) {
  out.Byte(kWkbLittleEndian);
  out.Int32(code);
}

QUILLON_ALWAYS_INLINE void AppendWkbHeader(StreamWriter& out, std::uint32_t code, std::uint32_t count) {
  AppendWkbHeader(out, code);
  out.Int32(count);
}

}  // namespace fdo

#endif  // GEOMETRY_WKB_HEADER_H_
