// One raster value: its bands, its extent, its pixels.
#ifndef FDO_RASTER_I_RASTER_H_
#define FDO_RASTER_I_RASTER_H_

#include "FdoStd.h"

class FdoDataValue;
class FdoIRasterPropertyDictionary;
class FdoIStreamReader;
class FdoRasterDataModel;

class FDO_API FdoIRaster : public FdoIDisposable {
 public:
  virtual bool IsNull() = 0;
  virtual void SetNull() = 0;
  virtual FdoInt32 GetNumberOfBands() = 0;
  virtual void SetNumberOfBands(FdoInt32 value) = 0;
  virtual FdoInt32 GetCurrentBand() = 0;
  virtual void SetCurrentBand(FdoInt32 value) = 0;
  virtual FdoByteArray* GetBounds() = 0;
  virtual void SetBounds(FdoByteArray* bounds) = 0;
  virtual FdoRasterDataModel* GetDataModel() = 0;
  virtual void SetDataModel(FdoRasterDataModel* datamodel) = 0;
  virtual FdoInt32 GetImageXSize() = 0;
  virtual void SetImageXSize(FdoInt32 size) = 0;
  virtual FdoInt32 GetImageYSize() = 0;
  virtual void SetImageYSize(FdoInt32 size) = 0;
  virtual FdoIRasterPropertyDictionary* GetAuxiliaryProperties() = 0;
  virtual FdoDataValue* GetNullPixelValue() = 0;
  virtual void SetStreamReader(FdoIStreamReader* reader) = 0;
  virtual FdoIStreamReader* GetStreamReader() = 0;
  virtual FdoString* GetVerticalUnits() = 0;
  virtual void SetVerticalUnits(FdoString* units) = 0;
};

#endif  // FDO_RASTER_I_RASTER_H_
