// Reads rows of computed values.
#ifndef FDO_COMMANDS_FEATURE_I_DATA_READER_H_
#define FDO_COMMANDS_FEATURE_I_DATA_READER_H_

#include "Fdo/Commands/Feature/IReader.h"
#include "Fdo/Schema/DataType.h"
#include "Fdo/Schema/PropertyType.h"
#include "FdoStd.h"

class FDO_API FdoIDataReader : public FdoIReader {
 public:
  virtual FdoInt32 GetPropertyCount() = 0;
  virtual FdoDataType GetDataType(FdoString* propertyName) = 0;
  virtual FdoPropertyType GetPropertyType(FdoString* propertyName) = 0;
  virtual FdoDataType GetDataType(FdoInt32 index) = 0;
  virtual FdoPropertyType GetPropertyType(FdoInt32 index) = 0;
};

#endif  // FDO_COMMANDS_FEATURE_I_DATA_READER_H_
