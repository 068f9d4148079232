// FdoIFilterProcessor is the visitor of filter nodes.
#ifndef FDO_FILTER_IFILTER_PROCESSOR_H_
#define FDO_FILTER_IFILTER_PROCESSOR_H_

#include "FdoStd.h"

class FdoBinaryLogicalOperator;
class FdoUnaryLogicalOperator;
class FdoComparisonCondition;
class FdoInCondition;
class FdoNullCondition;
class FdoSpatialCondition;
class FdoDistanceCondition;

// A node calls exactly one operation, with itself, and does not descend. The order of the operations is
// part of the interface.
class FdoIFilterProcessor : public virtual FdoIDisposable {
 public:
  virtual void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& filter) = 0;
  virtual void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& filter) = 0;
  virtual void ProcessComparisonCondition(FdoComparisonCondition& filter) = 0;
  virtual void ProcessInCondition(FdoInCondition& filter) = 0;
  virtual void ProcessNullCondition(FdoNullCondition& filter) = 0;
  virtual void ProcessSpatialCondition(FdoSpatialCondition& filter) = 0;
  virtual void ProcessDistanceCondition(FdoDistanceCondition& filter) = 0;
};

#endif  // FDO_FILTER_IFILTER_PROCESSOR_H_
