// A unit of work on a connection.
#ifndef FDO_CONNECTIONS_I_TRANSACTION_H_
#define FDO_CONNECTIONS_I_TRANSACTION_H_

#include "FdoStd.h"

class FdoIConnection;

// A transaction that ends without Commit is rolled back.
class FDO_API FdoITransaction : public FdoIDisposable {
 public:
  virtual FdoIConnection* GetConnection() = 0;
  virtual void Commit() = 0;

  // Gives the name that is really used.
  virtual FdoString* AddSavePoint(FdoString* suggestName) = 0;

  virtual void ReleaseSavePoint(FdoString* savePointName) = 0;
  virtual void Rollback(FdoString* savePointName) = 0;
  virtual void Rollback() = 0;
};

#endif  // FDO_CONNECTIONS_I_TRANSACTION_H_
