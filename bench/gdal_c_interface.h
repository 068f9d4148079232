// The part of GDAL's published C interface that the peers are written in. The program links GDAL's
// library itself, without its headers and without a part of the library that it measures.
#ifndef BENCH_GDAL_C_INTERFACE_H_
#define BENCH_GDAL_C_INTERFACE_H_

#include <cstdint>
#include <memory>

extern "C" {

using GDALDriverH = void*;
using GDALDatasetH = void*;
using OGRLayerH = struct OGRLayerHS*;
using OGRFeatureDefnH = struct OGRFeatureDefnHS*;
using OGRFieldDefnH = struct OGRFieldDefnHS*;
using OGRFeatureH = struct OGRFeatureHS*;
using OGRGeometryH = struct OGRGeometryHS*;
using OGRSpatialReferenceH = void*;

void CPLSetThreadLocalConfigOption(char const* key, char const* value);
void GDALAllRegister();
GDALDriverH GDALGetDriverByName(char const* name);
GDALDatasetH GDALCreate(GDALDriverH driver, char const* name, int width, int height, int bands, int dataType,
                        char const* const* options);
GDALDatasetH GDALOpenEx(char const* name, unsigned flags, char const* const* drivers,
                        char const* const* options, char const* const* siblings);
void GDALClose(GDALDatasetH dataset);
OGRLayerH GDALDatasetGetLayer(GDALDatasetH dataset, int index);
OGRLayerH GDALDatasetCreateLayer(GDALDatasetH dataset, char const* name, OGRSpatialReferenceH srs,
                                 int geometryType, char const* const* options);
int GDALDatasetStartTransaction(GDALDatasetH dataset, int force);
int GDALDatasetCommitTransaction(GDALDatasetH dataset);

OGRFeatureDefnH OGR_L_GetLayerDefn(OGRLayerH layer);
int OGR_L_SetIgnoredFields(OGRLayerH layer, char const** names);
int OGR_L_SetAttributeFilter(OGRLayerH layer, char const* condition);
std::int64_t OGR_L_GetFeatureCount(OGRLayerH layer, int force);
void OGR_L_ResetReading(OGRLayerH layer);
OGRFeatureH OGR_L_GetNextFeature(OGRLayerH layer);
int OGR_L_CreateFeature(OGRLayerH layer, OGRFeatureH feature);
int OGR_L_CreateField(OGRLayerH layer, OGRFieldDefnH field, int approximate);

int OGR_FD_GetFieldCount(OGRFeatureDefnH definition);
OGRFieldDefnH OGR_FD_GetFieldDefn(OGRFeatureDefnH definition, int index);
OGRFieldDefnH OGR_Fld_Create(char const* name, int type);
void OGR_Fld_Destroy(OGRFieldDefnH field);
char const* OGR_Fld_GetNameRef(OGRFieldDefnH field);
int OGR_Fld_GetType(OGRFieldDefnH field);
void OGR_Fld_SetSubType(OGRFieldDefnH field, int subType);
void OGR_Fld_SetWidth(OGRFieldDefnH field, int width);

OGRFeatureH OGR_F_Create(OGRFeatureDefnH definition);
void OGR_F_Destroy(OGRFeatureH feature);
std::int64_t OGR_F_GetFID(OGRFeatureH feature);
OGRGeometryH OGR_F_GetGeometryRef(OGRFeatureH feature);
int OGR_F_SetGeometryDirectly(OGRFeatureH feature, OGRGeometryH geometry);
int OGR_F_IsFieldSetAndNotNull(OGRFeatureH feature, int field);
int OGR_F_GetFieldAsInteger(OGRFeatureH feature, int field);
std::int64_t OGR_F_GetFieldAsInteger64(OGRFeatureH feature, int field);
double OGR_F_GetFieldAsDouble(OGRFeatureH feature, int field);
char const* OGR_F_GetFieldAsString(OGRFeatureH feature, int field);
int OGR_F_GetFieldAsDateTimeEx(OGRFeatureH feature, int field, int* year, int* month, int* day, int* hour,
                               int* minute, float* second, int* timeZone);
void OGR_F_SetFieldInteger(OGRFeatureH feature, int field, int value);
void OGR_F_SetFieldInteger64(OGRFeatureH feature, int field, std::int64_t value);
void OGR_F_SetFieldDouble(OGRFeatureH feature, int field, double value);
void OGR_F_SetFieldString(OGRFeatureH feature, int field, char const* value);
void OGR_F_SetFieldDateTimeEx(OGRFeatureH feature, int field, int year, int month, int day, int hour,
                              int minute, float second, int timeZone);

struct OgrEnvelope {
  double minX, maxX, minY, maxY;
};
void OGR_G_GetEnvelope(OGRGeometryH geometry, OgrEnvelope* envelope);
int OGR_G_WkbSize(OGRGeometryH geometry);
int OGR_G_ExportToWkb(OGRGeometryH geometry, int byteOrder, unsigned char* out);
int OGR_G_CreateFromWkb(void const* wkb, OGRSpatialReferenceH srs, OGRGeometryH* geometry, int length);

}  // extern "C"

namespace fdo::bench {

inline constexpr unsigned kGdalOpenVector = 0x04;
inline constexpr int kOgrErrNone = 0;
inline constexpr int kWkbLittleEndian = 1;
inline constexpr int kWkbNone = 100;
inline constexpr int kWkbPoint = 1;
inline constexpr int kWkbPolygon = 3;
inline constexpr int kOftInteger = 0;
inline constexpr int kOftReal = 2;
inline constexpr int kOftString = 4;
inline constexpr int kOftDate = 9;
inline constexpr int kOftDateTime = 11;
inline constexpr int kOftInteger64 = 12;
inline constexpr int kOfstBoolean = 1;

struct GdalClose {
  void operator()(GDALDatasetH dataset) const { GDALClose(dataset); }
};
using GdalDataset = std::unique_ptr<void, GdalClose>;

struct FeatureDestroy {
  void operator()(OGRFeatureH feature) const { OGR_F_Destroy(feature); }
};
using OgrFeature = std::unique_ptr<OGRFeatureHS, FeatureDestroy>;

}  // namespace fdo::bench

#endif  // BENCH_GDAL_C_INTERFACE_H_
