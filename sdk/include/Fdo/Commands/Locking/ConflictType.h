// What kept an object from being changed.
#ifndef FDO_COMMANDS_LOCKING_CONFLICT_TYPE_H_
#define FDO_COMMANDS_LOCKING_CONFLICT_TYPE_H_

enum FdoConflictType {
  FdoConflictType_LockConflict = 0,
  FdoConflictType_VersionConflict = 1,
  FdoConflictType_Unsupported = 2
};

#endif  // FDO_COMMANDS_LOCKING_CONFLICT_TYPE_H_
