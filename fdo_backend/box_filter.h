// The condition of a box query.
#ifndef FDO_BACKEND_BOX_FILTER_H_
#define FDO_BACKEND_BOX_FILTER_H_

#include <Fdo.h>

namespace fdo::internal {

// True where the envelope of that geometry property meets the box and the filter, unless null, holds.
// Units: minX, minY, maxX, maxY.
FdoPtr<FdoFilter> BoxFilter(FdoString* geometryName, double const* box, FdoFilter* filter);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_BOX_FILTER_H_
