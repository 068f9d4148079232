// FdoPropertyValueConstraint says which values a data property may take.
#ifndef FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_H_
#define FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_H_

#include "Fdo/Schema/PropertyValueConstraintType.h"
#include "FdoStd.h"

class FdoDataValue;

class FDO_API FdoPropertyValueConstraint : public FdoIDisposable {
 public:
  virtual FdoPropertyValueConstraintType GetConstraintType() = 0;

  // Whether both allow the same, in the same words.
  virtual bool Equals(FdoPropertyValueConstraint* pConstraint) = 0;

  // Whether all that the other allows is allowed here.
  virtual bool Contains(FdoPropertyValueConstraint* pConstraint) = 0;

  // Whether the value is allowed. A null value always is: that is for the property to say.
  virtual bool Contains(FdoDataValue* pValue) = 0;
};

typedef FdoPtr<FdoPropertyValueConstraint> FdoPropertyValueConstraintP;

#endif  // FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_H_
