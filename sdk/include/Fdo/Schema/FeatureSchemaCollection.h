// The schemas of a data store.
#ifndef FDO_SCHEMA_FEATURE_SCHEMA_COLLECTION_H_
#define FDO_SCHEMA_FEATURE_SCHEMA_COLLECTION_H_

#include "Fdo/IDisposableCollection.h"
#include "Fdo/Schema/FeatureSchema.h"
#include "Fdo/Schema/SchemaCollection.h"

class FDO_API FdoFeatureSchemaCollection : public FdoSchemaCollection<FdoFeatureSchema> {
 public:
  // Gives: one reference. The parent may be null; the collection does not hold it.
  static FdoFeatureSchemaCollection* Create(FdoSchemaElement* parent);

  // The classes of a name in all schemas; schema:class looks in that schema only.
  // Gives: one reference, an empty collection when there is no such class.
  virtual FdoIDisposableCollection* FindClass(wchar_t const* className);

 protected:
  explicit FdoFeatureSchemaCollection(FdoSchemaElement* parent);
  ~FdoFeatureSchemaCollection() override;
  void Dispose() override;
};

#endif  // FDO_SCHEMA_FEATURE_SCHEMA_COLLECTION_H_
