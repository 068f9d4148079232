// Which slots the published order gives the operations of commands.
#include "Fdo.h"
#include "sdk/runtime/slot_order.h"

namespace fdo_sdk {
namespace {

TEST(SlotOrder, FdoICommand) {
  ExpectConsecutive(kDisposableSlots,
                    {
                        FDO_SDK_SLOT(FdoICommand, GetConnection, FdoIConnection * ()),
                        FDO_SDK_SLOT(FdoICommand, GetTransaction, FdoITransaction * ()),
                        FDO_SDK_SLOT(FdoICommand, SetTransaction, void(FdoITransaction*)),
                        FDO_SDK_SLOT(FdoICommand, GetCommandTimeout, FdoInt32()),
                        FDO_SDK_SLOT(FdoICommand, SetCommandTimeout, void(FdoInt32)),
                        FDO_SDK_SLOT(FdoICommand, GetParameterValues, FdoParameterValueCollection * ()),
                        FDO_SDK_SLOT(FdoICommand, Prepare, void()),
                        FDO_SDK_SLOT(FdoICommand, Cancel, void()),
                    });
}

TEST(SlotOrder, FdoIFeatureCommand) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIFeatureCommand, GetFeatureClassName, FdoIdentifier * ()),
                        FDO_SDK_SLOT(FdoIFeatureCommand, SetFeatureClassName, void(FdoIdentifier*)),
                        FDO_SDK_SLOT(FdoIFeatureCommand, SetFeatureClassName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIFeatureCommand, GetFilter, FdoFilter * ()),
                        FDO_SDK_SLOT(FdoIFeatureCommand, SetFilter, void(FdoFilter*)),
                        FDO_SDK_SLOT(FdoIFeatureCommand, SetFilter, void(FdoString*)),
                    });
}

TEST(SlotOrder, FdoIBaseSelect) {
  ExpectConsecutive(kDisposableSlots + 14,
                    {
                        FDO_SDK_SLOT(FdoIBaseSelect, GetPropertyNames, FdoIdentifierCollection * ()),
                        FDO_SDK_SLOT(FdoIBaseSelect, GetOrdering, FdoIdentifierCollection * ()),
                        FDO_SDK_SLOT(FdoIBaseSelect, SetOrderingOption, void(FdoOrderingOption)),
                        FDO_SDK_SLOT(FdoIBaseSelect, GetOrderingOption, FdoOrderingOption()),
                        FDO_SDK_SLOT(FdoIBaseSelect, GetFetchSize, FdoInt32()),
                        FDO_SDK_SLOT(FdoIBaseSelect, SetFetchSize, void(FdoInt32)),
                    });
}

TEST(SlotOrder, FdoISelect) {
  ExpectConsecutive(kDisposableSlots + 20,
                    {
                        FDO_SDK_SLOT(FdoISelect, GetLockType, FdoLockType()),
                        FDO_SDK_SLOT(FdoISelect, SetLockType, void(FdoLockType)),
                        FDO_SDK_SLOT(FdoISelect, GetLockStrategy, FdoLockStrategy()),
                        FDO_SDK_SLOT(FdoISelect, SetLockStrategy, void(FdoLockStrategy)),
                        FDO_SDK_SLOT(FdoISelect, Execute, FdoIFeatureReader * ()),
                        FDO_SDK_SLOT(FdoISelect, ExecuteWithLock, FdoIFeatureReader * ()),
                        FDO_SDK_SLOT(FdoISelect, GetLockConflicts, FdoILockConflictReader * ()),
                        FDO_SDK_SLOT(FdoISelect, GetJoinCriteria, FdoJoinCriteriaCollection * ()),
                        FDO_SDK_SLOT(FdoISelect, GetAlias, FdoString * ()),
                        FDO_SDK_SLOT(FdoISelect, SetAlias, void(FdoString*)),
                    });
}

TEST(SlotOrder, FdoIExtendedSelect) {
  ExpectConsecutive(
      kDisposableSlots + 30,
      {
          FDO_SDK_SLOT(FdoIExtendedSelect, SetOrderingOption, void(FdoString*, FdoOrderingOption)),
          FDO_SDK_SLOT(FdoIExtendedSelect, GetOrderingOption, FdoOrderingOption(FdoString*)),
          FDO_SDK_SLOT(FdoIExtendedSelect, ClearOrderingOptions, void()),
          FDO_SDK_SLOT(FdoIExtendedSelect, ExecuteScrollable, FdoIScrollableFeatureReader * ()),
      });
}

TEST(SlotOrder, FdoISelectAggregates) {
  ExpectConsecutive(kDisposableSlots + 20,
                    {
                        FDO_SDK_SLOT(FdoISelectAggregates, Execute, FdoIDataReader * ()),
                        FDO_SDK_SLOT(FdoISelectAggregates, SetDistinct, void(bool)),
                        FDO_SDK_SLOT(FdoISelectAggregates, GetDistinct, bool()),
                        FDO_SDK_SLOT(FdoISelectAggregates, GetGrouping, FdoIdentifierCollection * ()),
                        FDO_SDK_SLOT(FdoISelectAggregates, SetGroupingFilter, void(FdoFilter*)),
                        FDO_SDK_SLOT(FdoISelectAggregates, GetGroupingFilter, FdoFilter * ()),
                        FDO_SDK_SLOT(FdoISelectAggregates, GetJoinCriteria, FdoJoinCriteriaCollection * ()),
                        FDO_SDK_SLOT(FdoISelectAggregates, GetAlias, FdoString * ()),
                        FDO_SDK_SLOT(FdoISelectAggregates, SetAlias, void(FdoString*)),
                    });
}

TEST(SlotOrder, FdoIInsert) {
  ExpectConsecutive(
      kDisposableSlots + 8,
      {
          FDO_SDK_SLOT(FdoIInsert, GetFeatureClassName, FdoIdentifier * ()),
          FDO_SDK_SLOT(FdoIInsert, SetFeatureClassName, void(FdoIdentifier*)),
          FDO_SDK_SLOT(FdoIInsert, SetFeatureClassName, void(FdoString*)),
          FDO_SDK_SLOT(FdoIInsert, GetPropertyValues, FdoPropertyValueCollection * ()),
          FDO_SDK_SLOT(FdoIInsert, GetBatchParameterValues, FdoBatchParameterValueCollection * ()),
          FDO_SDK_SLOT(FdoIInsert, Execute, FdoIFeatureReader * ()),
      });
}

TEST(SlotOrder, FdoIUpdate) {
  ExpectConsecutive(kDisposableSlots + 14,
                    {
                        FDO_SDK_SLOT(FdoIUpdate, GetPropertyValues, FdoPropertyValueCollection * ()),
                        FDO_SDK_SLOT(FdoIUpdate, Execute, FdoInt32()),
                        FDO_SDK_SLOT(FdoIUpdate, GetLockConflicts, FdoILockConflictReader * ()),
                    });
}

TEST(SlotOrder, FdoIDelete) {
  ExpectConsecutive(kDisposableSlots + 14,
                    {
                        FDO_SDK_SLOT(FdoIDelete, Execute, FdoInt32()),
                        FDO_SDK_SLOT(FdoIDelete, GetLockConflicts, FdoILockConflictReader * ()),
                    });
}

TEST(SlotOrder, FdoIGetSpatialContexts) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIGetSpatialContexts, GetActiveOnly, bool const()),
                        FDO_SDK_SLOT(FdoIGetSpatialContexts, SetActiveOnly, void(bool)),
                        FDO_SDK_SLOT(FdoIGetSpatialContexts, Execute, FdoISpatialContextReader * ()),
                    });
}

TEST(SlotOrder, FdoICreateSpatialContext) {
  ExpectConsecutive(
      kDisposableSlots + 8,
      {
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetName, FdoString * ()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetName, void(FdoString*)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetDescription, FdoString * ()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetDescription, void(FdoString*)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetCoordinateSystem, FdoString * ()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetCoordinateSystem, void(FdoString*)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetCoordinateSystemWkt, FdoString * ()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetCoordinateSystemWkt, void(FdoString*)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetExtentType, FdoSpatialContextExtentType()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetExtentType, void(FdoSpatialContextExtentType)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetExtent, FdoByteArray * ()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetExtent, void(FdoByteArray*)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetXYTolerance, double const()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetXYTolerance, void(double)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetZTolerance, double const()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetZTolerance, void(double)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, GetUpdateExisting, bool const()),
          FDO_SDK_SLOT(FdoICreateSpatialContext, SetUpdateExisting, void(bool)),
          FDO_SDK_SLOT(FdoICreateSpatialContext, Execute, void()),
      });
}

TEST(SlotOrder, FdoIActivateSpatialContext) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIActivateSpatialContext, GetName, FdoString * ()),
                        FDO_SDK_SLOT(FdoIActivateSpatialContext, SetName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIActivateSpatialContext, Execute, void()),
                    });
}

TEST(SlotOrder, FdoIDestroySpatialContext) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIDestroySpatialContext, GetName, FdoString * ()),
                        FDO_SDK_SLOT(FdoIDestroySpatialContext, SetName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIDestroySpatialContext, Execute, void()),
                    });
}

TEST(SlotOrder, FdoIDescribeSchema) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIDescribeSchema, GetSchemaName, FdoString * ()),
                        FDO_SDK_SLOT(FdoIDescribeSchema, SetSchemaName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIDescribeSchema, GetClassNames, FdoStringCollection * ()),
                        FDO_SDK_SLOT(FdoIDescribeSchema, SetClassNames, void(FdoStringCollection*)),
                        FDO_SDK_SLOT(FdoIDescribeSchema, Execute, FdoFeatureSchemaCollection * ()),
                    });
}

TEST(SlotOrder, FdoIApplySchema) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIApplySchema, GetFeatureSchema, FdoFeatureSchema * ()),
                        FDO_SDK_SLOT(FdoIApplySchema, SetFeatureSchema, void(FdoFeatureSchema*)),
                        FDO_SDK_SLOT(FdoIApplySchema, GetPhysicalMapping, FdoPhysicalSchemaMapping * ()),
                        FDO_SDK_SLOT(FdoIApplySchema, SetPhysicalMapping, void(FdoPhysicalSchemaMapping*)),
                        FDO_SDK_SLOT(FdoIApplySchema, GetIgnoreStates, FdoBoolean()),
                        FDO_SDK_SLOT(FdoIApplySchema, SetIgnoreStates, void(FdoBoolean)),
                        FDO_SDK_SLOT(FdoIApplySchema, Execute, void()),
                    });
}

TEST(SlotOrder, FdoIDestroySchema) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIDestroySchema, GetSchemaName, FdoString * ()),
                        FDO_SDK_SLOT(FdoIDestroySchema, SetSchemaName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIDestroySchema, Execute, void()),
                    });
}

TEST(SlotOrder, FdoIGetSchemaNames) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIGetSchemaNames, Execute, FdoStringCollection * ()),
                    });
}

TEST(SlotOrder, FdoIGetClassNames) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIGetClassNames, GetSchemaName, FdoString * ()),
                        FDO_SDK_SLOT(FdoIGetClassNames, SetSchemaName, void(FdoString*)),
                        FDO_SDK_SLOT(FdoIGetClassNames, Execute, FdoStringCollection * ()),
                    });
}

TEST(SlotOrder, FdoICreateDataStore) {
  ExpectConsecutive(kDisposableSlots + 8, {
                                              FDO_SDK_SLOT(FdoICreateDataStore, GetDataStoreProperties,
                                                           FdoIDataStorePropertyDictionary * ()),
                                              FDO_SDK_SLOT(FdoICreateDataStore, Execute, void()),
                                          });
}

TEST(SlotOrder, FdoIDestroyDataStore) {
  ExpectConsecutive(kDisposableSlots + 8, {
                                              FDO_SDK_SLOT(FdoIDestroyDataStore, GetDataStoreProperties,
                                                           FdoIDataStorePropertyDictionary * ()),
                                              FDO_SDK_SLOT(FdoIDestroyDataStore, Execute, void()),
                                          });
}

TEST(SlotOrder, FdoIListDataStores) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoIListDataStores, GetIncludeNonFdoEnabledDatastores, bool()),
                        FDO_SDK_SLOT(FdoIListDataStores, SetIncludeNonFdoEnabledDatastores, void(bool)),
                        FDO_SDK_SLOT(FdoIListDataStores, Execute, FdoIDataStoreReader * ()),
                    });
}

TEST(SlotOrder, FdoISQLCommand) {
  ExpectConsecutive(kDisposableSlots + 8,
                    {
                        FDO_SDK_SLOT(FdoISQLCommand, GetSQLStatement, FdoString * ()),
                        FDO_SDK_SLOT(FdoISQLCommand, SetSQLStatement, void(FdoString*)),
                        FDO_SDK_SLOT(FdoISQLCommand, ExecuteNonQuery, FdoInt32()),
                        FDO_SDK_SLOT(FdoISQLCommand, ExecuteReader, FdoISQLDataReader * ()),
                        FDO_SDK_SLOT(FdoISQLCommand, GetFetchSize, FdoInt32()),
                        FDO_SDK_SLOT(FdoISQLCommand, SetFetchSize, void(FdoInt32)),
                    });
}

}  // namespace
}  // namespace fdo_sdk
