#include "Fdo/Schema/ClassDefinition.h"

#include <string>

#include "Fdo/Schema/ClassCapabilities.h"
#include "Fdo/Schema/DataPropertyDefinitionCollection.h"
#include "Fdo/Schema/PropertyDefinitionCollection.h"
#include "Fdo/Schema/ReadOnlyDataPropertyDefinitionCollection.h"
#include "Fdo/Schema/ReadOnlyPropertyDefinitionCollection.h"
#include "Fdo/Schema/UniqueConstraintCollection.h"

FdoClassDefinition::FdoClassDefinition() { MakeCollections(); }

FdoClassDefinition::FdoClassDefinition(FdoString* name, FdoString* description)
    : FdoSchemaElement(name, description) {
  MakeCollections();
}

FdoClassDefinition::~FdoClassDefinition() {
  m_properties->ForgetParent();
  m_identityProperties->ForgetParent();
  if (m_capabilities != nullptr) m_capabilities->LeaveClass();
}

void FdoClassDefinition::MakeCollections() {
  m_properties = FdoPropertyDefinitionCollection::Create(this);
  m_identityProperties = FdoDataPropertyDefinitionCollection::Create(this);
  m_uniqueConstraints = FdoUniqueConstraintCollection::Create();
}

FdoClassType FdoClassDefinition::GetClassType() { return FdoClassType_Class; }

FdoClassDefinition* FdoClassDefinition::GetBaseClass() { return FDO_SAFE_ADDREF(m_values->baseClass.p); }

void FdoClassDefinition::SetBaseClass(FdoClassDefinition* value) {
  for (FdoClassDefinition* base = value; base != nullptr; base = base->m_values->baseClass) {
    if (base != this) continue;
    std::wstring const message = L"\"" + std::wstring(value->GetName()) + L"\" is, or derives from, \"" +
                                 GetName() + L"\", and so cannot be its base class.";
    throw FdoSchemaException::Create(message.c_str());
  }
  BeginChange();
  m_values.current.baseClass = FDO_SAFE_ADDREF(value);
}

bool FdoClassDefinition::GetIsAbstract() { return m_values->isAbstract; }

void FdoClassDefinition::SetIsAbstract(bool value) {
  BeginChange();
  m_values.current.isAbstract = value;
}

void FdoClassDefinition::SetBaseProperties(FdoPropertyDefinitionCollection* value) {
  BeginChange();
  m_values.current.baseProperties = FDO_SAFE_ADDREF(value);
}

FdoReadOnlyPropertyDefinitionCollection* FdoClassDefinition::GetBaseProperties() {
  if (m_values->baseProperties != nullptr) {
    return FdoReadOnlyPropertyDefinitionCollection::Create(m_values->baseProperties);
  }
  FdoPtr<FdoIDisposableCollection> all = FdoIDisposableCollection::Create();
  // From the innermost base class outwards, each one's properties in front of those found before.
  for (FdoClassDefinition* base = m_values->baseClass; base != nullptr; base = base->m_values->baseClass) {
    FdoInt32 const own = base->m_properties->GetCount();
    for (FdoInt32 i = 0; i < own; ++i) {
      FdoPtr<FdoPropertyDefinition> property = base->m_properties->GetItem(i);
      all->Insert(i, property);
    }
  }
  return new FdoReadOnlyPropertyDefinitionCollection(all);
}

FdoDataPropertyDefinitionCollection* FdoClassDefinition::GetIdentityProperties() {
  return FDO_SAFE_ADDREF(m_identityProperties.p);
}

FdoReadOnlyDataPropertyDefinitionCollection* FdoClassDefinition::GetBaseIdentityProperties() {
  for (FdoClassDefinition* base = m_values->baseClass; base != nullptr; base = base->m_values->baseClass) {
    if (base->m_identityProperties->GetCount() > 0) {
      return FdoReadOnlyDataPropertyDefinitionCollection::Create(base->m_identityProperties);
    }
  }
  return FdoReadOnlyDataPropertyDefinitionCollection::Create(nullptr);
}

FdoPropertyDefinitionCollection* FdoClassDefinition::GetProperties() {
  return FDO_SAFE_ADDREF(m_properties.p);
}

FdoStringP FdoClassDefinition::GetQualifiedName() {
  FdoPtr<FdoSchemaElement> parent = GetParent();
  FdoStringP const name(GetName());
  return parent == nullptr ? name : FdoStringP(parent->GetQualifiedName() + L":" + name);
}

bool FdoClassDefinition::GetIsComputed() { return m_values->isComputed; }

void FdoClassDefinition::SetIsComputed(bool value) {
  BeginChange();
  m_values.current.isComputed = value;
}

FdoClassCapabilities* FdoClassDefinition::GetCapabilities() { return FDO_SAFE_ADDREF(m_capabilities.p); }

void FdoClassDefinition::SetCapabilities(FdoClassCapabilities* capabilities) {
  if (capabilities == m_capabilities.p) return;
  if (capabilities != nullptr) capabilities->EnterClass(*this);
  if (m_capabilities != nullptr) m_capabilities->LeaveClass();
  m_capabilities = FDO_SAFE_ADDREF(capabilities);
}

FdoUniqueConstraintCollection* FdoClassDefinition::GetUniqueConstraints() {
  return FDO_SAFE_ADDREF(m_uniqueConstraints.p);
}

void FdoClassDefinition::PropertyLeft(FdoPropertyDefinition* property) {
  FdoInt32 const count = m_identityProperties->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    FdoPtr<FdoDataPropertyDefinition> identity = m_identityProperties->GetItem(i);
    if (identity.p != property) continue;
    m_identityProperties->RemoveAt(i);
    break;
  }
}

void FdoClassDefinition::KeepValues() {
  FdoSchemaElement::KeepValues();
  m_values.Keep();
}

void FdoClassDefinition::AcceptValues() {
  FdoSchemaElement::AcceptValues();
  m_values.Accept();
  // The identity first: it drops properties by their state, which the next line changes.
  m_identityProperties->AcceptItems();
  m_properties->AcceptItems();
  m_acceptedUniqueConstraints.clear();
  FdoInt32 const count = m_uniqueConstraints->GetCount();
  for (FdoInt32 i = 0; i < count; ++i) {
    m_acceptedUniqueConstraints.push_back(FdoPtr<FdoUniqueConstraint>(m_uniqueConstraints->GetItem(i)));
  }
}

void FdoClassDefinition::RejectValues() {
  FdoSchemaElement::RejectValues();
  m_values.Reject();
  m_identityProperties->RejectItems();
  m_properties->RejectItems();
  m_uniqueConstraints->Clear();
  for (FdoPtr<FdoUniqueConstraint> const& constraint : m_acceptedUniqueConstraints) {
    m_uniqueConstraints->Add(constraint);
  }
}
