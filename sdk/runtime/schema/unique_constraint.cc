#include "Fdo/Schema/UniqueConstraint.h"

#include "Fdo/Schema/DataPropertyDefinitionCollection.h"
#include "Fdo/Schema/UniqueConstraintCollection.h"

FdoUniqueConstraint* FdoUniqueConstraint::Create() { return new FdoUniqueConstraint(); }

FdoUniqueConstraint::FdoUniqueConstraint()
    : m_properties(FdoDataPropertyDefinitionCollection::Create(nullptr)) {}

FdoUniqueConstraint::~FdoUniqueConstraint() = default;

void FdoUniqueConstraint::Dispose() { delete this; }

FdoDataPropertyDefinitionCollection* FdoUniqueConstraint::GetProperties() {
  return FDO_SAFE_ADDREF(m_properties.p);
}

FdoUniqueConstraintCollection* FdoUniqueConstraintCollection::Create() {
  return new FdoUniqueConstraintCollection();
}

FdoUniqueConstraintCollection::FdoUniqueConstraintCollection() = default;

FdoUniqueConstraintCollection::~FdoUniqueConstraintCollection() = default;

void FdoUniqueConstraintCollection::Dispose() { delete this; }
