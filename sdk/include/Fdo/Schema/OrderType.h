// The order of an ordered object property.
#ifndef FDO_SCHEMA_ORDER_TYPE_H_
#define FDO_SCHEMA_ORDER_TYPE_H_

enum FdoOrderType { FdoOrderType_Ascending = 0, FdoOrderType_Descending = 1 };

#endif  // FDO_SCHEMA_ORDER_TYPE_H_
