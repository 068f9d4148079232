// The command that makes a data store.
#ifndef FDO_COMMANDS_DATA_STORE_I_CREATE_DATA_STORE_H_
#define FDO_COMMANDS_DATA_STORE_I_CREATE_DATA_STORE_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoIDataStorePropertyDictionary;

// Providers of files make it on a closed connection too.
class FDO_API FdoICreateDataStore : public FdoICommand {
 public:
  // Gives: one reference.
  virtual FdoIDataStorePropertyDictionary* GetDataStoreProperties() = 0;

  virtual void Execute() = 0;
};

#endif  // FDO_COMMANDS_DATA_STORE_I_CREATE_DATA_STORE_H_
