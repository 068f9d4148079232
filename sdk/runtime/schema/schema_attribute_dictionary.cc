#include "Fdo/Schema/SchemaAttributeDictionary.h"

#include <cwchar>
#include <string>

#include "Fdo/Schema/SchemaElement.h"

FdoSchemaAttributeDictionary::FdoSchemaAttributeDictionary(FdoSchemaElement* owner) : m_owner(owner) {}

FdoSchemaAttributeDictionary::~FdoSchemaAttributeDictionary() = default;

void FdoSchemaAttributeDictionary::Dispose() { delete this; }

FdoInt32 FdoSchemaAttributeDictionary::GetCount() { return static_cast<FdoInt32>(m_attributes->size()); }

FdoString** FdoSchemaAttributeDictionary::GetAttributeNames(FdoInt32& length) {
  m_names.clear();
  for (auto const& attribute : m_attributes.current) m_names.push_back(attribute.first);
  length = GetCount();
  return m_names.data();
}

FdoString* FdoSchemaAttributeDictionary::GetAttributeValue(FdoString* name) {
  return m_attributes.current[ExistingPositionOf(name)].second;
}

void FdoSchemaAttributeDictionary::SetAttributeValue(FdoString* name, FdoString* value) {
  std::size_t const position = ExistingPositionOf(name);
  BeginChange();
  m_attributes.current[position].second = value;
}

bool FdoSchemaAttributeDictionary::ContainsAttribute(FdoString* name) {
  return PositionOf(name) < m_attributes->size();
}

void FdoSchemaAttributeDictionary::Add(FdoString* name, FdoString* value) {
  if (name == nullptr || *name == 0) throw FdoSchemaException::Create(L"An attribute needs a name.");
  if (ContainsAttribute(name)) {
    std::wstring const message = L"There is an attribute \"" + std::wstring(name) + L"\" already.";
    throw FdoSchemaException::Create(message.c_str());
  }
  BeginChange();
  m_attributes.current.emplace_back(name, value);
}

void FdoSchemaAttributeDictionary::Remove(FdoString* name) {
  std::size_t const position = ExistingPositionOf(name);
  BeginChange();
  Attributes& attributes = m_attributes.current;
  attributes.erase(attributes.begin() + static_cast<Attributes::difference_type>(position));
}

void FdoSchemaAttributeDictionary::Clear() {
  BeginChange();
  m_attributes.current.clear();
}

std::size_t FdoSchemaAttributeDictionary::PositionOf(FdoString* name) const {
  std::size_t position = 0;
  for (auto const& attribute : m_attributes.current) {
    if (name != nullptr && std::wcscmp(attribute.first, name) == 0) break;
    ++position;
  }
  return position;
}

std::size_t FdoSchemaAttributeDictionary::ExistingPositionOf(FdoString* name) const {
  std::size_t const position = PositionOf(name);
  if (position == m_attributes->size()) {
    std::wstring const message =
        L"There is no attribute \"" + std::wstring(name == nullptr ? L"" : name) + L"\".";
    throw FdoSchemaException::Create(message.c_str());
  }
  return position;
}

void FdoSchemaAttributeDictionary::BeginChange() {
  if (m_owner != nullptr) m_owner->BeginChange();
}
