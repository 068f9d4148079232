// The order in which the pixels of a raster come.
#ifndef FDO_RASTER_RASTER_DATA_ORGANIZATION_H_
#define FDO_RASTER_RASTER_DATA_ORGANIZATION_H_

enum FdoRasterDataOrganization {
  FdoRasterDataOrganization_Pixel = 0,
  FdoRasterDataOrganization_Row = 1,
  FdoRasterDataOrganization_Image = 2
};

#endif  // FDO_RASTER_RASTER_DATA_ORGANIZATION_H_
