// A list of data properties, such as those that identify an object.
#ifndef FDO_SCHEMA_DATA_PROPERTY_DEFINITION_COLLECTION_H_
#define FDO_SCHEMA_DATA_PROPERTY_DEFINITION_COLLECTION_H_

#include "Fdo/Schema/DataPropertyDefinition.h"
#include "Fdo/Schema/SchemaCollection.h"

// Deliberate: never the parent of its items, because they are among the properties of a class too.
class FDO_API FdoDataPropertyDefinitionCollection : public FdoSchemaCollection<FdoDataPropertyDefinition> {
 public:
  // Gives: one reference. The parent may be null; the collection does not hold it.
  static FdoDataPropertyDefinitionCollection* Create(FdoSchemaElement* parent);

  void SetItem(FdoInt32 index, FdoDataPropertyDefinition* value) override;
  FdoInt32 Add(FdoDataPropertyDefinition* value) override;
  void Insert(FdoInt32 index, FdoDataPropertyDefinition* value) override;

 protected:
  explicit FdoDataPropertyDefinitionCollection(FdoSchemaElement* parent);
  ~FdoDataPropertyDefinitionCollection() override;
  void Dispose() override;
};

#endif  // FDO_SCHEMA_DATA_PROPERTY_DEFINITION_COLLECTION_H_
