// The command that reads features.
#ifndef FDO_COMMANDS_FEATURE_I_SELECT_H_
#define FDO_COMMANDS_FEATURE_I_SELECT_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/Feature/IBaseSelect.h"
#include "Fdo/Commands/Locking/LockStrategy.h"
#include "Fdo/Commands/Locking/LockType.h"
#include "FdoStd.h"

class FdoIFeatureReader;
class FdoILockConflictReader;
class FdoJoinCriteriaCollection;

class FDO_API FdoISelect : public FdoIBaseSelect {
 public:
  virtual FdoLockType GetLockType() = 0;
  virtual void SetLockType(FdoLockType value) = 0;
  virtual FdoLockStrategy GetLockStrategy() = 0;
  virtual void SetLockStrategy(FdoLockStrategy value) = 0;

  // Gives: one reference; the reader stands before the first row.
  virtual FdoIFeatureReader* Execute() = 0;

  virtual FdoIFeatureReader* ExecuteWithLock() = 0;
  virtual FdoILockConflictReader* GetLockConflicts() = 0;
  virtual FdoJoinCriteriaCollection* GetJoinCriteria() {
    throw FdoCommandException::Create(L"The provider's select has no joins.");
  }
  virtual FdoString* GetAlias() { return nullptr; }
  virtual void SetAlias(FdoString*) {}
};

#endif  // FDO_COMMANDS_FEATURE_I_SELECT_H_
