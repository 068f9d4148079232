#include "Fdo/Schema/ObjectPropertyDefinition.h"

#include "Fdo/Schema/ClassDefinition.h"
#include "Fdo/Schema/DataPropertyDefinition.h"

FdoObjectPropertyDefinition* FdoObjectPropertyDefinition::Create() {
  return new FdoObjectPropertyDefinition();
}

FdoObjectPropertyDefinition* FdoObjectPropertyDefinition::Create(FdoString* name, FdoString* description,
                                                                 bool system) {
  return new FdoObjectPropertyDefinition(name, description, system);
}

FdoObjectPropertyDefinition::FdoObjectPropertyDefinition() = default;

FdoObjectPropertyDefinition::FdoObjectPropertyDefinition(FdoString* name, FdoString* description, bool system)
    : FdoPropertyDefinition(name, description, system) {}

FdoObjectPropertyDefinition::~FdoObjectPropertyDefinition() = default;

void FdoObjectPropertyDefinition::Dispose() { delete this; }

FdoPropertyType FdoObjectPropertyDefinition::GetPropertyType() { return FdoPropertyType_ObjectProperty; }

FdoClassDefinition* FdoObjectPropertyDefinition::GetClass() {
  return FDO_SAFE_ADDREF(m_values->objectClass.p);
}

void FdoObjectPropertyDefinition::SetClass(FdoClassDefinition* value) {
  BeginChange();
  m_values.current.objectClass = FDO_SAFE_ADDREF(value);
}

FdoDataPropertyDefinition* FdoObjectPropertyDefinition::GetIdentityProperty() {
  return FDO_SAFE_ADDREF(m_values->identityProperty.p);
}

void FdoObjectPropertyDefinition::SetIdentityProperty(FdoDataPropertyDefinition* value) {
  BeginChange();
  m_values.current.identityProperty = FDO_SAFE_ADDREF(value);
}

FdoObjectType FdoObjectPropertyDefinition::GetObjectType() { return m_values->objectType; }

void FdoObjectPropertyDefinition::SetObjectType(FdoObjectType value) {
  BeginChange();
  m_values.current.objectType = value;
}

FdoOrderType FdoObjectPropertyDefinition::GetOrderType() { return m_values->orderType; }

void FdoObjectPropertyDefinition::SetOrderType(FdoOrderType value) {
  BeginChange();
  m_values.current.orderType = value;
}

void FdoObjectPropertyDefinition::KeepValues() {
  FdoPropertyDefinition::KeepValues();
  m_values.Keep();
}

void FdoObjectPropertyDefinition::AcceptValues() {
  FdoPropertyDefinition::AcceptValues();
  m_values.Accept();
}

void FdoObjectPropertyDefinition::RejectValues() {
  FdoPropertyDefinition::RejectValues();
  m_values.Reject();
}
