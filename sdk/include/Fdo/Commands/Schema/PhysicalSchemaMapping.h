// How a provider stores a schema.
#ifndef FDO_COMMANDS_SCHEMA_PHYSICAL_SCHEMA_MAPPING_H_
#define FDO_COMMANDS_SCHEMA_PHYSICAL_SCHEMA_MAPPING_H_

#include "Fdo/Commands/Schema/PhysicalElementMapping.h"

// Each provider that has mappings derives its own.
class FDO_API FdoPhysicalSchemaMapping : public FdoPhysicalElementMapping {
 public:
  // The name of the provider that the mapping is meant for.
  virtual FdoString* GetProvider() = 0;

 protected:
  FdoPhysicalSchemaMapping();
  explicit FdoPhysicalSchemaMapping(FdoString* name);
  ~FdoPhysicalSchemaMapping() override;
};

#endif  // FDO_COMMANDS_SCHEMA_PHYSICAL_SCHEMA_MAPPING_H_
