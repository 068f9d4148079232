#include "Fdo/Schema/AssociationPropertyDefinition.h"

#include "Fdo/Schema/ClassDefinition.h"
#include "Fdo/Schema/DataPropertyDefinitionCollection.h"

FdoAssociationPropertyDefinition* FdoAssociationPropertyDefinition::Create() {
  return new FdoAssociationPropertyDefinition();
}

FdoAssociationPropertyDefinition* FdoAssociationPropertyDefinition::Create(FdoString* name,
                                                                           FdoString* description,
                                                                           bool system) {
  return new FdoAssociationPropertyDefinition(name, description, system);
}

FdoAssociationPropertyDefinition::FdoAssociationPropertyDefinition() { MakeCollections(); }

FdoAssociationPropertyDefinition::FdoAssociationPropertyDefinition(FdoString* name, FdoString* description,
                                                                   bool system)
    : FdoPropertyDefinition(name, description, system) {
  MakeCollections();
}

FdoAssociationPropertyDefinition::~FdoAssociationPropertyDefinition() {
  m_identityProperties->ForgetParent();
  m_reverseIdentityProperties->ForgetParent();
}

void FdoAssociationPropertyDefinition::Dispose() { delete this; }

FdoPropertyType FdoAssociationPropertyDefinition::GetPropertyType() {
  return FdoPropertyType_AssociationProperty;
}

FdoClassDefinition* FdoAssociationPropertyDefinition::GetAssociatedClass() {
  return FDO_SAFE_ADDREF(m_values->associatedClass.p);
}

void FdoAssociationPropertyDefinition::SetAssociatedClass(FdoClassDefinition* value) {
  BeginChange();
  m_values.current.associatedClass = FDO_SAFE_ADDREF(value);
}

FdoString* FdoAssociationPropertyDefinition::GetReverseName() { return m_values->reverseName; }

void FdoAssociationPropertyDefinition::SetReverseName(FdoString* name) {
  BeginChange();
  m_values.current.reverseName = name;
}

FdoDeleteRule FdoAssociationPropertyDefinition::GetDeleteRule() { return m_values->deleteRule; }

void FdoAssociationPropertyDefinition::SetDeleteRule(FdoDeleteRule value) {
  BeginChange();
  m_values.current.deleteRule = value;
}

bool FdoAssociationPropertyDefinition::GetLockCascade() { return m_values->lockCascade; }

void FdoAssociationPropertyDefinition::SetLockCascade(bool value) {
  BeginChange();
  m_values.current.lockCascade = value;
}

bool FdoAssociationPropertyDefinition::GetIsReadOnly() { return m_values->isReadOnly; }

void FdoAssociationPropertyDefinition::SetIsReadOnly(bool value) {
  BeginChange();
  m_values.current.isReadOnly = value;
}

FdoString* FdoAssociationPropertyDefinition::GetMultiplicity() { return m_values->multiplicity; }

void FdoAssociationPropertyDefinition::SetMultiplicity(FdoString* value) {
  BeginChange();
  m_values.current.multiplicity = value;
}

FdoString* FdoAssociationPropertyDefinition::GetReverseMultiplicity() {
  return m_values->reverseMultiplicity;
}

void FdoAssociationPropertyDefinition::SetReverseMultiplicity(FdoString* value) {
  BeginChange();
  m_values.current.reverseMultiplicity = value;
}

FdoDataPropertyDefinitionCollection* FdoAssociationPropertyDefinition::GetIdentityProperties() {
  return FDO_SAFE_ADDREF(m_identityProperties.p);
}

FdoDataPropertyDefinitionCollection* FdoAssociationPropertyDefinition::GetReverseIdentityProperties() {
  return FDO_SAFE_ADDREF(m_reverseIdentityProperties.p);
}

void FdoAssociationPropertyDefinition::SetParent(FdoSchemaElement* value) {
  FdoPropertyDefinition::SetParent(value);
}

void FdoAssociationPropertyDefinition::MakeCollections() {
  m_identityProperties = FdoDataPropertyDefinitionCollection::Create(this);
  m_reverseIdentityProperties = FdoDataPropertyDefinitionCollection::Create(this);
}

void FdoAssociationPropertyDefinition::KeepValues() {
  FdoPropertyDefinition::KeepValues();
  m_values.Keep();
}

void FdoAssociationPropertyDefinition::AcceptValues() {
  FdoPropertyDefinition::AcceptValues();
  m_values.Accept();
  m_identityProperties->AcceptItems();
  m_reverseIdentityProperties->AcceptItems();
}

void FdoAssociationPropertyDefinition::RejectValues() {
  FdoPropertyDefinition::RejectValues();
  m_values.Reject();
  m_identityProperties->RejectItems();
  m_reverseIdentityProperties->RejectItems();
}
