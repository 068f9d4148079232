// The identity properties that a class has from its base classes.
#ifndef FDO_SCHEMA_READ_ONLY_DATA_PROPERTY_DEFINITION_COLLECTION_H_
#define FDO_SCHEMA_READ_ONLY_DATA_PROPERTY_DEFINITION_COLLECTION_H_

#include "Fdo/IDisposableCollection.h"
#include "Fdo/ReadOnlyCollection.h"
#include "Fdo/Schema/DataPropertyDefinitionCollection.h"

// The items as they were when the collection was made.
class FDO_API FdoReadOnlyDataPropertyDefinitionCollection
    : public FdoReadOnlyCollection<FdoDataPropertyDefinition, FdoIDisposableCollection, FdoSchemaException> {
  typedef FdoReadOnlyCollection<FdoDataPropertyDefinition, FdoIDisposableCollection, FdoSchemaException> Base;

 public:
  // Gives: one reference. Null properties give an empty collection.
  static FdoReadOnlyDataPropertyDefinitionCollection* Create(FdoDataPropertyDefinitionCollection* properties);

  FdoInt32 GetCount() override;
  FdoDataPropertyDefinition* GetItem(FdoInt32 index) override;
  FdoDataPropertyDefinition* GetItem(FdoString* name) override;

  using Base::Contains;
  bool Contains(FdoDataPropertyDefinition* value);
  using Base::IndexOf;
  FdoInt32 IndexOf(FdoDataPropertyDefinition* value);

 protected:
  explicit FdoReadOnlyDataPropertyDefinitionCollection(FdoIDisposableCollection* items);
  ~FdoReadOnlyDataPropertyDefinitionCollection() override;
  void Dispose() override;

 private:
  friend class FdoClassDefinition;
};

#endif  // FDO_SCHEMA_READ_ONLY_DATA_PROPERTY_DEFINITION_COLLECTION_H_
