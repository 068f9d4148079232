#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "sdk/runtime/thrown.h"
#include "testing/memory_provider/memory_connection.h"

namespace memory_provider {
namespace {

using fdo_sdk::MessageThrownBy;

class MemoryProvider : public MemoryConnection {};

TEST_F(MemoryProvider, IsFoundThroughTheRegistry) {
  FdoPtr<IProviderRegistry> registry = FdoFeatureAccessManager::GetProviderRegistry();
  FdoPtr<IConnectionManager> manager = FdoFeatureAccessManager::GetConnectionManager();
  // A run that was stopped half way leaves it behind.
  if (registry->GetProviders()->Contains(L"Quillon.Memory.1.0")) {
    registry->UnregisterProvider(L"Quillon.Memory.1.0");
  }
  registry->RegisterProvider(L"Quillon.Memory.1.0", L"Memory", L"", L"1.0.0.0", L"4.0.0.0",
                             L"quillon_memory_provider", false);
  for (FdoString* name : {L"Quillon.Memory", L"Quillon.Memory.1.0"}) {
    FdoPtr<FdoIConnection> connection = manager->CreateConnection(name);
    EXPECT_EQ(connection->GetRefCount(), 1);
    EXPECT_EQ(connection->GetConnectionState(), FdoConnectionState_Closed);
    FdoPtr<FdoIConnectionInfo> info = connection->GetConnectionInfo();
    EXPECT_STREQ(info->GetProviderName(), L"Quillon.Memory.1.0");
  }
  if (char const* folder = std::getenv("FDO_PROVIDERS_FOLDER")) {
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder) / "providers.xml"));
  }
  registry->UnregisterProvider(L"Quillon.Memory.1.0");
  MessageThrownBy<FdoClientServiceException>([&] { manager->CreateConnection(L"Quillon.Memory"); });
}

TEST_F(MemoryProvider, CommandsAndReadersReleaseTheConnection) {
  EXPECT_EQ(connection_->GetRefCount(), 1);
  for (FdoInt32 const type : {0, 1, 2, 3, 4, 6, 9, 11, 47, 48, 53}) {
    FdoPtr<FdoICommand> command = connection_->CreateCommand(type);
    EXPECT_EQ(command->GetRefCount(), 1);
    FdoPtr<FdoIConnection> of = command->GetConnection();
    EXPECT_EQ(of.p, connection_.p);
    EXPECT_EQ(connection_->GetRefCount(), 3);
  }
  EXPECT_EQ(connection_->GetRefCount(), 1);
  MessageThrownBy<FdoConnectionException>([&] { connection_->CreateCommand(FdoCommandType_SQLCommand); });
  MessageThrownBy<FdoConnectionException>([&] { connection_->BeginTransaction(); });
}

TEST_F(MemoryProvider, EveryCapabilityAnswers) {
  FdoInt32 size = 0;
  FdoPtr<FdoICommandCapabilities> commands = connection_->GetCommandCapabilities();
  FdoInt32* types = commands->GetCommands(size);
  EXPECT_EQ(size, 11);
  EXPECT_NE(std::find(types, types + size, 53), types + size);
  EXPECT_NE(FdoPtr<FdoIConnectionCapabilities>(connection_->GetConnectionCapabilities()), nullptr);
  EXPECT_NE(FdoPtr<FdoISchemaCapabilities>(connection_->GetSchemaCapabilities()), nullptr);
  EXPECT_NE(FdoPtr<FdoIFilterCapabilities>(connection_->GetFilterCapabilities()), nullptr);
  EXPECT_NE(FdoPtr<FdoIRasterCapabilities>(connection_->GetRasterCapabilities()), nullptr);
  EXPECT_NE(FdoPtr<FdoITopologyCapabilities>(connection_->GetTopologyCapabilities()), nullptr);
  EXPECT_NE(FdoPtr<FdoIGeometryCapabilities>(connection_->GetGeometryCapabilities()), nullptr);
  FdoPtr<FdoIExpressionCapabilities> expressions = connection_->GetExpressionCapabilities();
  FdoPtr<FdoFunctionDefinitionCollection> functions = expressions->GetFunctions();
  EXPECT_TRUE(functions->Contains(L"Count"));
}

TEST_F(MemoryProvider, StoresAreSharedByTheirFileName) {
  FdoPtr<FdoIConnection> first = Connect();
  FdoPtr<FdoICreateDataStore> create =
      static_cast<FdoICreateDataStore*>(first->CreateCommand(FdoCommandType_CreateDataStore));
  FdoPtr<FdoIDataStorePropertyDictionary> settings = create->GetDataStoreProperties();
  settings->SetProperty(L"File", L"shared");
  settings->SetProperty(L"UseFdoMetadata", L"TRUE");
  EXPECT_STREQ(settings->GetProperty(L"file"), L"shared");
  MessageThrownBy<FdoConnectionException>([&] { settings->SetProperty(L"Port", L"1"); });
  create->Execute();
  MessageThrownBy<FdoCommandException>([&] { create->Execute(); });

  first->SetConnectionString(L"File=\"missing\"");
  MessageThrownBy<FdoConnectionException>([&] { first->Open(); });
  first->SetConnectionString(L"File=\"shared\";UseFdoMetadata=TRUE;");
  EXPECT_EQ(first->Open(), FdoConnectionState_Open);
  MessageThrownBy<FdoConnectionException>([&] { first->SetConnectionString(L""); });
  FdoPtr<FdoIConnectionInfo> info = first->GetConnectionInfo();
  FdoPtr<FdoIConnectionPropertyDictionary> properties = info->GetConnectionProperties();
  MessageThrownBy<FdoConnectionException>([&] { properties->SetProperty(L"File", L"x"); });
  EXPECT_STREQ(properties->GetProperty(L"File"), L"shared");
  first->Close();
  MessageThrownBy<FdoCommandException>([&] {
    FdoPtr<FdoIDescribeSchema> describe =
        static_cast<FdoIDescribeSchema*>(first->CreateCommand(FdoCommandType_DescribeSchema));
    describe->Execute();
  });
}

TEST_F(MemoryProvider, BadConnectionStringsAreRefused) {
  FdoPtr<FdoIConnection> connection = Connect();
  for (FdoString* text : {L"File", L"File=\"open", L"Port=1;"}) {
    MessageThrownBy<FdoConnectionException>([&] { connection->SetConnectionString(text); });
  }
  EXPECT_STREQ(connection->GetConnectionString(), L"");
}

TEST_F(MemoryProvider, TheConfigurationIsReadFromItsStart) {
  FdoPtr<FdoIConnection> connection = Connect();
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  FdoPtr<FdoIoTextWriter>(FdoIoTextWriter::Create(stream))->Write(L"<configuration/>");
  connection->SetConfiguration(stream);
  EXPECT_EQ(stream->GetIndex(), stream->GetLength());
  EXPECT_EQ(stream->GetRefCount(), 1);
}

TEST_F(MemoryProvider, DescribesWhatWasApplied) {
  FdoPtr<FdoIDescribeSchema> describe = Make<FdoIDescribeSchema>(FdoCommandType_DescribeSchema);
  FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();
  ASSERT_EQ(schemas->GetCount(), 1);
  FdoPtr<FdoIDisposableCollection> found = schemas->FindClass(L"Roads:Street");
  ASSERT_EQ(found->GetCount(), 1);
  FdoPtr<FdoIDisposable> item = found->GetItem(0);
  auto* street = dynamic_cast<FdoFeatureClass*>(item.p);
  ASSERT_NE(street, nullptr);
  EXPECT_EQ(street->GetElementState(), FdoSchemaElementState_Unchanged);
  FdoPtr<FdoPropertyDefinitionCollection> properties = street->GetProperties();
  EXPECT_EQ(properties->GetCount(), 5);
  FdoPtr<FdoDataPropertyDefinitionCollection> identity = street->GetIdentityProperties();
  ASSERT_EQ(identity->GetCount(), 1);
  EXPECT_STREQ(FdoPtr<FdoDataPropertyDefinition>(identity->GetItem(0))->GetDescription(), L"7");
  FdoPtr<FdoGeometricPropertyDefinition> shape = street->GetGeometryProperty();
  EXPECT_STREQ(shape->GetSpatialContextAssociation(), L"WGS84");
  describe->SetSchemaName(L"Rails");
  MessageThrownBy<FdoSchemaException>([&] { describe->Execute(); });
}

TEST_F(MemoryProvider, AppliedSchemasAddToWhatIsThere) {
  FdoPtr<FdoIApplySchema> apply = Make<FdoIApplySchema>(FdoCommandType_ApplySchema);
  FdoPtr<FdoFeatureSchema> schema = Streets();
  FdoPtr<FdoClassCollection> classes = schema->GetClasses();
  FdoPtr<FdoClassDefinition> street = classes->GetItem(0);
  FdoPtr<FdoDataPropertyDefinition> width = FdoDataPropertyDefinition::Create(L"Width", nullptr);
  width->SetDataType(FdoDataType_Double);
  FdoPtr<FdoPropertyDefinitionCollection>(street->GetProperties())->Add(width);
  apply->SetFeatureSchema(schema);
  MessageThrownBy<FdoSchemaException>([&] { apply->Execute(); });
  EXPECT_EQ(schema->GetElementState(), FdoSchemaElementState_Added);
  apply->SetIgnoreStates(true);
  apply->Execute();
  EXPECT_EQ(schema->GetElementState(), FdoSchemaElementState_Unchanged);
  EXPECT_EQ(Ids(L"Width NULL"), "1,2,3");
  EXPECT_EQ(Ids(L"Name = 'Low'"), "2");
}

TEST_F(MemoryProvider, SpatialContextsAreListedInOrder) {
  for (FdoString* name : {L"WGS84", L"Local"}) {
    FdoPtr<FdoICreateSpatialContext> create =
        Make<FdoICreateSpatialContext>(FdoCommandType_CreateSpatialContext);
    create->SetName(name);
    create->SetCoordinateSystem(L"4326");
    create->SetCoordinateSystemWkt(L"GEOGCS[]");
    create->Execute();
    MessageThrownBy<FdoCommandException>([&] { create->Execute(); });
    create->SetUpdateExisting(true);
    create->Execute();
  }
  FdoPtr<FdoIGetSpatialContexts> get = Make<FdoIGetSpatialContexts>(FdoCommandType_GetSpatialContexts);
  FdoPtr<FdoISpatialContextReader> reader = get->Execute();
  MessageThrownBy<FdoCommandException>([&] { reader->GetName(); });
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_STREQ(reader->GetName(), L"WGS84");
  EXPECT_STREQ(reader->GetCoordinateSystem(), L"4326");
  EXPECT_STREQ(reader->GetCoordinateSystemWkt(), L"GEOGCS[]");
  EXPECT_TRUE(reader->IsActive());
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_FALSE(reader->IsActive());
  EXPECT_FALSE(reader->ReadNext());
  EXPECT_FALSE(reader->ReadNext());
}

TEST_F(MemoryProvider, ReadersKeepTheSelectsOrderOfProperties) {
  FdoPtr<FdoISelect> select = Make<FdoISelect>(FdoCommandType_Select);
  select->SetFeatureClassName(L"Street");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  for (FdoString* name : {L"Shape", L"Name", L"Lanes"}) {
    names->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
  }
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  MessageThrownBy<FdoCommandException>([&] { reader->GetString(1); });
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_STREQ(reader->GetPropertyName(2), L"Lanes");
  EXPECT_EQ(reader->GetPropertyIndex(L"Shape"), 0);
  EXPECT_STREQ(reader->GetString(1), L"High");
  EXPECT_EQ(reader->GetInt16(2), 4);
  FdoInt32 count = 0;
  FdoByte const* bytes = reader->GetGeometry(L"Shape", &count);
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(count, 24);
  FdoPtr<FdoByteArray> shared = reader->GetGeometry(L"Shape");
  EXPECT_EQ(shared->GetCount(), 24);
  MessageThrownBy<FdoCommandException>([&] { reader->GetInt32(2); });
  MessageThrownBy<FdoCommandException>([&] { reader->GetString(L"Id"); });
  MessageThrownBy<FdoCommandException>([&] { reader->GetString(3); });
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  EXPECT_EQ(FdoPtr<FdoPropertyDefinitionCollection>(definition->GetProperties())->GetCount(), 3);
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_TRUE(reader->IsNull(L"Lanes"));
  MessageThrownBy<FdoCommandException>([&] { reader->GetInt16(L"Lanes"); });
  reader->Close();
  MessageThrownBy<FdoCommandException>([&] { reader->ReadNext(); });
}

TEST_F(MemoryProvider, OrdersByEachPropertyItsOwnWay) {
  FdoPtr<FdoIExtendedSelect> select = Make<FdoIExtendedSelect>(FdoCommandType_ExtendedSelect);
  select->SetFeatureClassName(L"Street");
  FdoPtr<FdoIdentifierCollection> ordering = select->GetOrdering();
  ordering->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(L"Lanes")));
  FdoPtr<FdoIFeatureReader> ascending = select->Execute();
  EXPECT_EQ(IdsOf(ascending), "2,3,1");
  select->SetOrderingOption(L"Lanes", FdoOrderingOption_Descending);
  FdoPtr<FdoIScrollableFeatureReader> reader = select->ExecuteScrollable();
  EXPECT_EQ(IdsOf(reader), "1,3,2");
  EXPECT_EQ(reader->Count(), 3);
  ASSERT_TRUE(reader->ReadFirst());
  EXPECT_EQ(reader->GetInt32(L"Id"), 1);
  ASSERT_TRUE(reader->ReadLast());
  EXPECT_EQ(reader->GetInt32(L"Id"), 2);
  ASSERT_TRUE(reader->ReadPrevious());
  ASSERT_TRUE(reader->ReadAtIndex(1));
  EXPECT_FALSE(reader->ReadAtIndex(4));
  FdoPtr<FdoPropertyValueCollection> key = FdoPropertyValueCollection::Create();
  AddText(key, L"Id", L"3");
  EXPECT_EQ(reader->IndexOf(key), 2u);
  select->ClearOrderingOptions();
  FdoPtr<FdoIFeatureReader> again = select->Execute();
  EXPECT_EQ(IdsOf(again), "2,3,1");
}

TEST_F(MemoryProvider, CountsAndExtentsComeUnderTheirNames) {
  FdoPtr<FdoISelectAggregates> select = Make<FdoISelectAggregates>(FdoCommandType_SelectAggregates);
  select->SetFeatureClassName(L"Street");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  FdoString* const texts[][2] = {
      {L"All", L"Count()"}, {L"WithLanes", L"Count(\"Lanes\")"}, {L"Extents", L"SpatialExtents(Shape)"}};
  for (auto const& text : texts) {
    FdoPtr<FdoExpression> expression = FdoExpression::Parse(text[1]);
    names->Add(FdoPtr<FdoComputedIdentifier>(FdoComputedIdentifier::Create(text[0], expression)));
  }
  FdoPtr<FdoIDataReader> reader = select->Execute();
  EXPECT_EQ(reader->GetPropertyCount(), 3);
  EXPECT_EQ(reader->GetDataType(L"All"), FdoDataType_Int64);
  EXPECT_EQ(reader->GetPropertyType(2), FdoPropertyType_GeometricProperty);
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"All"), 3);
  EXPECT_EQ(reader->GetInt64(L"WithLanes"), 2);
  FdoPtr<FdoByteArray> extents = reader->GetGeometry(L"Extents");
  double corners[4] = {};
  std::memcpy(corners, extents->GetData() + 16, 16);
  std::memcpy(corners + 2, extents->GetData() + 48, 16);
  EXPECT_EQ(std::vector<double>(corners, corners + 4), (std::vector<double>{0, 0, 10, 5}));
  EXPECT_FALSE(reader->ReadNext());

  select->SetFilter(L"Shape NULL");
  reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"All"), 1);
  EXPECT_TRUE(reader->IsNull(L"Extents"));
}

TEST_F(MemoryProvider, MakesIdentitiesAndTakesThem) {
  FdoPtr<FdoIInsert> insert = Make<FdoIInsert>(FdoCommandType_Insert);
  insert->SetFeatureClassName(L"Street");
  FdoPtr<FdoPropertyValueCollection> values = insert->GetPropertyValues();
  AddText(values, L"Id", L"40");
  FdoPtr<FdoIFeatureReader> reader = insert->Execute();
  MessageThrownBy<FdoCommandException>([&] { insert->Execute(); });
  EXPECT_EQ(Insert(L"Next", L"1", L"NULL"), 41);
  EXPECT_EQ(Ids(nullptr), "1,2,3,40,41");
}

TEST_F(MemoryProvider, UpdatesLeaveOpenReadersAlone) {
  FdoPtr<FdoISelect> select = Make<FdoISelect>(FdoCommandType_Select);
  select->SetFeatureClassName(L"Street");
  FdoPtr<FdoIFeatureReader> before = select->Execute();
  FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(FdoCommandType_Update);
  update->SetFeatureClassName(L"Street");
  update->SetFilter(L"Lanes > 1");
  FdoPtr<FdoPropertyValueCollection> values = update->GetPropertyValues();
  AddText(values, L"Name", L"'Wide'");
  EXPECT_EQ(update->Execute(), 2);
  EXPECT_EQ(Ids(L"Name = 'Wide'"), "1,3");
  ASSERT_TRUE(before->ReadNext());
  EXPECT_STREQ(before->GetString(L"Name"), L"High");
  AddText(values, L"Lanes", L"'many'");
  MessageThrownBy<FdoExpressionException>([&] { update->Execute(); });
  EXPECT_EQ(Ids(L"Lanes = 4"), "1");
}

TEST_F(MemoryProvider, DeletesWhatTheFilterSelects) {
  FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(FdoCommandType_Delete);
  remove->SetFeatureClassName(L"Street");
  remove->SetFilter(L"Id > 1");
  EXPECT_EQ(remove->Execute(), 2);
  EXPECT_EQ(Ids(nullptr), "1");
  remove->SetFilter(static_cast<FdoFilter*>(nullptr));
  EXPECT_EQ(remove->Execute(), 1);
  remove->SetFeatureClassName(L"Rail");
  MessageThrownBy<FdoCommandException>([&] { remove->Execute(); });
}

}  // namespace
}  // namespace memory_provider
