// FdoJoinCriteriaCollection is an ordered list of joins, each under its own name.
#ifndef FDO_EXPRESSION_JOIN_CRITERIA_COLLECTION_H_
#define FDO_EXPRESSION_JOIN_CRITERIA_COLLECTION_H_

#include "Fdo/Commands/CommandException.h"
#include "Fdo/Expression/JoinCriteria.h"

// The name of a join is its alias, or the text of its class when it has none.
// Errors: a second join of one name is refused with FdoCommandException*.
class FDO_API FdoJoinCriteriaCollection : public FdoCollection<FdoJoinCriteria, FdoCommandException> {
 public:
  // Gives: one reference.
  static FdoJoinCriteriaCollection* Create();

  // Give: one reference. When there is none of that name GetItem throws, FindItem gives null.
  FdoJoinCriteria* GetItem(FdoString* name);
  FdoJoinCriteria* FindItem(FdoString* name);
  FdoJoinCriteria* GetItem(FdoInt32 index);

  void Insert(FdoInt32 index, FdoJoinCriteria* value) override;
  FdoInt32 Add(FdoJoinCriteria* value) override;
  void SetItem(FdoInt32 index, FdoJoinCriteria* value) override;

  using FdoCollection<FdoJoinCriteria, FdoCommandException>::GetItem;

 protected:
  FdoJoinCriteriaCollection();
  ~FdoJoinCriteriaCollection() override;
  void Dispose() override;
};

#endif  // FDO_EXPRESSION_JOIN_CRITERIA_COLLECTION_H_
