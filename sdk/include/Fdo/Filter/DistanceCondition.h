// FdoDistanceCondition tests how far a geometry is from another one.
#ifndef FDO_FILTER_DISTANCE_CONDITION_H_
#define FDO_FILTER_DISTANCE_CONDITION_H_

#include "Fdo/Expression/Expression.h"
#include "Fdo/Filter/DistanceOperations.h"
#include "Fdo/Filter/GeometricCondition.h"

class FDO_API FdoDistanceCondition : public FdoGeometricCondition {
 public:
  // Gives: one reference. All parts are shared and may be null until the node is written or processed.
  static FdoDistanceCondition* Create();
  static FdoDistanceCondition* Create(FdoString* propertyName, FdoDistanceOperations operation,
                                      FdoExpression* geometry, double distance);
  static FdoDistanceCondition* Create(FdoIdentifier* propertyName, FdoDistanceOperations operation,
                                      FdoExpression* geometry, double distance);

  FdoDistanceOperations GetOperation();
  void SetOperation(FdoDistanceOperations value);

  // Gives: one reference, or null. Any expression, usually an FdoGeometryValue.
  FdoExpression* GetGeometry();
  void SetGeometry(FdoExpression* value);

  double GetDistance();
  void SetDistance(double value);

  void Process(FdoIFilterProcessor* p) override;
  FdoString* ToStringInternal(FdoIdentifierCollection* pIdCol) override;

 protected:
  FdoDistanceCondition();
  FdoDistanceCondition(FdoIdentifier* propertyName, FdoDistanceOperations operation, FdoExpression* geometry,
                       double distance);
  ~FdoDistanceCondition() override;
  void Dispose() override;

 private:
  FdoPtr<FdoExpression> m_geometry;
  FdoDistanceOperations m_operation;
  double m_distance;
};

#endif  // FDO_FILTER_DISTANCE_CONDITION_H_
