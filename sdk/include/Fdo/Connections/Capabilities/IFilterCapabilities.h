// Which conditions a provider can evaluate.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_FILTER_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_FILTER_CAPABILITIES_H_

#include "Fdo/Filter/ConditionType.h"
#include "Fdo/Filter/DistanceOperations.h"
#include "Fdo/Filter/SpatialOperations.h"
#include "FdoStd.h"

// Borrowed: arrays, while the capabilities object lives.
class FDO_API FdoIFilterCapabilities : public FdoIDisposable {
 public:
  virtual FdoConditionType* GetConditionTypes(FdoInt32& length) = 0;
  virtual FdoSpatialOperations* GetSpatialOperations(FdoInt32& length) = 0;
  virtual FdoDistanceOperations* GetDistanceOperations(FdoInt32& length) = 0;
  virtual bool SupportsGeodesicDistance() = 0;
  virtual bool SupportsNonLiteralGeometricOperations() = 0;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_FILTER_CAPABILITIES_H_
