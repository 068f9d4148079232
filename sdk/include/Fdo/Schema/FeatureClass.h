// FdoFeatureClass is a class of features: objects that may have a place.
#ifndef FDO_SCHEMA_FEATURE_CLASS_H_
#define FDO_SCHEMA_FEATURE_CLASS_H_

#include "Fdo/Schema/ClassDefinition.h"

class FdoGeometricPropertyDefinition;

class FDO_API FdoFeatureClass : public FdoClassDefinition {
 public:
  // Give: one reference.
  static FdoFeatureClass* Create();
  static FdoFeatureClass* Create(FdoString* name, FdoString* description);

  FdoClassType GetClassType() override;

  // The one geometry that stands for the feature; without its own the base class's.
  // Gives: one reference, or null.
  FdoGeometricPropertyDefinition* GetGeometryProperty();
  // Errors: FdoSchemaException* for a property that neither the class nor a base class has.
  void SetGeometryProperty(FdoGeometricPropertyDefinition* value);

 protected:
  FdoFeatureClass();
  FdoFeatureClass(FdoString* name, FdoString* description);
  ~FdoFeatureClass() override;
  void Dispose() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;
  void PropertyLeft(FdoPropertyDefinition* property) override;

 private:
  FdoInternal::Tracked<FdoPtr<FdoGeometricPropertyDefinition>> m_geometry;
};

typedef FdoPtr<FdoFeatureClass> FdoFeatureClassP;

#endif  // FDO_SCHEMA_FEATURE_CLASS_H_
