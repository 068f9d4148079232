// Reads WKB into a geometry stream.
#ifndef SDK_RUNTIME_GEOMETRY_WKB_READER_H_
#define SDK_RUNTIME_GEOMETRY_WKB_READER_H_

#include "sdk/runtime/geometry/fgf_box.h"
#include "sdk/runtime/geometry/fgf_builder.h"

namespace fdo_sdk {

// Reads one geometry from the front of the bytes, checked as FGF is. CircularString and CompoundCurve
// become curve strings, MultiCurve and MultiSurface their curve counterparts, whatever their parts are.
// An empty curve, which FGF cannot say, starts at a position of NaN and has no segments.
// Errors: throws FdoException*: ThrowInvalidWkb(), or a message that names a type that FGF does not have.
void ReadWkb(FdoByte const* wkb, std::size_t size, FgfBuilder& out);

// The box that the geometry has once it is read, with the true extent of arcs; allocates for curves only.
// Errors: as ReadWkb, for the same bytes.
FgfBox MeasureWkb(FdoByte const* wkb, std::size_t size);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_WKB_READER_H_
