#include "Fdo/Filter/SpatialCondition.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoSpatialCondition::FdoSpatialCondition() : m_operation(FdoSpatialOperations_Contains) {}

FdoSpatialCondition::FdoSpatialCondition(FdoIdentifier* propertyName, FdoSpatialOperations operation,
                                         FdoExpression* geometry)
    : FdoGeometricCondition(propertyName), m_geometry(FDO_SAFE_ADDREF(geometry)), m_operation(operation) {}

FdoSpatialCondition* FdoSpatialCondition::Create() { return new FdoSpatialCondition(); }

FdoSpatialCondition* FdoSpatialCondition::Create(FdoString* propertyName, FdoSpatialOperations operation,
                                                 FdoExpression* geometry) {
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(propertyName);
  return new FdoSpatialCondition(name, operation, geometry);
}

FdoSpatialCondition* FdoSpatialCondition::Create(FdoIdentifier* propertyName, FdoSpatialOperations operation,
                                                 FdoExpression* geometry) {
  return new FdoSpatialCondition(propertyName, operation, geometry);
}

FdoSpatialOperations FdoSpatialCondition::GetOperation() { return m_operation; }

void FdoSpatialCondition::SetOperation(FdoSpatialOperations value) { m_operation = value; }

FdoExpression* FdoSpatialCondition::GetGeometry() { return FDO_SAFE_ADDREF(m_geometry.p); }

void FdoSpatialCondition::SetGeometry(FdoExpression* value) { m_geometry = FDO_SAFE_ADDREF(value); }

FdoSpatialCondition::~FdoSpatialCondition() = default;

void FdoSpatialCondition::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoSpatialCondition*>(node); });
}

void FdoSpatialCondition::Process(FdoIFilterProcessor* p) { p->ProcessSpatialCondition(*this); }

FdoString* FdoSpatialCondition::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
