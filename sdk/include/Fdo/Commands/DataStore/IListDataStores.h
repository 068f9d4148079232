// The command that lists data stores.
#ifndef FDO_COMMANDS_DATA_STORE_I_LIST_DATA_STORES_H_
#define FDO_COMMANDS_DATA_STORE_I_LIST_DATA_STORES_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoIDataStoreReader;

class FDO_API FdoIListDataStores : public FdoICommand {
 public:
  virtual bool GetIncludeNonFdoEnabledDatastores() = 0;
  virtual void SetIncludeNonFdoEnabledDatastores(bool include) = 0;
  virtual FdoIDataStoreReader* Execute() = 0;
};

#endif  // FDO_COMMANDS_DATA_STORE_I_LIST_DATA_STORES_H_
