// Geometry on the stack, and what FDO says about two of them.
#ifndef EXPR_SPATIAL_H_
#define EXPR_SPATIAL_H_

#include <FdoSpatial.h>
#include <fdo/value.h>

namespace fdo::internal {

// Gives: one reference. Borrowed: the bytes, while the geometry is used.
// Errors: throws FdoException* for anything but a geometry's stream, null included.
FdoIGeometry* GeometryOf(Value const& value);

// Errors: false where the operation itself fails.
bool IsInRelation(FdoIGeometry* left, long long operation, FdoIGeometry* right);

// Whether the nearest positions of the two are as near as the distance or nearer.
// Errors: as above.
// Requires: distance >= 0
bool IsWithinDistance(FdoIGeometry* left, FdoIGeometry* right, double distance);

bool IsEmpty(FdoIGeometry* geometry);

}  // namespace fdo::internal

#endif  // EXPR_SPATIAL_H_
