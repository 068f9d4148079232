// FdoIGeometricAggregateAbstract is the base of the geometries made of parts.
#ifndef GEOMETRY_I_GEOMETRIC_AGGREGATE_ABSTRACT_H_
#define GEOMETRY_I_GEOMETRIC_AGGREGATE_ABSTRACT_H_

#include "Geometry/IGeometry.h"

class FdoIGeometricAggregateAbstract : public FdoIGeometry {
 public:
  virtual FdoInt32 GetCount() const = 0;
};

#endif  // GEOMETRY_I_GEOMETRIC_AGGREGATE_ABSTRACT_H_
