#include "Fdo/Commands/Schema/PhysicalSchemaMapping.h"

FdoPhysicalElementMapping::FdoPhysicalElementMapping() : m_parent(nullptr) {}

FdoPhysicalElementMapping::FdoPhysicalElementMapping(FdoString* name) : m_name(name), m_parent(nullptr) {}

FdoPhysicalElementMapping::~FdoPhysicalElementMapping() = default;

FdoPhysicalElementMapping* FdoPhysicalElementMapping::GetParent() { return FDO_SAFE_ADDREF(m_parent); }

FdoPhysicalSchemaMapping* FdoPhysicalElementMapping::GetSchemaMapping() {
  FdoPhysicalElementMapping* top = this;
  while (top->m_parent != nullptr) top = top->m_parent;
  FdoPhysicalSchemaMapping* mapping = dynamic_cast<FdoPhysicalSchemaMapping*>(top);
  return FDO_SAFE_ADDREF(mapping);
}

FdoString* FdoPhysicalElementMapping::GetName() { return m_name; }

FdoStringP FdoPhysicalElementMapping::GetQualifiedName() {
  if (m_parent == nullptr) return m_name;
  return m_parent->GetQualifiedName() + L"." + m_name;
}

void FdoPhysicalElementMapping::SetName(FdoString* value) { m_name = value; }

FdoBoolean FdoPhysicalElementMapping::CanSetName() { return true; }

void FdoPhysicalElementMapping::SetParent(FdoPhysicalElementMapping* value) { m_parent = value; }

FdoPhysicalSchemaMapping::FdoPhysicalSchemaMapping() = default;

FdoPhysicalSchemaMapping::FdoPhysicalSchemaMapping(FdoString* name) : FdoPhysicalElementMapping(name) {}

FdoPhysicalSchemaMapping::~FdoPhysicalSchemaMapping() = default;
