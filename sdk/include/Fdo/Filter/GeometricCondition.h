// FdoGeometricCondition is the base of the conditions on a geometry.
#ifndef FDO_FILTER_GEOMETRIC_CONDITION_H_
#define FDO_FILTER_GEOMETRIC_CONDITION_H_

#include "Fdo/Expression/Identifier.h"
#include "Fdo/Filter/SearchCondition.h"

class FDO_API FdoGeometricCondition : public FdoSearchCondition {
 public:
  // Gives: one reference, or null.
  FdoIdentifier* GetPropertyName();
  void SetPropertyName(FdoIdentifier* value);

 protected:
  FdoGeometricCondition();
  explicit FdoGeometricCondition(FdoIdentifier* propertyName);
  ~FdoGeometricCondition() override;

 private:
  FdoPtr<FdoIdentifier> m_propertyName;
};

#endif  // FDO_FILTER_GEOMETRIC_CONDITION_H_
