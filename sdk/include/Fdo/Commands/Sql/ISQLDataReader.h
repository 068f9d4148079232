// Reads the rows of a statement of the data store's own language.
#ifndef FDO_COMMANDS_SQL_ISQL_DATA_READER_H_
#define FDO_COMMANDS_SQL_ISQL_DATA_READER_H_

#include "Fdo/Schema/DataType.h"
#include "Fdo/Schema/PropertyType.h"
#include "FdoStd.h"

class FdoIStreamReader;
class FdoLOBValue;

// Starts before the first row. Columns go by name or by position from 0.
// Errors: FdoCommandException* for an unknown column, another type, a null.
class FDO_API FdoISQLDataReader : public FdoIDisposable {
 public:
  virtual FdoInt32 GetColumnCount() = 0;
  virtual FdoString* GetColumnName(FdoInt32 index) = 0;
  virtual FdoInt32 GetColumnIndex(FdoString* columnName) = 0;
  virtual FdoDataType GetColumnType(FdoString* columnName) = 0;
  virtual FdoPropertyType GetPropertyType(FdoString* columnName) = 0;
  virtual bool GetBoolean(FdoString* columnName) = 0;
  virtual FdoByte GetByte(FdoString* columnName) = 0;
  virtual FdoDateTime GetDateTime(FdoString* columnName) = 0;
  virtual double GetDouble(FdoString* columnName) = 0;
  virtual FdoInt16 GetInt16(FdoString* columnName) = 0;
  virtual FdoInt32 GetInt32(FdoString* columnName) = 0;
  virtual FdoInt64 GetInt64(FdoString* columnName) = 0;
  virtual float GetSingle(FdoString* columnName) = 0;
  virtual FdoString* GetString(FdoString* columnName) = 0;
  virtual FdoLOBValue* GetLOB(FdoString* propertyName) = 0;
  virtual FdoIStreamReader* GetLOBStreamReader(wchar_t const* propertyName) = 0;
  virtual bool IsNull(FdoString* columnName) = 0;
  virtual FdoByteArray* GetGeometry(FdoString* columnName) = 0;
  virtual FdoDataType GetColumnType(FdoInt32 index) = 0;
  virtual FdoPropertyType GetPropertyType(FdoInt32 index) = 0;
  virtual FdoBoolean GetBoolean(FdoInt32 index) = 0;
  virtual FdoByte GetByte(FdoInt32 index) = 0;
  virtual FdoDateTime GetDateTime(FdoInt32 index) = 0;
  virtual FdoDouble GetDouble(FdoInt32 index) = 0;
  virtual FdoInt16 GetInt16(FdoInt32 index) = 0;
  virtual FdoInt32 GetInt32(FdoInt32 index) = 0;
  virtual FdoInt64 GetInt64(FdoInt32 index) = 0;
  virtual FdoFloat GetSingle(FdoInt32 index) = 0;
  virtual FdoString* GetString(FdoInt32 index) = 0;
  virtual FdoLOBValue* GetLOB(FdoInt32 index) = 0;
  virtual FdoIStreamReader* GetLOBStreamReader(FdoInt32 index) = 0;
  virtual FdoBoolean IsNull(FdoInt32 index) = 0;
  virtual FdoByteArray* GetGeometry(FdoInt32 index) = 0;
  virtual bool ReadNext() = 0;
  virtual void Close() = 0;
};

#endif  // FDO_COMMANDS_SQL_ISQL_DATA_READER_H_
