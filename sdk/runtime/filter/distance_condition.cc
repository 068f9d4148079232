#include "Fdo/Filter/DistanceCondition.h"

#include "Fdo/Filter/IFilterProcessor.h"
#include "sdk/runtime/core/deferred_deletion.h"
#include "sdk/runtime/core/wide_text.h"
#include "sdk/runtime/text/writer.h"

FdoDistanceCondition::FdoDistanceCondition() : m_operation(FdoDistanceOperations_Beyond), m_distance(0) {}

FdoDistanceCondition::FdoDistanceCondition(FdoIdentifier* propertyName, FdoDistanceOperations operation,
                                           FdoExpression* geometry, double distance)
    : FdoGeometricCondition(propertyName),
      m_geometry(FDO_SAFE_ADDREF(geometry)),
      m_operation(operation),
      m_distance(distance) {}

FdoDistanceCondition* FdoDistanceCondition::Create() { return new FdoDistanceCondition(); }

FdoDistanceCondition* FdoDistanceCondition::Create(FdoString* propertyName, FdoDistanceOperations operation,
                                                   FdoExpression* geometry, double distance) {
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(propertyName);
  return new FdoDistanceCondition(name, operation, geometry, distance);
}

FdoDistanceCondition* FdoDistanceCondition::Create(FdoIdentifier* propertyName,
                                                   FdoDistanceOperations operation, FdoExpression* geometry,
                                                   double distance) {
  return new FdoDistanceCondition(propertyName, operation, geometry, distance);
}

FdoDistanceOperations FdoDistanceCondition::GetOperation() { return m_operation; }

void FdoDistanceCondition::SetOperation(FdoDistanceOperations value) { m_operation = value; }

FdoExpression* FdoDistanceCondition::GetGeometry() { return FDO_SAFE_ADDREF(m_geometry.p); }

void FdoDistanceCondition::SetGeometry(FdoExpression* value) { m_geometry = FDO_SAFE_ADDREF(value); }

double FdoDistanceCondition::GetDistance() { return m_distance; }

void FdoDistanceCondition::SetDistance(double value) { m_distance = value; }

FdoDistanceCondition::~FdoDistanceCondition() = default;

void FdoDistanceCondition::Dispose() {
  fdo_sdk::DeleteInTurn(this, [](void* node) { delete static_cast<FdoDistanceCondition*>(node); });
}

void FdoDistanceCondition::Process(FdoIFilterProcessor* p) { p->ProcessDistanceCondition(*this); }

FdoString* FdoDistanceCondition::ToStringInternal(FdoIdentifierCollection* pIdCol) {
  return fdo_sdk::KeepText(m_toString, fdo_sdk::WriteFilter(*this, pIdCol));
}
