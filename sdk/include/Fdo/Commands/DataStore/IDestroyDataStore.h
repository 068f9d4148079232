// The command that removes a data store.
#ifndef FDO_COMMANDS_DATA_STORE_I_DESTROY_DATA_STORE_H_
#define FDO_COMMANDS_DATA_STORE_I_DESTROY_DATA_STORE_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoIDataStorePropertyDictionary;

class FDO_API FdoIDestroyDataStore : public FdoICommand {
 public:
  virtual FdoIDataStorePropertyDictionary* GetDataStoreProperties() = 0;
  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_DATA_STORE_I_DESTROY_DATA_STORE_H_
