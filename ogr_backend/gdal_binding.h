// GDAL's published C interface, bound while the program runs.
//
// The library is looked for at the first call of Gdal(), never at program start: a program that opens
// no vector file does not load it. The names that are tried are those under which GDAL 3 is installed,
// newest first; the environment variable QUILLON_GDAL_LIBRARY, a file name or a path, replaces them.
#ifndef OGR_BACKEND_GDAL_BINDING_H_
#define OGR_BACKEND_GDAL_BINDING_H_

#include <cstdint>

namespace fdo::internal {

// GDAL's handles. Its own header makes most of them void pointers; a type each keeps them apart here
// and is the same to the linker.
using GdalDriverH = struct GdalDriver*;
using GdalDatasetH = struct GdalDataset*;
using OgrLayerH = struct OgrLayer*;
using OgrFeatureDefnH = struct OgrFeatureDefn*;
using OgrFieldDefnH = struct OgrFieldDefn*;
using OgrFeatureH = struct OgrFeature*;
using OgrGeometryH = struct OgrGeometry*;
using OgrSpatialReferenceH = struct OgrSpatialReference*;

// Numbers and layouts of the published interface, as far as they are needed here.

inline constexpr unsigned kGdalOpenReadOnly = 0x00;
inline constexpr unsigned kGdalOpenUpdate = 0x01;
inline constexpr unsigned kGdalOpenVector = 0x04;
inline constexpr unsigned kGdalOpenVerboseError = 0x40;

inline constexpr int kOgrErrNone = 0;

inline constexpr int kCplWarning = 2;
inline constexpr int kCplFailure = 3;

inline constexpr std::int64_t kOgrNullFid = -1;

inline constexpr unsigned kWkbUnknown = 0;
inline constexpr unsigned kWkbNone = 100;
// Added to the type of a layer for the ordinates beyond X and Y.
inline constexpr unsigned kWkbZ = 0x80000000u;
inline constexpr unsigned kWkbM = 2000;
inline constexpr unsigned kWkbZM = 3000;
inline constexpr int kWkbLittleEndian = 1;

enum OgrFieldType : int {
  kOftInteger = 0,
  kOftIntegerList = 1,
  kOftReal = 2,
  kOftRealList = 3,
  kOftString = 4,
  kOftStringList = 5,
  kOftWideString = 6,
  kOftWideStringList = 7,
  kOftBinary = 8,
  kOftDate = 9,
  kOftTime = 10,
  kOftDateTime = 11,
  kOftInteger64 = 12,
  kOftInteger64List = 13,
};

enum OgrFieldSubType : int {
  kOfstNone = 0,
  kOfstBoolean = 1,
  kOfstInt16 = 2,
  kOfstFloat32 = 3,
};

struct OgrEnvelope {
  double minX;
  double maxX;
  double minY;
  double maxY;
};

// The value of one field as it lies in a feature.
union OgrField {
  int integer;
  std::int64_t integer64;
  double real;
  char* string;
  struct {
    int count;
    unsigned char* data;
  } binary;
  struct {
    int marker1;
    int marker2;
    int marker3;
  } set;
  struct {
    std::int16_t year;
    unsigned char month;
    unsigned char day;
    unsigned char hour;
    unsigned char minute;
    unsigned char timeZone;
    unsigned char reserved;
    float second;
  } date;
};
static_assert(sizeof(OgrField) == 16, "the published layout: two words");

using CplErrorHandler = void (*)(int errorClass, int errorNumber, char const* message);

// Each function once: its result, its published name, its arguments.
#define QUILLON_GDAL_FUNCTIONS(X)                                                                            \
  /* errors and memory */                                                                                    \
  X(void, CPLPushErrorHandlerEx, (CplErrorHandler handler, void* userData))                                  \
  X(void, CPLPopErrorHandler, ())                                                                            \
  X(void*, CPLGetErrorHandlerUserData, ())                                                                   \
  X(void, VSIFree, (void* memory))                                                                           \
  /* drivers */                                                                                              \
  X(void, GDALAllRegister, ())                                                                               \
  X(int, GDALGetDriverCount, ())                                                                             \
  X(GdalDriverH, GDALGetDriver, (int index))                                                                 \
  X(GdalDriverH, GDALGetDriverByName, (char const* name))                                                    \
  X(char const*, GDALGetDriverShortName, (GdalDriverH driver))                                               \
  X(char const*, GDALGetMetadataItem, (void* object, char const* name, char const* domain))                  \
  X(int, GDALDeleteDataset, (GdalDriverH driver, char const* name))                                          \
  /* data sources */                                                                                         \
  X(GdalDatasetH, GDALOpenEx,                                                                                \
    (char const* name, unsigned flags, char const* const* drivers, char const* const* options,               \
     char const* const* siblings))                                                                           \
  X(GdalDatasetH, GDALCreate,                                                                                \
    (GdalDriverH driver, char const* name, int width, int height, int bands, int dataType,                   \
     char const* const* options))                                                                            \
  X(void, GDALClose, (GdalDatasetH dataset))                                                                 \
  X(void, GDALFlushCache, (GdalDatasetH dataset))                                                            \
  X(GdalDriverH, GDALGetDatasetDriver, (GdalDatasetH dataset))                                               \
  X(int, GDALDatasetTestCapability, (GdalDatasetH dataset, char const* capability))                          \
  X(int, GDALDatasetGetLayerCount, (GdalDatasetH dataset))                                                   \
  X(OgrLayerH, GDALDatasetGetLayer, (GdalDatasetH dataset, int index))                                       \
  X(OgrLayerH, GDALDatasetCreateLayer,                                                                       \
    (GdalDatasetH dataset, char const* name, OgrSpatialReferenceH srs, unsigned geometryType,                \
     char const* const* options))                                                                            \
  X(int, GDALDatasetStartTransaction, (GdalDatasetH dataset, int force))                                     \
  X(int, GDALDatasetCommitTransaction, (GdalDatasetH dataset))                                               \
  X(int, GDALDatasetRollbackTransaction, (GdalDatasetH dataset))                                             \
  /* layers */                                                                                               \
  X(OgrFeatureDefnH, OGR_L_GetLayerDefn, (OgrLayerH layer))                                                  \
  X(char const*, OGR_L_GetFIDColumn, (OgrLayerH layer))                                                      \
  X(char const*, OGR_L_GetGeometryColumn, (OgrLayerH layer))                                                 \
  X(OgrSpatialReferenceH, OGR_L_GetSpatialRef, (OgrLayerH layer))                                            \
  X(int, OGR_L_TestCapability, (OgrLayerH layer, char const* capability))                                    \
  X(int, OGR_L_SetAttributeFilter, (OgrLayerH layer, char const* filter))                                    \
  X(void, OGR_L_SetSpatialFilter, (OgrLayerH layer, OgrGeometryH filter))                                    \
  X(void, OGR_L_SetSpatialFilterRect, (OgrLayerH layer, double minX, double minY, double maxX, double maxY)) \
  X(int, OGR_L_SetIgnoredFields, (OgrLayerH layer, char const** names))                                      \
  X(void, OGR_L_ResetReading, (OgrLayerH layer))                                                             \
  X(OgrFeatureH, OGR_L_GetNextFeature, (OgrLayerH layer))                                                    \
  X(OgrFeatureH, OGR_L_GetFeature, (OgrLayerH layer, std::int64_t id))                                       \
  X(int, OGR_L_CreateFeature, (OgrLayerH layer, OgrFeatureH feature))                                        \
  X(int, OGR_L_SetFeature, (OgrLayerH layer, OgrFeatureH feature))                                           \
  X(int, OGR_L_DeleteFeature, (OgrLayerH layer, std::int64_t id))                                            \
  X(int, OGR_L_CreateField, (OgrLayerH layer, OgrFieldDefnH field, int approximate))                         \
  X(std::int64_t, OGR_L_GetFeatureCount, (OgrLayerH layer, int force))                                       \
  X(int, OGR_L_GetExtent, (OgrLayerH layer, OgrEnvelope * extent, int force))                                \
  /* definitions */                                                                                          \
  X(char const*, OGR_FD_GetName, (OgrFeatureDefnH definition))                                               \
  X(int, OGR_FD_GetFieldCount, (OgrFeatureDefnH definition))                                                 \
  X(OgrFieldDefnH, OGR_FD_GetFieldDefn, (OgrFeatureDefnH definition, int index))                             \
  X(unsigned, OGR_FD_GetGeomType, (OgrFeatureDefnH definition))                                              \
  X(OgrFieldDefnH, OGR_Fld_Create, (char const* name, int type))                                             \
  X(void, OGR_Fld_Destroy, (OgrFieldDefnH field))                                                            \
  X(char const*, OGR_Fld_GetNameRef, (OgrFieldDefnH field))                                                  \
  X(int, OGR_Fld_GetType, (OgrFieldDefnH field))                                                             \
  X(void, OGR_Fld_SetSubType, (OgrFieldDefnH field, int subType))                                            \
  X(char const*, OGR_Fld_GetDefault, (OgrFieldDefnH field))                                                  \
  /* features */                                                                                             \
  X(OgrFeatureH, OGR_F_Create, (OgrFeatureDefnH definition))                                                 \
  X(void, OGR_F_Destroy, (OgrFeatureH feature))                                                              \
  X(std::int64_t, OGR_F_GetFID, (OgrFeatureH feature))                                                       \
  X(int, OGR_F_SetFID, (OgrFeatureH feature, std::int64_t id))                                               \
  X(OgrGeometryH, OGR_F_GetGeometryRef, (OgrFeatureH feature))                                               \
  X(int, OGR_F_SetGeometryDirectly, (OgrFeatureH feature, OgrGeometryH geometry))                            \
  X(int, OGR_F_IsFieldSetAndNotNull, (OgrFeatureH feature, int field))                                       \
  X(double, OGR_F_GetFieldAsDouble, (OgrFeatureH feature, int field))                                        \
  X(char const*, OGR_F_GetFieldAsString, (OgrFeatureH feature, int field))                                   \
  X(OgrField*, OGR_F_GetRawFieldRef, (OgrFeatureH feature, int field))                                       \
  X(void, OGR_F_SetFieldNull, (OgrFeatureH feature, int field))                                              \
  X(void, OGR_F_SetFieldInteger64, (OgrFeatureH feature, int field, std::int64_t value))                     \
  X(void, OGR_F_SetFieldDouble, (OgrFeatureH feature, int field, double value))                              \
  X(void, OGR_F_SetFieldString, (OgrFeatureH feature, int field, char const* value))                         \
  X(void, OGR_F_SetFieldBinary, (OgrFeatureH feature, int field, int length, void const* bytes))             \
  X(void, OGR_F_SetFieldDateTimeEx,                                                                          \
    (OgrFeatureH feature, int field, int year, int month, int day, int hour, int minute, float second,       \
     int timeZone))                                                                                          \
  /* geometries and coordinate systems */                                                                    \
  X(int, OGR_G_WkbSize, (OgrGeometryH geometry))                                                             \
  X(int, OGR_G_ExportToIsoWkb, (OgrGeometryH geometry, int byteOrder, unsigned char* out))                   \
  X(int, OGR_G_CreateFromWkb,                                                                                \
    (void const* wkb, OgrSpatialReferenceH srs, OgrGeometryH* geometry, int length))                         \
  X(OgrSpatialReferenceH, OSRNewSpatialReference, (char const* wkt))                                         \
  X(int, OSRSetFromUserInput, (OgrSpatialReferenceH srs, char const* definition))                            \
  X(void, OSRRelease, (OgrSpatialReferenceH srs))                                                            \
  X(void, OSRSetAxisMappingStrategy, (OgrSpatialReferenceH srs, int strategy))                               \
  X(int, OSRExportToWkt, (OgrSpatialReferenceH srs, char** wkt))

struct GdalApi {
#define QUILLON_GDAL_MEMBER(result, name, arguments) result(*name) arguments = nullptr;
  QUILLON_GDAL_FUNCTIONS(QUILLON_GDAL_MEMBER)
#undef QUILLON_GDAL_MEMBER
};

// The bound interface, with every driver registered; null where no usable GDAL is installed. It stays
// as it is for the life of the process.
// Threads: any; the first call binds, others wait for it.
GdalApi const* Gdal();

}  // namespace fdo::internal

#endif  // OGR_BACKEND_GDAL_BINDING_H_
