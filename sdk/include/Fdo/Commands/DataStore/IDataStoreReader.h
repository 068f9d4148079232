// Reads the data stores of a server one after another.
#ifndef FDO_COMMANDS_DATA_STORE_I_DATA_STORE_READER_H_
#define FDO_COMMANDS_DATA_STORE_I_DATA_STORE_READER_H_

#include "FdoStd.h"

class FdoIDataStorePropertyDictionary;

// Starts before the first.
class FDO_API FdoIDataStoreReader : public FdoIDisposable {
 public:
  virtual FdoString* GetName() = 0;
  virtual FdoString* GetDescription() = 0;
  virtual bool GetIsFdoEnabled() = 0;
  virtual FdoIDataStorePropertyDictionary* GetDataStoreProperties() = 0;
  virtual bool ReadNext() = 0;
  virtual void Close() = 0;
};

#endif  // FDO_COMMANDS_DATA_STORE_I_DATA_STORE_READER_H_
