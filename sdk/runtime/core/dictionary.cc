#include "Common/Dictionary.h"

FdoDictionaryElement::FdoDictionaryElement() = default;

FdoDictionaryElement::FdoDictionaryElement(FdoString* name, FdoString* value)
    : m_name(name), m_value(value) {}

FdoDictionaryElement::~FdoDictionaryElement() = default;

FdoDictionaryElement* FdoDictionaryElement::Create(FdoString* name, FdoString* value) {
  return new FdoDictionaryElement(name, value);
}

FdoString* FdoDictionaryElement::GetName() { return m_name; }

FdoBoolean FdoDictionaryElement::CanSetName() { return false; }

FdoString* FdoDictionaryElement::GetValue() { return m_value; }

void FdoDictionaryElement::SetValue(FdoString* value) { m_value = value; }

FdoDictionary::FdoDictionary() = default;

FdoDictionary::~FdoDictionary() = default;

void FdoDictionary::Dispose() { delete this; }

FdoDictionary* FdoDictionary::Create() { return new FdoDictionary(); }
