// What happens to associated objects when an object is deleted.
#ifndef FDO_SCHEMA_DELETE_RULE_H_
#define FDO_SCHEMA_DELETE_RULE_H_

enum FdoDeleteRule { FdoDeleteRule_Cascade = 0, FdoDeleteRule_Prevent = 1, FdoDeleteRule_Break = 2 };

#endif  // FDO_SCHEMA_DELETE_RULE_H_
