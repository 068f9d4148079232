// The unique constraints of a class.
#ifndef FDO_SCHEMA_UNIQUE_CONSTRAINT_COLLECTION_H_
#define FDO_SCHEMA_UNIQUE_CONSTRAINT_COLLECTION_H_

#include "Fdo/Schema/SchemaException.h"
#include "Fdo/Schema/UniqueConstraint.h"

class FDO_API FdoUniqueConstraintCollection : public FdoCollection<FdoUniqueConstraint, FdoSchemaException> {
 public:
  // Gives: one reference.
  static FdoUniqueConstraintCollection* Create();

 protected:
  FdoUniqueConstraintCollection();
  ~FdoUniqueConstraintCollection() override;
  void Dispose() override;
};

#endif  // FDO_SCHEMA_UNIQUE_CONSTRAINT_COLLECTION_H_
