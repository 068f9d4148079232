// The filters that a table's own queries consist of.
#ifndef FDO_BACKEND_QUERY_FILTERS_H_
#define FDO_BACKEND_QUERY_FILTERS_H_

#include <Fdo.h>
#include <fdo/integer.h>
#include <fdo/schema.h>

namespace fdo::internal {

// True where the envelope of that geometry property meets the box and the filter, unless null, holds.
// Units: minX, minY, maxX, maxY.
FdoPtr<FdoFilter> BoxFilter(FdoString* geometryName, double const* box, FdoFilter* filter);

// first <= property < last, with bounds of 64 bits whatever the property's type.
FdoPtr<FdoFilter> RangeFilter(FdoString* property, __int64 first, __int64 last);

// The identity as a literal of its column's type, or of 64 bits where it does not fit: cut to the type
// it would name another record. Null for a column that is no Int16, Int32 or Int64.
FdoPtr<FdoDataValue> IdLiteral(ColumnDef::DataType type, __int64 id);

}  // namespace fdo::internal

#endif  // FDO_BACKEND_QUERY_FILTERS_H_
