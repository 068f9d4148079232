// What the headers under Spatial/ start from.
#ifndef SPATIAL_SPATIAL_STD_H_
#define SPATIAL_SPATIAL_STD_H_

#include "FdoCommon.h"
#include "FdoGeometry.h"

#endif  // SPATIAL_SPATIAL_STD_H_
