// FdoPropertyValueConstraintList allows the values that it lists.
#ifndef FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_LIST_H_
#define FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_LIST_H_

#include "Fdo/Schema/PropertyValueConstraint.h"

class FdoDataValueCollection;

class FDO_API FdoPropertyValueConstraintList : public FdoPropertyValueConstraint {
 public:
  // Gives: one reference.
  static FdoPropertyValueConstraintList* Create();

  // Gives: one reference; changes act on the constraint.
  FdoDataValueCollection* GetConstraintList();

  FdoPropertyValueConstraintType GetConstraintType() override;

  // Whether the other is a list of the same values, in any order.
  bool Equals(FdoPropertyValueConstraint* pConstraint) override;

  // Whether the other is a list, and each of its values is in this one.
  bool Contains(FdoPropertyValueConstraint* pConstraint) override;
  bool Contains(FdoDataValue* pValue) override;

 protected:
  FdoPropertyValueConstraintList();
  ~FdoPropertyValueConstraintList() override;
  void Dispose() override;

 private:
  FdoPtr<FdoDataValueCollection> m_values;
};

typedef FdoPtr<FdoPropertyValueConstraintList> FdoPropertyValueConstraintListP;

#endif  // FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_LIST_H_
