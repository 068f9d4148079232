// The command that reads values computed over features: aggregates, groups, distinct values.
#ifndef FDO_COMMANDS_FEATURE_I_SELECT_AGGREGATES_H_
#define FDO_COMMANDS_FEATURE_I_SELECT_AGGREGATES_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Commands/Feature/IBaseSelect.h"
#include "FdoStd.h"

class FdoFilter;
class FdoIDataReader;
class FdoIdentifierCollection;
class FdoJoinCriteriaCollection;

class FDO_API FdoISelectAggregates : public FdoIBaseSelect {
 public:
  // Gives: one reference; the reader stands before the first row.
  virtual FdoIDataReader* Execute() = 0;

  virtual void SetDistinct(bool value) = 0;
  virtual bool GetDistinct() = 0;
  virtual FdoIdentifierCollection* GetGrouping() = 0;
  virtual void SetGroupingFilter(FdoFilter* filter) = 0;
  virtual FdoFilter* GetGroupingFilter() = 0;
  virtual FdoJoinCriteriaCollection* GetJoinCriteria() {
    throw FdoCommandException::Create(L"The provider's select has no joins.");
  }
  virtual FdoString* GetAlias() { return nullptr; }
  virtual void SetAlias(FdoString*) {}
};

#endif  // FDO_COMMANDS_FEATURE_I_SELECT_AGGREGATES_H_
