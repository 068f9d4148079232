// Writes a geometry stream as WKB.
#ifndef SDK_RUNTIME_GEOMETRY_WKB_WRITER_H_
#define SDK_RUNTIME_GEOMETRY_WKB_WRITER_H_

#include "sdk/runtime/geometry/fgf_builder.h"

namespace fdo_sdk {

// Little-endian ISO WKB. A curve of arcs alone is a CircularString, any other a CompoundCurve with one
// member for each line and each run of arcs. A geometry of parts is marked with all ordinates that any
// part has; its parts keep their own.
void WriteWkb(FdoByte const* fgf, std::size_t size, FgfBuilder& out);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_WKB_WRITER_H_
