// A list of feature classes.
#ifndef FDO_SCHEMA_FEATURE_CLASS_COLLECTION_H_
#define FDO_SCHEMA_FEATURE_CLASS_COLLECTION_H_

#include "Fdo/Schema/FeatureClass.h"
#include "Fdo/Schema/SchemaCollection.h"

class FDO_API FdoFeatureClassCollection : public FdoSchemaCollection<FdoFeatureClass> {
 public:
  // Gives: one reference. The parent may be null; the collection does not hold it.
  static FdoFeatureClassCollection* Create(FdoSchemaElement* parent);

 protected:
  explicit FdoFeatureClassCollection(FdoSchemaElement* parent);
  ~FdoFeatureClassCollection() override;
  void Dispose() override;
};

#endif  // FDO_SCHEMA_FEATURE_CLASS_COLLECTION_H_
