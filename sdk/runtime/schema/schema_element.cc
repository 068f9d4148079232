#include "Fdo/Schema/SchemaElement.h"

#include <cwchar>
#include <string>

#include "Fdo/Schema/FeatureSchema.h"

FdoSchemaElement::FdoSchemaElement()
    : m_attributes(new FdoSchemaAttributeDictionary(this)),
      m_parent(nullptr),
      m_state(FdoSchemaElementState_Added) {}

FdoSchemaElement::FdoSchemaElement(FdoString* name, FdoString* description) : FdoSchemaElement() {
  VldName(name);
  m_values.current.name = name;
  m_values.current.description = description;
}

FdoSchemaElement::~FdoSchemaElement() { m_attributes->m_owner = nullptr; }

FdoSchemaElement* FdoSchemaElement::GetParent() { return FDO_SAFE_ADDREF(m_parent); }

FdoFeatureSchema* FdoSchemaElement::GetFeatureSchema() {
  for (FdoSchemaElement* element = this; element != nullptr; element = element->m_parent) {
    if (FdoFeatureSchema* schema = dynamic_cast<FdoFeatureSchema*>(element)) return FDO_SAFE_ADDREF(schema);
  }
  return nullptr;
}

FdoSchemaElementState FdoSchemaElement::GetElementState() { return m_state; }

FdoSchemaAttributeDictionary* FdoSchemaElement::GetAttributes() { return FDO_SAFE_ADDREF(m_attributes.p); }

FdoString* FdoSchemaElement::GetName() { return m_values->name; }

FdoStringP FdoSchemaElement::GetQualifiedName() { return m_values->name; }

void FdoSchemaElement::SetName(FdoString* value) {
  VldName(value);
  BeginChange();
  m_values.current.name = value;
}

FdoString* FdoSchemaElement::GetDescription() { return m_values->description; }

void FdoSchemaElement::SetDescription(FdoString* value) {
  BeginChange();
  m_values.current.description = value;
}

void FdoSchemaElement::Delete() {
  BeginChange();
  m_state = FdoSchemaElementState_Deleted;
}

void FdoSchemaElement::SetParent(FdoSchemaElement* value) { m_parent = value; }

void FdoSchemaElement::VldName(FdoString* name) {
  if (name == nullptr) return;
  wchar_t const* separator = std::wcspbrk(name, L":.");
  if (separator == nullptr) return;
  std::wstring const message = L"\"" + std::wstring(name) + L"\" is no name for an element of a schema: \"" +
                               *separator + L"\" separates the parts of qualified names.";
  throw FdoSchemaException::Create(message.c_str());
}

void FdoSchemaElement::BeginChange() {
  // What was never accepted has nothing to go back to.
  if (m_state != FdoSchemaElementState_Added) KeepValues();
  if (m_state == FdoSchemaElementState_Unchanged) m_state = FdoSchemaElementState_Modified;
  if (m_parent != nullptr) m_parent->BeginChange();
}

void FdoSchemaElement::KeepValues() {
  m_values.Keep();
  m_attributes->m_attributes.Keep();
}

void FdoSchemaElement::AcceptValues() {
  m_values.Accept();
  m_attributes->m_attributes.Accept();
}

void FdoSchemaElement::RejectValues() {
  m_values.Reject();
  m_attributes->m_attributes.Reject();
}

void FdoSchemaElement::AcceptElement() {
  AcceptValues();
  m_state = FdoSchemaElementState_Unchanged;
}

void FdoSchemaElement::RejectElement() {
  RejectValues();
  m_state = FdoSchemaElementState_Unchanged;
}

void FdoSchemaElement::MarkDetached() { m_state = FdoSchemaElementState_Detached; }
