// FdoJoinCriteria joins a further class to the one that is selected from.
#ifndef FDO_EXPRESSION_JOIN_CRITERIA_H_
#define FDO_EXPRESSION_JOIN_CRITERIA_H_

#include "Fdo/Expression/Identifier.h"
#include "Fdo/Expression/JoinType.h"
#include "Fdo/Filter/Filter.h"

class FDO_API FdoJoinCriteria : public FdoIDisposable {
 public:
  // Gives: one reference. Class and filter are shared and may be null.
  static FdoJoinCriteria* Create();
  static FdoJoinCriteria* Create(FdoIdentifier* joinClass, FdoJoinType joinType);
  static FdoJoinCriteria* Create(FdoIdentifier* joinClass, FdoJoinType joinType, FdoFilter* filter);
  static FdoJoinCriteria* Create(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType);
  static FdoJoinCriteria* Create(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType,
                                 FdoFilter* filter);

  // Borrowed: until SetAlias. Empty when there is none.
  FdoString* GetAlias();
  void SetAlias(FdoString* value);
  bool HasAlias();

  // Gives: one reference, or null.
  FdoIdentifier* GetJoinClass();
  void SetJoinClass(FdoIdentifier* value);

  FdoJoinType GetJoinType() const;
  void SetJoinType(FdoJoinType value);

  // Gives: one reference, or null.
  FdoFilter* GetFilter();
  void SetFilter(FdoFilter* value);

 protected:
  FdoJoinCriteria();
  FdoJoinCriteria(FdoString* alias, FdoIdentifier* joinClass, FdoJoinType joinType, FdoFilter* filter);
  ~FdoJoinCriteria() override;
  void Dispose() override;

 private:
  FdoStringP m_alias;
  FdoPtr<FdoIdentifier> m_joinClass;
  FdoPtr<FdoFilter> m_filter;
  FdoJoinType m_joinType;
};

#endif  // FDO_EXPRESSION_JOIN_CRITERIA_H_
