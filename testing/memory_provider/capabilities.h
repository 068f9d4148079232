// What a provider for tests says about itself.
#ifndef TESTING_MEMORY_PROVIDER_CAPABILITIES_H_
#define TESTING_MEMORY_PROVIDER_CAPABILITIES_H_

#include <vector>

#include "Fdo.h"

namespace memory_provider {

// Give: one reference.
FdoIConnectionCapabilities* MakeConnectionCapabilities();
FdoISchemaCapabilities* MakeSchemaCapabilities();
FdoICommandCapabilities* MakeCommandCapabilities(std::vector<FdoInt32> commandTypes);
FdoIFilterCapabilities* MakeFilterCapabilities();
FdoIExpressionCapabilities* MakeExpressionCapabilities();
FdoIRasterCapabilities* MakeRasterCapabilities();
FdoITopologyCapabilities* MakeTopologyCapabilities();
FdoIGeometryCapabilities* MakeGeometryCapabilities();

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_CAPABILITIES_H_
