// Appends geometry objects, of any maker, to a stream.
#ifndef SDK_RUNTIME_GEOMETRY_GEOMETRY_APPEND_H_
#define SDK_RUNTIME_GEOMETRY_GEOMETRY_APPEND_H_

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/fgf_builder.h"

namespace fdo_sdk {

// Errors, of all: throw FdoException* for null, for a type that is not the required one (0 is any), for
// dimensionalities that differ within one geometry and for too deep nesting.
void AppendGeometry(FgfBuilder& out, FdoIGeometry* geometry, FdoInt32 requiredType = 0, int level = 1);

void AppendPosition(FgfBuilder& out, FdoIDirectPosition* position, FdoInt32 dimensionality);

// Count and positions.
void AppendLinearRing(FgfBuilder& out, FdoILinearRing* ring, FdoInt32 dimensionality);

// Start position, count and segments.
void AppendRing(FgfBuilder& out, FdoIRing* ring, FdoInt32 dimensionality);
void AppendSegments(FgfBuilder& out, FdoCurveSegmentCollection* segments, FdoInt32 dimensionality);

// The dimensionality of the first item, XY when there is none.
FdoInt32 DimensionalityOf(FdoDirectPositionCollection* positions);
FdoInt32 DimensionalityOf(FdoCurveSegmentCollection* segments);

// Count and positions.
void AppendPositions(FgfBuilder& out, FdoDirectPositionCollection* positions, FdoInt32 dimensionality);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_GEOMETRY_APPEND_H_
