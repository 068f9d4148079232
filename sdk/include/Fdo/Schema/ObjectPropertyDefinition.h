// FdoObjectPropertyDefinition is a property that holds objects of a class.
#ifndef FDO_SCHEMA_OBJECT_PROPERTY_DEFINITION_H_
#define FDO_SCHEMA_OBJECT_PROPERTY_DEFINITION_H_

#include "Fdo/Schema/ObjectType.h"
#include "Fdo/Schema/OrderType.h"
#include "Fdo/Schema/PropertyDefinition.h"

class FdoClassDefinition;
class FdoDataPropertyDefinition;

// Owns: a reference to the class. Classes that hold objects of one another keep each other alive until
// one of them lets go with SetClass(nullptr).
class FDO_API FdoObjectPropertyDefinition : public FdoPropertyDefinition {
 public:
  // Give: one reference.
  static FdoObjectPropertyDefinition* Create();
  static FdoObjectPropertyDefinition* Create(FdoString* name, FdoString* description, bool system = false);

  FdoPropertyType GetPropertyType() override;

  // Gives: one reference, or null.
  FdoClassDefinition* GetClass();
  void SetClass(FdoClassDefinition* value);

  // What tells the objects of one collection apart, and orders them.
  // Gives: one reference, or null.
  FdoDataPropertyDefinition* GetIdentityProperty();
  void SetIdentityProperty(FdoDataPropertyDefinition* value);

  FdoObjectType GetObjectType();
  void SetObjectType(FdoObjectType value);

  // Of ordered collections.
  FdoOrderType GetOrderType();
  void SetOrderType(FdoOrderType value);

 protected:
  FdoObjectPropertyDefinition();
  FdoObjectPropertyDefinition(FdoString* name, FdoString* description, bool system);
  ~FdoObjectPropertyDefinition() override;
  void Dispose() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  struct Values {
    FdoPtr<FdoClassDefinition> objectClass;
    FdoPtr<FdoDataPropertyDefinition> identityProperty;
    FdoObjectType objectType = FdoObjectType_Value;
    FdoOrderType orderType = FdoOrderType_Ascending;
  };

  FdoInternal::Tracked<Values> m_values;
};

typedef FdoPtr<FdoObjectPropertyDefinition> FdoObjectPropertyDefinitionP;

#endif  // FDO_SCHEMA_OBJECT_PROPERTY_DEFINITION_H_
