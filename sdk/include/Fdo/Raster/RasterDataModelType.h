// What the pixels of a raster stand for.
#ifndef FDO_RASTER_RASTER_DATA_MODEL_TYPE_H_
#define FDO_RASTER_RASTER_DATA_MODEL_TYPE_H_

enum FdoRasterDataModelType {
  FdoRasterDataModelType_Unknown = 0,
  FdoRasterDataModelType_Data = 1,
  FdoRasterDataModelType_Bitonal = 2,
  FdoRasterDataModelType_Gray = 3,
  FdoRasterDataModelType_RGB = 4,
  FdoRasterDataModelType_RGBA = 5,
  FdoRasterDataModelType_Palette = 6
};

#endif  // FDO_RASTER_RASTER_DATA_MODEL_TYPE_H_
