// FdoSpatialCondition tests how a geometry lies to another one.
#ifndef FDO_FILTER_SPATIAL_CONDITION_H_
#define FDO_FILTER_SPATIAL_CONDITION_H_

#include "Fdo/Expression/Expression.h"
#include "Fdo/Filter/GeometricCondition.h"
#include "Fdo/Filter/SpatialOperations.h"

class FDO_API FdoSpatialCondition : public FdoGeometricCondition {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoSpatialCondition* Create();
  static FdoSpatialCondition* Create(FdoString* propertyName, FdoSpatialOperations operation,
                                     FdoExpression* geometry);
  static FdoSpatialCondition* Create(FdoIdentifier* propertyName, FdoSpatialOperations operation,
                                     FdoExpression* geometry);

  FdoSpatialOperations GetOperation();
  void SetOperation(FdoSpatialOperations value);

  // Gives: one reference, or null. Any expression, usually an FdoGeometryValue.
  FdoExpression* GetGeometry();
  void SetGeometry(FdoExpression* value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoSpatialCondition();
  FdoSpatialCondition(FdoIdentifier* propertyName, FdoSpatialOperations operation, FdoExpression* geometry);
  ~FdoSpatialCondition() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_geometry;
  FdoSpatialOperations m_operation;
};

#endif  // FDO_FILTER_SPATIAL_CONDITION_H_
