#include "Fdo/Schema/PropertyDefinition.h"

FdoPropertyDefinition::FdoPropertyDefinition() = default;

FdoPropertyDefinition::FdoPropertyDefinition(FdoString* name, FdoString* description, bool system)
    : FdoSchemaElement(name, description) {
  m_isSystem.current = system;
}

FdoPropertyDefinition::~FdoPropertyDefinition() = default;

FdoStringP FdoPropertyDefinition::GetQualifiedName() {
  FdoPtr<FdoSchemaElement> parent = GetParent();
  FdoStringP const name(GetName());
  return parent == nullptr ? name : FdoStringP(parent->GetQualifiedName() + L"." + name);
}

bool FdoPropertyDefinition::GetIsSystem() { return m_isSystem.current; }

void FdoPropertyDefinition::SetIsSystem(bool value) {
  BeginChange();
  m_isSystem.current = value;
}

void FdoPropertyDefinition::KeepValues() {
  FdoSchemaElement::KeepValues();
  m_isSystem.Keep();
}

void FdoPropertyDefinition::AcceptValues() {
  FdoSchemaElement::AcceptValues();
  m_isSystem.Accept();
}

void FdoPropertyDefinition::RejectValues() {
  FdoSchemaElement::RejectValues();
  m_isSystem.Reject();
}
