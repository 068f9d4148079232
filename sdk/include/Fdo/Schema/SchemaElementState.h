// What has happened to a schema element since its changes were accepted.
#ifndef FDO_SCHEMA_SCHEMA_ELEMENT_STATE_H_
#define FDO_SCHEMA_SCHEMA_ELEMENT_STATE_H_

enum FdoSchemaElementState {
  FdoSchemaElementState_Added = 0,
  FdoSchemaElementState_Deleted = 1,
  FdoSchemaElementState_Detached = 2,
  FdoSchemaElementState_Modified = 3,
  FdoSchemaElementState_Unchanged = 4
};

#endif  // FDO_SCHEMA_SCHEMA_ELEMENT_STATE_H_
