#include "Fdo/Filter/GeometricCondition.h"

FdoGeometricCondition::FdoGeometricCondition() = default;

FdoGeometricCondition::FdoGeometricCondition(FdoIdentifier* propertyName)
    : m_propertyName(FDO_SAFE_ADDREF(propertyName)) {}

FdoGeometricCondition::~FdoGeometricCondition() = default;

FdoIdentifier* FdoGeometricCondition::GetPropertyName() { return FDO_SAFE_ADDREF(m_propertyName.p); }

void FdoGeometricCondition::SetPropertyName(FdoIdentifier* value) { m_propertyName = FDO_SAFE_ADDREF(value); }
