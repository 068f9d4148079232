// Named settings of a raster value.
#ifndef FDO_RASTER_I_RASTER_PROPERTY_DICTIONARY_H_
#define FDO_RASTER_I_RASTER_PROPERTY_DICTIONARY_H_

#include "Fdo/Schema/DataType.h"
#include "FdoStd.h"

class FdoDataValue;
class FdoDataValueCollection;
class FdoStringCollection;

class FDO_API FdoIRasterPropertyDictionary : public FdoIDisposable {
 public:
  virtual FdoStringCollection* GetPropertyNames() = 0;
  virtual FdoDataType GetPropertyDataType(FdoString* name) = 0;
  virtual FdoDataValue* GetProperty(FdoString* name) = 0;
  virtual void SetProperty(FdoString* name, FdoDataValue* value) = 0;
  virtual FdoDataValue* GetPropertyDefault(FdoString* name) = 0;
  virtual bool IsPropertyRequired(FdoString* name) = 0;
  virtual bool IsPropertyEnumerable(FdoString* name) = 0;
  virtual FdoDataValueCollection* GetPropertyValues(FdoString* name) = 0;
  virtual void SetPropertyValues(FdoString* name, FdoDataValueCollection* collection) = 0;
};

#endif  // FDO_RASTER_I_RASTER_PROPERTY_DICTIONARY_H_
