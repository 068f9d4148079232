// FdoPropertyDefinition is what the kinds of property have in common.
#ifndef FDO_SCHEMA_PROPERTY_DEFINITION_H_
#define FDO_SCHEMA_PROPERTY_DEFINITION_H_

#include "Fdo/Schema/PropertyType.h"
#include "Fdo/Schema/SchemaElement.h"

class FDO_API FdoPropertyDefinition : public FdoSchemaElement {
 public:
  virtual FdoPropertyType GetPropertyType() = 0;
  FdoStringP GetQualifiedName() override;

  // A system property is the provider's own and not for programs to change.
  virtual bool GetIsSystem();
  virtual void SetIsSystem(bool value);

 protected:
  FdoPropertyDefinition();
  FdoPropertyDefinition(FdoString* name, FdoString* description, bool system);
  ~FdoPropertyDefinition() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  FdoInternal::Tracked<bool> m_isSystem;
};

typedef FdoPtr<FdoPropertyDefinition> FdoPropertyDefinitionP;

#endif  // FDO_SCHEMA_PROPERTY_DEFINITION_H_
