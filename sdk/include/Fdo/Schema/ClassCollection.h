// The classes of a schema.
#ifndef FDO_SCHEMA_CLASS_COLLECTION_H_
#define FDO_SCHEMA_CLASS_COLLECTION_H_

#include "Fdo/Schema/ClassDefinition.h"
#include "Fdo/Schema/SchemaCollection.h"

class FDO_API FdoClassCollection : public FdoSchemaCollection<FdoClassDefinition> {
 public:
  // Gives: one reference. The parent may be null; the collection does not hold it.
  static FdoClassCollection* Create(FdoSchemaElement* parent);

 protected:
  explicit FdoClassCollection(FdoSchemaElement* parent);
  ~FdoClassCollection() override;
  void Dispose() override;
};

#endif  // FDO_SCHEMA_CLASS_COLLECTION_H_
