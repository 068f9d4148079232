// The number type of the pixels of a raster.
#ifndef FDO_RASTER_RASTER_DATA_TYPE_H_
#define FDO_RASTER_RASTER_DATA_TYPE_H_

enum FdoRasterDataType {
  FdoRasterDataType_Unknown = 0,
  FdoRasterDataType_UnsignedInteger = 1,
  FdoRasterDataType_Integer = 2,
  FdoRasterDataType_Float = 3,
  FdoRasterDataType_Double = 4
};

#endif  // FDO_RASTER_RASTER_DATA_TYPE_H_
