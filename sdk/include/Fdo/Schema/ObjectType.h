// How many objects an object property holds.
#ifndef FDO_SCHEMA_OBJECT_TYPE_H_
#define FDO_SCHEMA_OBJECT_TYPE_H_

enum FdoObjectType {
  FdoObjectType_Value = 0,
  FdoObjectType_Collection = 1,
  FdoObjectType_OrderedCollection = 2
};

#endif  // FDO_SCHEMA_OBJECT_TYPE_H_
