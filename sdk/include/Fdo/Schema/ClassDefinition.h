// FdoClassDefinition describes the objects of one class by their properties.
#ifndef FDO_SCHEMA_CLASS_DEFINITION_H_
#define FDO_SCHEMA_CLASS_DEFINITION_H_

#include <vector>

#include "Fdo/Schema/ClassType.h"
#include "Fdo/Schema/SchemaElement.h"

class FdoClassCapabilities;
class FdoDataPropertyDefinitionCollection;
class FdoPropertyDefinition;
class FdoPropertyDefinitionCollection;
class FdoReadOnlyDataPropertyDefinitionCollection;
class FdoReadOnlyPropertyDefinitionCollection;
class FdoUniqueConstraint;
class FdoUniqueConstraintCollection;

class FDO_API FdoClassDefinition : public FdoSchemaElement {
 public:
  virtual FdoClassType GetClassType();

  // Gives: one reference, or null.
  FdoClassDefinition* GetBaseClass();
  // Errors: FdoSchemaException* for the class itself or one that derives from it.
  void SetBaseClass(FdoClassDefinition* value);

  bool GetIsAbstract();
  void SetIsAbstract(bool value);

  // The properties of the base classes, or in place of those what SetBaseProperties was given; a
  // provider sets properties that belong to none of its classes this way.
  // Gives: one reference, the outermost base class's properties first.
  void SetBaseProperties(FdoPropertyDefinitionCollection* value);
  FdoReadOnlyPropertyDefinitionCollection* GetBaseProperties();

  // Gives: one reference; changes act on the class. The properties are among GetProperties() too.
  FdoDataPropertyDefinitionCollection* GetIdentityProperties();

  // Gives: one reference: the identity properties of the nearest base class that has any.
  FdoReadOnlyDataPropertyDefinitionCollection* GetBaseIdentityProperties();

  // Gives: one reference; changes act on the class.
  FdoPropertyDefinitionCollection* GetProperties();

  FdoStringP GetQualifiedName() override;

  // A computed class stands for a result, not for something stored.
  bool GetIsComputed();
  void SetIsComputed(bool value);

  // Gives: one reference; null unless a provider described the class.
  FdoClassCapabilities* GetCapabilities();
  // Errors: FdoSchemaException* for the capabilities of another class.
  void SetCapabilities(FdoClassCapabilities* capabilities);

  // Gives: one reference; changes act on the class.
  FdoUniqueConstraintCollection* GetUniqueConstraints();

 protected:
  FdoClassDefinition();
  FdoClassDefinition(FdoString* name, FdoString* description);
  ~FdoClassDefinition() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

  // Drops what the class says about a property that it no longer has.
  virtual void PropertyLeft(FdoPropertyDefinition* property);

 private:
  friend class FdoPropertyDefinitionCollection;

  struct Values {
    FdoPtr<FdoClassDefinition> baseClass;
    FdoPtr<FdoPropertyDefinitionCollection> baseProperties;
    bool isAbstract = false;
    bool isComputed = false;
  };

  void MakeCollections();

  FdoInternal::Tracked<Values> m_values;
  FdoPtr<FdoPropertyDefinitionCollection> m_properties;
  FdoPtr<FdoDataPropertyDefinitionCollection> m_identityProperties;
  FdoPtr<FdoUniqueConstraintCollection> m_uniqueConstraints;
  std::vector<FdoPtr<FdoUniqueConstraint>> m_acceptedUniqueConstraints;
  FdoPtr<FdoClassCapabilities> m_capabilities;
};

typedef FdoPtr<FdoClassDefinition> FdoClassDefinitionP;

#endif  // FDO_SCHEMA_CLASS_DEFINITION_H_
