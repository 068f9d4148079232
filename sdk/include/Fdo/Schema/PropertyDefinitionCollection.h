// The properties of a class.
#ifndef FDO_SCHEMA_PROPERTY_DEFINITION_COLLECTION_H_
#define FDO_SCHEMA_PROPERTY_DEFINITION_COLLECTION_H_

#include "Fdo/Schema/PropertyDefinition.h"
#include "Fdo/Schema/SchemaCollection.h"

class FDO_API FdoPropertyDefinitionCollection : public FdoSchemaCollection<FdoPropertyDefinition> {
 public:
  // Gives: one reference. The parent may be null; the collection does not hold it.
  static FdoPropertyDefinitionCollection* Create(FdoSchemaElement* parent);

  // A property that leaves its class is no longer part of the identity or the class's geometry either.
  using FdoSchemaCollection<FdoPropertyDefinition>::Remove;
  virtual void Remove(FdoSchemaElement const* value);
  void RemoveAt(FdoInt32 index) override;

 protected:
  explicit FdoPropertyDefinitionCollection(FdoSchemaElement* parent);
  ~FdoPropertyDefinitionCollection() override;
  void Dispose() override;
  void ItemLeft(FdoPropertyDefinition* item) override;
};

#endif  // FDO_SCHEMA_PROPERTY_DEFINITION_COLLECTION_H_
