// Whether a lock command takes all objects or those it can.
#ifndef FDO_COMMANDS_LOCKING_LOCK_STRATEGY_H_
#define FDO_COMMANDS_LOCKING_LOCK_STRATEGY_H_

enum FdoLockStrategy { FdoLockStrategy_All = 0, FdoLockStrategy_Partial = 1 };

#endif  // FDO_COMMANDS_LOCKING_LOCK_STRATEGY_H_
