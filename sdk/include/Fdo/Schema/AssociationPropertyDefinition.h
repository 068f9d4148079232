// FdoAssociationPropertyDefinition is a property that refers to objects of another class.
#ifndef FDO_SCHEMA_ASSOCIATION_PROPERTY_DEFINITION_H_
#define FDO_SCHEMA_ASSOCIATION_PROPERTY_DEFINITION_H_

#include "Fdo/Schema/DeleteRule.h"
#include "Fdo/Schema/PropertyDefinition.h"

class FdoClassDefinition;
class FdoDataPropertyDefinitionCollection;

// Owns: a reference to the class. Classes that are associated both ways keep each other alive until one
// of them lets go with SetAssociatedClass(nullptr).
class FDO_API FdoAssociationPropertyDefinition : public FdoPropertyDefinition {
 public:
  // Give: one reference.
  static FdoAssociationPropertyDefinition* Create();
  static FdoAssociationPropertyDefinition* Create(FdoString* name, FdoString* description,
                                                  bool system = false);

  FdoPropertyType GetPropertyType() override;

  // Gives: one reference, or null.
  FdoClassDefinition* GetAssociatedClass();
  void SetAssociatedClass(FdoClassDefinition* value);

  // What the association is called on the other side; empty when it is not seen from there.
  FdoString* GetReverseName();
  void SetReverseName(FdoString* name);

  FdoDeleteRule GetDeleteRule();
  void SetDeleteRule(FdoDeleteRule value);

  bool GetLockCascade();
  void SetLockCascade(bool value);

  bool GetIsReadOnly();
  void SetIsReadOnly(bool value);

  // How many objects there may be on this side, and on the other: "1", "m", "0_1" ...
  FdoString* GetMultiplicity();
  void SetMultiplicity(FdoString* value);

  FdoString* GetReverseMultiplicity();
  void SetReverseMultiplicity(FdoString* value);

  // The properties of the associated class that are matched, and those of this class that they are
  // matched with. Give: one reference; changes act on the property.
  FdoDataPropertyDefinitionCollection* GetIdentityProperties();
  FdoDataPropertyDefinitionCollection* GetReverseIdentityProperties();

  // Public here, unlike in every other element.
  void SetParent(FdoSchemaElement* value) override;

 protected:
  FdoAssociationPropertyDefinition();
  FdoAssociationPropertyDefinition(FdoString* name, FdoString* description, bool system);
  ~FdoAssociationPropertyDefinition() override;
  void Dispose() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  struct Values {
    FdoPtr<FdoClassDefinition> associatedClass;
    FdoStringP reverseName;
    FdoDeleteRule deleteRule = FdoDeleteRule_Break;
    bool lockCascade = false;
    bool isReadOnly = false;
    FdoStringP multiplicity = L"m";
    FdoStringP reverseMultiplicity = L"0_1";
  };

  FdoInternal::Tracked<Values> m_values;
  FdoPtr<FdoDataPropertyDefinitionCollection> m_identityProperties;
  FdoPtr<FdoDataPropertyDefinitionCollection> m_reverseIdentityProperties;

  void MakeCollections();
};

typedef FdoPtr<FdoAssociationPropertyDefinition> FdoAssociationPropertyDefinitionP;

#endif  // FDO_SCHEMA_ASSOCIATION_PROPERTY_DEFINITION_H_
