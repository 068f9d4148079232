// What the memory provider says about itself.
#ifndef TESTING_MEMORY_PROVIDER_CAPABILITIES_H_
#define TESTING_MEMORY_PROVIDER_CAPABILITIES_H_

#include "Fdo.h"

namespace memory_provider {

// Give: one reference.
FdoIConnectionCapabilities* MakeConnectionCapabilities();
FdoISchemaCapabilities* MakeSchemaCapabilities();
FdoICommandCapabilities* MakeCommandCapabilities();
FdoIFilterCapabilities* MakeFilterCapabilities();
FdoIExpressionCapabilities* MakeExpressionCapabilities();
FdoIRasterCapabilities* MakeRasterCapabilities();
FdoITopologyCapabilities* MakeTopologyCapabilities();
FdoIGeometryCapabilities* MakeGeometryCapabilities();

}  // namespace memory_provider

#endif  // TESTING_MEMORY_PROVIDER_CAPABILITIES_H_
