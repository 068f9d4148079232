// FdoFeatureSchema is a named set of classes.
#ifndef FDO_SCHEMA_FEATURE_SCHEMA_H_
#define FDO_SCHEMA_FEATURE_SCHEMA_H_

#include "Fdo/Schema/SchemaElement.h"

class FdoClassCollection;

class FDO_API FdoFeatureSchema : public FdoSchemaElement {
 public:
  // Give: one reference.
  static FdoFeatureSchema* Create();
  static FdoFeatureSchema* Create(FdoString* name, FdoString* description);

  // Gives: one reference; changes act on the schema.
  FdoClassCollection* GetClasses();

  // What is marked deleted leaves, everything else becomes Unchanged.
  void AcceptChanges();
  // Everything is again as it was accepted last, and Unchanged. A schema that was never accepted
  // loses its classes and becomes Detached.
  void RejectChanges();

 protected:
  FdoFeatureSchema();
  FdoFeatureSchema(FdoString* name, FdoString* description);
  ~FdoFeatureSchema() override;
  void Dispose() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  FdoPtr<FdoClassCollection> m_classes;
};

typedef FdoPtr<FdoFeatureSchema> FdoFeatureSchemaP;

#endif  // FDO_SCHEMA_FEATURE_SCHEMA_H_
