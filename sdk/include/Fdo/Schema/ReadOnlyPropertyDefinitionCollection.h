// The properties that a class has from its base classes.
#ifndef FDO_SCHEMA_READ_ONLY_PROPERTY_DEFINITION_COLLECTION_H_
#define FDO_SCHEMA_READ_ONLY_PROPERTY_DEFINITION_COLLECTION_H_

#include "Fdo/IDisposableCollection.h"
#include "Fdo/ReadOnlyCollection.h"
#include "Fdo/Schema/PropertyDefinitionCollection.h"

// The items as they were when the collection was made.
class FDO_API FdoReadOnlyPropertyDefinitionCollection
    : public FdoReadOnlyCollection<FdoPropertyDefinition, FdoIDisposableCollection, FdoSchemaException> {
  typedef FdoReadOnlyCollection<FdoPropertyDefinition, FdoIDisposableCollection, FdoSchemaException> Base;

 public:
  // Gives: one reference. Null properties give an empty collection.
  static FdoReadOnlyPropertyDefinitionCollection* Create(FdoPropertyDefinitionCollection* properties);

  FdoInt32 GetCount() override;
  FdoPropertyDefinition* GetItem(FdoInt32 index) override;
  FdoPropertyDefinition* GetItem(FdoString* name) override;

  using Base::Contains;
  bool Contains(FdoPropertyDefinition* value);
  using Base::IndexOf;
  FdoInt32 IndexOf(FdoPropertyDefinition* value);

 protected:
  explicit FdoReadOnlyPropertyDefinitionCollection(FdoIDisposableCollection* items);
  ~FdoReadOnlyPropertyDefinitionCollection() override;
  void Dispose() override;

 private:
  friend class FdoClassDefinition;
};

#endif  // FDO_SCHEMA_READ_ONLY_PROPERTY_DEFINITION_COLLECTION_H_
