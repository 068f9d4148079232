// What a provider supports in topology.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_TOPOLOGY_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_TOPOLOGY_CAPABILITIES_H_

#include "FdoStd.h"

class FDO_API FdoITopologyCapabilities : public FdoIDisposable {
 public:
  virtual bool SupportsTopology() = 0;
  virtual bool SupportsTopologicalHierarchy() = 0;
  virtual bool BreaksCurveCrossingsAutomatically() = 0;
  virtual bool ActivatesTopologyByArea() = 0;
  virtual bool ConstrainsFeatureMovements() = 0;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_TOPOLOGY_CAPABILITIES_H_
