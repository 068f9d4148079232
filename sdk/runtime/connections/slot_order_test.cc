// Which slots the published order gives the operations of connections and capabilities.
#include "sdk/runtime/slot_order.h"
#include "Fdo.h"

namespace fdo_sdk {
namespace {

TEST(SlotOrder, FdoIConnection) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIConnection, GetConnectionCapabilities, FdoIConnectionCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetSchemaCapabilities, FdoISchemaCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetCommandCapabilities, FdoICommandCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetFilterCapabilities, FdoIFilterCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetExpressionCapabilities, FdoIExpressionCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetRasterCapabilities, FdoIRasterCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetTopologyCapabilities, FdoITopologyCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetGeometryCapabilities, FdoIGeometryCapabilities * ()),
          FDO_SDK_SLOT(FdoIConnection, GetConnectionString, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnection, SetConnectionString, void(FdoString*)),
          FDO_SDK_SLOT(FdoIConnection, GetConnectionInfo, FdoIConnectionInfo * ()),
          FDO_SDK_SLOT(FdoIConnection, GetConnectionState, FdoConnectionState()),
          FDO_SDK_SLOT(FdoIConnection, GetConnectionTimeout, FdoInt32()),
          FDO_SDK_SLOT(FdoIConnection, SetConnectionTimeout, void(FdoInt32)),
          FDO_SDK_SLOT(FdoIConnection, Open, FdoConnectionState()),
          FDO_SDK_SLOT(FdoIConnection, Close, void()),
          FDO_SDK_SLOT(FdoIConnection, BeginTransaction, FdoITransaction * ()),
          FDO_SDK_SLOT(FdoIConnection, CreateCommand, FdoICommand * (FdoInt32)),
          FDO_SDK_SLOT(FdoIConnection, CreateSchemaMapping, FdoPhysicalSchemaMapping * ()),
          FDO_SDK_SLOT(FdoIConnection, SetConfiguration, void(FdoIoStream*)),
          FDO_SDK_SLOT(FdoIConnection, Flush, void()),
      });
}

TEST(SlotOrder, FdoIConnectionInfo) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIConnectionInfo, GetProviderName, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetProviderDisplayName, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetProviderDescription, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetProviderVersion, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetFeatureDataObjectsVersion, FdoString * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetConnectionProperties, FdoIConnectionPropertyDictionary * ()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetProviderDatastoreType, FdoProviderDatastoreType()),
          FDO_SDK_SLOT(FdoIConnectionInfo, GetDependentFileNames, FdoStringCollection * ()),
      });
}

TEST(SlotOrder, FdoIPropertyDictionary) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIPropertyDictionary, GetPropertyNames, FdoString * *(FdoInt32&)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, GetProperty, FdoString * (FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, SetProperty, void(FdoString*, FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, GetPropertyDefault, FdoString * (FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyRequired, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyProtected, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyEnumerable, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, EnumeratePropertyValues, FdoString * *(FdoString*, FdoInt32&)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, GetLocalizedName, FdoString * (FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyFileName, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyFilePath, bool(FdoString*)),
          FDO_SDK_SLOT(FdoIPropertyDictionary, IsPropertyDatastoreName, bool(FdoString*)),
      });
}

TEST(SlotOrder, FdoITransaction) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoITransaction, GetConnection, FdoIConnection * ()),
                        FDO_SDK_SLOT(FdoITransaction, Commit, void()),
                        FDO_SDK_SLOT(FdoITransaction, AddSavePoint, FdoString * (FdoString*)),
                        FDO_SDK_SLOT(FdoITransaction, ReleaseSavePoint, void(FdoString*)),
                        FDO_SDK_SLOT(FdoITransaction, Rollback, void(FdoString*)),
                        FDO_SDK_SLOT(FdoITransaction, Rollback, void()),
                    });
}

TEST(SlotOrder, FdoIConnectionCapabilities) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, GetThreadCapability, FdoThreadCapability()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, GetSpatialContextTypes,
                                     FdoSpatialContextExtentType * (FdoInt32&)),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsLocking, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, GetLockTypes, FdoLockType * (FdoInt32&)),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsTimeout, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsTransactions, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsSavePoint, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsLongTransactions, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsSQL, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsConfiguration, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsMultipleSpatialContexts, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsCSysWKTFromCSysName, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsWrite, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsMultiUserWrite, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsFlush, bool()),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsJoins, bool() const),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, GetJoinTypes, FdoInt32() const),
                        FDO_SDK_SLOT(FdoIConnectionCapabilities, SupportsSubSelects, bool() const),
                    });
}

TEST(SlotOrder, FdoISchemaCapabilities) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetClassTypes, FdoClassType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetDataTypes, FdoDataType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetMaximumDataValueLength, FdoInt64(FdoDataType)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetMaximumDecimalPrecision, FdoInt32()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetMaximumDecimalScale, FdoInt32()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetNameSizeLimit, FdoInt32(FdoSchemaElementNameType)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetReservedCharactersForName, FdoString * ()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetSupportedAutoGeneratedTypes, FdoDataType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, GetSupportedIdentityPropertyTypes, FdoDataType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsAssociationProperties, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsAutoIdGeneration, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsCompositeId, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsCompositeUniqueValueConstraints, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsDataStoreScopeUniqueIdGeneration, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsDefaultValue, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsExclusiveValueRangeConstraints, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsInclusiveValueRangeConstraints, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsInheritence, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsInheritance, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsMultipleSchemas, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsNetworkModel, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsNullValueConstraints, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsObjectProperties, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsSchemaModification, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsSchemaOverrides, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsUniqueValueConstraints, bool()),
          FDO_SDK_SLOT(FdoISchemaCapabilities, SupportsValueConstraintsList, bool()),
      });
}

TEST(SlotOrder, FdoICommandCapabilities) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoICommandCapabilities, GetCommands, FdoInt32 * (FdoInt32&)),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsParameters, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsTimeout, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsSelectExpressions, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsSelectFunctions, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsSelectDistinct, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsSelectOrdering, bool()),
                        FDO_SDK_SLOT(FdoICommandCapabilities, SupportsSelectGrouping, bool()),
                    });
}

TEST(SlotOrder, FdoIFilterCapabilities) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIFilterCapabilities, GetConditionTypes, FdoConditionType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIFilterCapabilities, GetSpatialOperations, FdoSpatialOperations * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIFilterCapabilities, GetDistanceOperations, FdoDistanceOperations * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIFilterCapabilities, SupportsGeodesicDistance, bool()),
          FDO_SDK_SLOT(FdoIFilterCapabilities, SupportsNonLiteralGeometricOperations, bool()),
      });
}

TEST(SlotOrder, FdoIExpressionCapabilities) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIExpressionCapabilities, GetExpressionTypes, FdoExpressionType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIExpressionCapabilities, GetFunctions, FdoFunctionDefinitionCollection * ()),
      });
}

TEST(SlotOrder, FdoIRasterCapabilities) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoIRasterCapabilities, SupportsRaster, bool()),
                        FDO_SDK_SLOT(FdoIRasterCapabilities, SupportsStitching, bool()),
                        FDO_SDK_SLOT(FdoIRasterCapabilities, SupportsSubsampling, bool()),
                        FDO_SDK_SLOT(FdoIRasterCapabilities, SupportsDataModel, bool(FdoRasterDataModel*)),
                    });
}

TEST(SlotOrder, FdoITopologyCapabilities) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoITopologyCapabilities, SupportsTopology, bool()),
                        FDO_SDK_SLOT(FdoITopologyCapabilities, SupportsTopologicalHierarchy, bool()),
                        FDO_SDK_SLOT(FdoITopologyCapabilities, BreaksCurveCrossingsAutomatically, bool()),
                        FDO_SDK_SLOT(FdoITopologyCapabilities, ActivatesTopologyByArea, bool()),
                        FDO_SDK_SLOT(FdoITopologyCapabilities, ConstrainsFeatureMovements, bool()),
                    });
}

TEST(SlotOrder, FdoIGeometryCapabilities) {
  ExpectConsecutive(
      kDisposableSlots,
      {
          FDO_SDK_SLOT(FdoIGeometryCapabilities, GetGeometryTypes, FdoGeometryType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIGeometryCapabilities, GetGeometryComponentTypes,
                       FdoGeometryComponentType * (FdoInt32&)),
          FDO_SDK_SLOT(FdoIGeometryCapabilities, GetDimensionalities, FdoInt32()),
      });
}

}  // namespace
}  // namespace fdo_sdk
