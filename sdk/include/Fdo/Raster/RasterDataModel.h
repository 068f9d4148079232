// FdoRasterDataModel says how the pixels of a raster are stored.
#ifndef FDO_RASTER_RASTER_DATA_MODEL_H_
#define FDO_RASTER_RASTER_DATA_MODEL_H_

#include "Fdo/Raster/RasterDataModelType.h"
#include "Fdo/Raster/RasterDataOrganization.h"
#include "Fdo/Raster/RasterDataType.h"
#include "FdoStd.h"

class FDO_API FdoRasterDataModel : public FdoIDisposable {
 public:
  // Gives: one reference, to RGB with 24 bits of unsigned integers, by pixel, in tiles of 1024 by 1024.
  static FdoRasterDataModel* Create();

  virtual FdoRasterDataModelType GetDataModelType();
  virtual void SetDataModelType(FdoRasterDataModelType type);

  virtual FdoInt32 GetBitsPerPixel();
  virtual void SetBitsPerPixel(FdoInt32 bpp);

  virtual FdoRasterDataOrganization GetOrganization();
  virtual void SetOrganization(FdoRasterDataOrganization organization);

  // Units: pixels.
  virtual FdoInt32 GetTileSizeX();
  virtual void SetTileSizeX(FdoInt32 sizex);
  virtual FdoInt32 GetTileSizeY();
  virtual void SetTileSizeY(FdoInt32 sizey);

  virtual FdoRasterDataType GetDataType();
  virtual void SetDataType(FdoRasterDataType dataType);

  // True when all of the above is equal; false for null.
  virtual bool Equals(FdoRasterDataModel* pModel);

 protected:
  FdoRasterDataModel();
  ~FdoRasterDataModel() override;
  void Dispose() override;

 private:
  FdoRasterDataModelType m_type;
  FdoInt32 m_bitsPerPixel;
  FdoRasterDataOrganization m_organization;
  FdoInt32 m_tileSizeX;
  FdoInt32 m_tileSizeY;
  FdoRasterDataType m_dataType;
};

#endif  // FDO_RASTER_RASTER_DATA_MODEL_H_
