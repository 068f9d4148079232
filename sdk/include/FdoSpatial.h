// The spatial questions of the FDO interface.
#ifndef FDO_SPATIAL_H_
#define FDO_SPATIAL_H_

#include "Fdo/Filter/SpatialOperations.h"
#include "Spatial/SpatialGeometryValidity.h"
#include "Spatial/SpatialStd.h"
#include "Spatial/SpatialUtility.h"

#endif  // FDO_SPATIAL_H_
