// FdoNullCondition tests whether a property is null.
#ifndef FDO_FILTER_NULL_CONDITION_H_
#define FDO_FILTER_NULL_CONDITION_H_

#include "Fdo/Expression/Identifier.h"
#include "Fdo/Filter/SearchCondition.h"

class FDO_API FdoNullCondition : public FdoSearchCondition {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoNullCondition* Create();
  static FdoNullCondition* Create(FdoString* propertyName);
  static FdoNullCondition* Create(FdoIdentifier* propertyName);

  // Gives: one reference, or null.
  FdoIdentifier* GetPropertyName();
  void SetPropertyName(FdoIdentifier* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoNullCondition();
  explicit FdoNullCondition(FdoIdentifier* propertyName);
  ~FdoNullCondition() override;
  void Dispose() override;

 private:
  FdoPtr<FdoIdentifier> m_propertyName;
};

#endif  // FDO_FILTER_NULL_CONDITION_H_
