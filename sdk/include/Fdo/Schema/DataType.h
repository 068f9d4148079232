// The types of data properties and data values.
#ifndef FDO_SCHEMA_DATA_TYPE_H_
#define FDO_SCHEMA_DATA_TYPE_H_

enum FdoDataType {
  FdoDataType_Boolean = 0,
  FdoDataType_Byte = 1,
  FdoDataType_DateTime = 2,
  FdoDataType_Decimal = 3,
  FdoDataType_Double = 4,
  FdoDataType_Int16 = 5,
  FdoDataType_Int32 = 6,
  FdoDataType_Int64 = 7,
  FdoDataType_Single = 8,
  FdoDataType_String = 9,
  FdoDataType_BLOB = 10,
  FdoDataType_CLOB = 11
};

#endif  // FDO_SCHEMA_DATA_TYPE_H_
