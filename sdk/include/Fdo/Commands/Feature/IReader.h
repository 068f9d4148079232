// Reads rows one after another.
#ifndef FDO_COMMANDS_FEATURE_I_READER_H_
#define FDO_COMMANDS_FEATURE_I_READER_H_

#include "FdoStd.h"

class FdoIRaster;
class FdoIStreamReader;
class FdoLOBValue;

// Starts before the first row. Properties go by name or by position from 0; a literal 0 means the position.
// Every typed getter gives its own type and converts nothing.
// Errors: FdoCommandException* for an unknown property, another type, a null.
class FDO_API FdoIReader : public FdoIDisposable {
 public:
  virtual FdoString* GetPropertyName(FdoInt32 index) = 0;
  virtual FdoInt32 GetPropertyIndex(FdoString* propertyName) = 0;
  virtual bool GetBoolean(FdoString* propertyName) = 0;
  virtual FdoByte GetByte(FdoString* propertyName) = 0;
  virtual FdoDateTime GetDateTime(FdoString* propertyName) = 0;
  virtual double GetDouble(FdoString* propertyName) = 0;
  virtual FdoInt16 GetInt16(FdoString* propertyName) = 0;
  virtual FdoInt32 GetInt32(FdoString* propertyName) = 0;
  virtual FdoInt64 GetInt64(FdoString* propertyName) = 0;
  virtual float GetSingle(FdoString* propertyName) = 0;

  // Borrowed: until the reader moves or closes.
  virtual FdoString* GetString(FdoString* propertyName) = 0;

  // Gives: one reference.
  virtual FdoLOBValue* GetLOB(FdoString* propertyName) = 0;

  virtual FdoIStreamReader* GetLOBStreamReader(wchar_t const* propertyName) = 0;
  virtual bool IsNull(FdoString* propertyName) = 0;

  // Gives: one reference; the bytes are FGF.
  virtual FdoByteArray* GetGeometry(FdoString* propertyName) = 0;

  virtual FdoIRaster* GetRaster(FdoString* propertyName) = 0;
  virtual FdoBoolean GetBoolean(FdoInt32 index) = 0;
  virtual FdoByte GetByte(FdoInt32 index) = 0;
  virtual FdoDateTime GetDateTime(FdoInt32 index) = 0;
  virtual FdoDouble GetDouble(FdoInt32 index) = 0;
  virtual FdoInt16 GetInt16(FdoInt32 index) = 0;
  virtual FdoInt32 GetInt32(FdoInt32 index) = 0;
  virtual FdoInt64 GetInt64(FdoInt32 index) = 0;
  virtual FdoFloat GetSingle(FdoInt32 index) = 0;

  // Borrowed: until the reader moves or closes.
  virtual FdoString* GetString(FdoInt32 index) = 0;

  // Gives: one reference.
  virtual FdoLOBValue* GetLOB(FdoInt32 index) = 0;

  virtual FdoIStreamReader* GetLOBStreamReader(FdoInt32 index) = 0;
  virtual FdoBoolean IsNull(FdoInt32 index) = 0;

  // Gives: one reference; the bytes are FGF.
  virtual FdoByteArray* GetGeometry(FdoInt32 index) = 0;

  virtual FdoIRaster* GetRaster(FdoInt32 index) = 0;

  // Errors: false at the end.
  virtual bool ReadNext() = 0;

  virtual void Close() = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_READER_H_
