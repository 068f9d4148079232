// The kinds of property a class has.
#ifndef FDO_SCHEMA_PROPERTY_TYPE_H_
#define FDO_SCHEMA_PROPERTY_TYPE_H_

enum FdoPropertyType {
  FdoPropertyType_DataProperty = 0,
  FdoPropertyType_ObjectProperty = 1,
  FdoPropertyType_GeometricProperty = 2,
  FdoPropertyType_AssociationProperty = 3,
  FdoPropertyType_RasterProperty = 4
};

#endif  // FDO_SCHEMA_PROPERTY_TYPE_H_
