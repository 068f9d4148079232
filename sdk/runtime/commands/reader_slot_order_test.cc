// Which slots the published order gives the operations of readers.
#include "Fdo.h"
#include "sdk/runtime/slot_order.h"

namespace fdo_sdk {
namespace {

TEST(SlotOrder, FdoISpatialContextReader) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetName, FdoString * ()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetDescription, FdoString * ()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetCoordinateSystem, FdoString * ()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetCoordinateSystemWkt, FdoString * ()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetExtentType, FdoSpatialContextExtentType()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetExtent, FdoByteArray * ()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetXYTolerance, double const()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, GetZTolerance, double const()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, IsActive, bool const()),
                        FDO_SDK_SLOT(FdoISpatialContextReader, ReadNext, bool()),
                    });
}

TEST(SlotOrder, FdoIDataStoreReader) {
  ExpectConsecutive(kDisposableSlots, {
                                          FDO_SDK_SLOT(FdoIDataStoreReader, GetName, FdoString * ()),
                                          FDO_SDK_SLOT(FdoIDataStoreReader, GetDescription, FdoString * ()),
                                          FDO_SDK_SLOT(FdoIDataStoreReader, GetIsFdoEnabled, bool()),
                                          FDO_SDK_SLOT(FdoIDataStoreReader, GetDataStoreProperties,
                                                       FdoIDataStorePropertyDictionary * ()),
                                          FDO_SDK_SLOT(FdoIDataStoreReader, ReadNext, bool()),
                                          FDO_SDK_SLOT(FdoIDataStoreReader, Close, void()),
                                      });
}

TEST(SlotOrder, FdoISQLDataReader) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoISQLDataReader, GetColumnCount, FdoInt32()),
          FDO_SDK_SLOT(FdoISQLDataReader, GetColumnName, FdoString * (FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetColumnIndex, FdoInt32(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetColumnType, FdoDataType(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetPropertyType, FdoPropertyType(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetBoolean, bool(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetByte, FdoByte(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetDateTime, FdoDateTime(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetDouble, double(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt16, FdoInt16(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt32, FdoInt32(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt64, FdoInt64(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetSingle, float(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetString, FdoString * (FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetLOB, FdoLOBValue * (FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetLOBStreamReader, FdoIStreamReader * (wchar_t const*)),
          FDO_SDK_SLOT(FdoISQLDataReader, IsNull, bool(FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetGeometry, FdoByteArray * (FdoString*)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetColumnType, FdoDataType(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetPropertyType, FdoPropertyType(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetBoolean, FdoBoolean(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetByte, FdoByte(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetDateTime, FdoDateTime(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetDouble, FdoDouble(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt16, FdoInt16(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt32, FdoInt32(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetInt64, FdoInt64(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetSingle, FdoFloat(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetString, FdoString * (FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetLOB, FdoLOBValue * (FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetLOBStreamReader, FdoIStreamReader * (FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, IsNull, FdoBoolean(FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, GetGeometry, FdoByteArray * (FdoInt32)),
          FDO_SDK_SLOT(FdoISQLDataReader, ReadNext, bool()),
          FDO_SDK_SLOT(FdoISQLDataReader, Close, void()),
      });
}

TEST(SlotOrder, FdoILockConflictReader) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoILockConflictReader, GetFeatureClassName, FdoString * ()),
                        FDO_SDK_SLOT(FdoILockConflictReader, GetIdentity, FdoPropertyValueCollection * ()),
                        FDO_SDK_SLOT(FdoILockConflictReader, GetLockOwner, FdoString * ()),
                        FDO_SDK_SLOT(FdoILockConflictReader, GetLongTransaction, FdoString * ()),
                        FDO_SDK_SLOT(FdoILockConflictReader, GetConflictType, FdoConflictType()),
                        FDO_SDK_SLOT(FdoILockConflictReader, ReadNext, bool()),
                        FDO_SDK_SLOT(FdoILockConflictReader, Close, void()),
                    });
}

TEST(SlotOrder, FdoIReader) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoIReader, GetPropertyName, FdoString * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetPropertyIndex, FdoInt32(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetBoolean, bool(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetByte, FdoByte(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetDateTime, FdoDateTime(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetDouble, double(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetInt16, FdoInt16(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetInt32, FdoInt32(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetInt64, FdoInt64(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetSingle, float(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetString, FdoString * (FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetLOB, FdoLOBValue * (FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetLOBStreamReader, FdoIStreamReader * (wchar_t const*)),
                        FDO_SDK_SLOT(FdoIReader, IsNull, bool(FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetGeometry, FdoByteArray * (FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetRaster, FdoIRaster * (FdoString*)),
                        FDO_SDK_SLOT(FdoIReader, GetBoolean, FdoBoolean(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetByte, FdoByte(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetDateTime, FdoDateTime(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetDouble, FdoDouble(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetInt16, FdoInt16(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetInt32, FdoInt32(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetInt64, FdoInt64(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetSingle, FdoFloat(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetString, FdoString * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetLOB, FdoLOBValue * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetLOBStreamReader, FdoIStreamReader * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, IsNull, FdoBoolean(FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetGeometry, FdoByteArray * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, GetRaster, FdoIRaster * (FdoInt32)),
                        FDO_SDK_SLOT(FdoIReader, ReadNext, bool()),
                        FDO_SDK_SLOT(FdoIReader, Close, void()),
                    });
}

TEST(SlotOrder, FdoIFeatureReader) {
  ExpectConsecutive(kDisposableSlots + 32,
                    {
                        FDO_SDK_SLOT(FdoIFeatureReader, GetClassDefinition, FdoClassDefinition * ()),
                        FDO_SDK_SLOT(FdoIFeatureReader, GetDepth, FdoInt32()),
                        FDO_SDK_SLOT(FdoIFeatureReader, GetGeometry, FdoByte const*(FdoString*, FdoInt32*)),
                        FDO_SDK_SLOT(FdoIFeatureReader, GetFeatureObject, FdoIFeatureReader * (FdoString*)),
                        FDO_SDK_SLOT(FdoIFeatureReader, GetGeometry, FdoByte const*(FdoInt32, FdoInt32*)),
                        FDO_SDK_SLOT(FdoIFeatureReader, GetFeatureObject, FdoIFeatureReader * (FdoInt32)),
                    });
}

TEST(SlotOrder, FdoIDataReader) {
  ExpectConsecutive(kDisposableSlots + 32,
                    {
                        FDO_SDK_SLOT(FdoIDataReader, GetPropertyCount, FdoInt32()),
                        FDO_SDK_SLOT(FdoIDataReader, GetDataType, FdoDataType(FdoString*)),
                        FDO_SDK_SLOT(FdoIDataReader, GetPropertyType, FdoPropertyType(FdoString*)),
                        FDO_SDK_SLOT(FdoIDataReader, GetDataType, FdoDataType(FdoInt32)),
                        FDO_SDK_SLOT(FdoIDataReader, GetPropertyType, FdoPropertyType(FdoInt32)),
                    });
}

TEST(SlotOrder, FdoIScrollableFeatureReader) {
  ExpectConsecutive(
      kDisposableSlots + 38,
      {
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, Count, FdoInt32()),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, ReadFirst, FdoBoolean()),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, ReadLast, FdoBoolean()),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, ReadPrevious, FdoBoolean()),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, ReadAt, FdoBoolean(FdoPropertyValueCollection*)),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, ReadAtIndex, FdoBoolean(unsigned int)),
          FDO_SDK_SLOT(FdoIScrollableFeatureReader, IndexOf, unsigned int(FdoPropertyValueCollection*)),
      });
}

TEST(SlotOrder, FdoIRaster) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoIRaster, IsNull, bool()),
                        FDO_SDK_SLOT(FdoIRaster, SetNull, void()),
                        FDO_SDK_SLOT(FdoIRaster, GetNumberOfBands, FdoInt32()),
                        FDO_SDK_SLOT(FdoIRaster, SetNumberOfBands, void(FdoInt32)),
                        FDO_SDK_SLOT(FdoIRaster, GetCurrentBand, FdoInt32()),
                        FDO_SDK_SLOT(FdoIRaster, SetCurrentBand, void(FdoInt32)),
                        FDO_SDK_SLOT(FdoIRaster, GetBounds, FdoByteArray * ()),
                        FDO_SDK_SLOT(FdoIRaster, SetBounds, void(FdoByteArray*)),
                        FDO_SDK_SLOT(FdoIRaster, GetDataModel, FdoRasterDataModel * ()),
                        FDO_SDK_SLOT(FdoIRaster, SetDataModel, void(FdoRasterDataModel*)),
                        FDO_SDK_SLOT(FdoIRaster, GetImageXSize, FdoInt32()),
                        FDO_SDK_SLOT(FdoIRaster, SetImageXSize, void(FdoInt32)),
                        FDO_SDK_SLOT(FdoIRaster, GetImageYSize, FdoInt32()),
                        FDO_SDK_SLOT(FdoIRaster, SetImageYSize, void(FdoInt32)),
                        FDO_SDK_SLOT(FdoIRaster, GetAuxiliaryProperties, FdoIRasterPropertyDictionary * ()),
                        FDO_SDK_SLOT(FdoIRaster, GetNullPixelValue, FdoDataValue * ()),
                        FDO_SDK_SLOT(FdoIRaster, SetStreamReader, void(FdoIStreamReader*)),
                        FDO_SDK_SLOT(FdoIRaster, GetStreamReader, FdoIStreamReader * ()),
                        FDO_SDK_SLOT(FdoIRaster, GetVerticalUnits, FdoString * ()),
                        FDO_SDK_SLOT(FdoIRaster, SetVerticalUnits, void(FdoString*)),
                    });
}

TEST(SlotOrder, FdoIRasterPropertyDictionary) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, GetPropertyNames, FdoStringCollection * ()),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, GetPropertyDataType, FdoDataType(FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, GetProperty, FdoDataValue * (FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, SetProperty, void(FdoString*, FdoDataValue*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, GetPropertyDefault, FdoDataValue * (FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, IsPropertyRequired, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, IsPropertyEnumerable, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, GetPropertyValues,
                       FdoDataValueCollection * (FdoString*)),
          FDO_SDK_SLOT(FdoIRasterPropertyDictionary, SetPropertyValues,
                       void(FdoString*, FdoDataValueCollection*)),
      });
}

}  // namespace
}  // namespace fdo_sdk
