// The kinds of lock.
#ifndef FDO_COMMANDS_LOCKING_LOCK_TYPE_H_
#define FDO_COMMANDS_LOCKING_LOCK_TYPE_H_

enum FdoLockType {
  FdoLockType_None = 0,
  FdoLockType_Shared = 1,
  FdoLockType_Exclusive = 2,
  FdoLockType_Transaction = 3,
  FdoLockType_Unsupported = 4,
  FdoLockType_AllLongTransactionExclusive = 5,
  FdoLockType_LongTransactionExclusive = 6
};

#endif  // FDO_COMMANDS_LOCKING_LOCK_TYPE_H_
