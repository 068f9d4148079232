// The kinds of constraint on the values of a property.
#ifndef FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_TYPE_H_
#define FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_TYPE_H_

enum FdoPropertyValueConstraintType {
  FdoPropertyValueConstraintType_Range = 1,
  FdoPropertyValueConstraintType_List = 2
};

#endif  // FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_TYPE_H_
