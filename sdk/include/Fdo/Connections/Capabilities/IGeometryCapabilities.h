// Which geometry a provider can store.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_GEOMETRY_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_GEOMETRY_CAPABILITIES_H_

#include "Common/GeometryType.h"
#include "FdoStd.h"

// Borrowed: arrays, while the capabilities object lives.
class FDO_API FdoIGeometryCapabilities : public FdoIDisposable {
 public:
  virtual FdoGeometryType* GetGeometryTypes(FdoInt32& length) = 0;
  virtual FdoGeometryComponentType* GetGeometryComponentTypes(FdoInt32& length) = 0;

  // FdoDimensionality bits.
  virtual FdoInt32 GetDimensionalities() = 0;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_GEOMETRY_CAPABILITIES_H_
