// What a provider supports in raster properties.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_RASTER_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_RASTER_CAPABILITIES_H_

#include "FdoStd.h"

class FdoRasterDataModel;

class FDO_API FdoIRasterCapabilities : public FdoIDisposable {
 public:
  virtual bool SupportsRaster() = 0;
  virtual bool SupportsStitching() = 0;
  virtual bool SupportsSubsampling() = 0;
  virtual bool SupportsDataModel(FdoRasterDataModel* model) = 0;
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_RASTER_CAPABILITIES_H_
