// Reads the features that a command could not lock.
#ifndef FDO_COMMANDS_LOCKING_I_LOCK_CONFLICT_READER_H_
#define FDO_COMMANDS_LOCKING_I_LOCK_CONFLICT_READER_H_

#include "Fdo/Commands/Locking/ConflictType.h"
#include "FdoStd.h"

class FdoPropertyValueCollection;

// Starts before the first.
class FDO_API FdoILockConflictReader : public FdoIDisposable {
 public:
  virtual FdoString* GetFeatureClassName() = 0;
  virtual FdoPropertyValueCollection* GetIdentity() = 0;
  virtual FdoString* GetLockOwner() = 0;
  virtual FdoString* GetLongTransaction() = 0;
  virtual FdoConflictType GetConflictType() = 0;
  virtual bool ReadNext() = 0;
  virtual void Close() = 0;
};

#endif  // FDO_COMMANDS_LOCKING_I_LOCK_CONFLICT_READER_H_
