// Whether the extent of a spatial context is fixed or follows the data.
#ifndef FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_EXTENT_TYPE_H_
#define FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_EXTENT_TYPE_H_

enum FdoSpatialContextExtentType {
  FdoSpatialContextExtentType_Static = 0,
  FdoSpatialContextExtentType_Dynamic = 1
};

#endif  // FDO_COMMANDS_SPATIAL_CONTEXT_SPATIAL_CONTEXT_EXTENT_TYPE_H_
