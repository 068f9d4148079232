// What the SQLite provider says about itself.
#ifndef SDK_PROVIDERS_SQLITE_CAPABILITIES_H_
#define SDK_PROVIDERS_SQLITE_CAPABILITIES_H_

#include "Fdo.h"

namespace fdo_sqlite {

// Give: one reference.
FdoIConnectionCapabilities* MakeConnectionCapabilities();
FdoISchemaCapabilities* MakeSchemaCapabilities();
FdoICommandCapabilities* MakeCommandCapabilities();
FdoIFilterCapabilities* MakeFilterCapabilities();
FdoIExpressionCapabilities* MakeExpressionCapabilities();
FdoIRasterCapabilities* MakeRasterCapabilities();
FdoITopologyCapabilities* MakeTopologyCapabilities();
FdoIGeometryCapabilities* MakeGeometryCapabilities();

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CAPABILITIES_H_
