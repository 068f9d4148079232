// The schema elements whose names have a limited length.
#ifndef FDO_CONNECTIONS_CAPABILITIES_SCHEMA_ELEMENT_NAME_TYPE_H_
#define FDO_CONNECTIONS_CAPABILITIES_SCHEMA_ELEMENT_NAME_TYPE_H_

enum FdoSchemaElementNameType {
  FdoSchemaElementNameType_Datastore = 0,
  FdoSchemaElementNameType_Schema = 1,
  FdoSchemaElementNameType_Class = 2,
  FdoSchemaElementNameType_Property = 3,
  FdoSchemaElementNameType_Description = 4
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_SCHEMA_ELEMENT_NAME_TYPE_H_
