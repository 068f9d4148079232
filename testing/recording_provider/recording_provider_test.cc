#include <gtest/gtest.h>

#include <algorithm>

#include "sdk/runtime/thrown.h"
#include "testing/recording_provider/recorder.h"

namespace recording_provider {
namespace {

using fdo_sdk::MessageThrownBy;

class RecordingProvider : public testing::Test {
 protected:
  RecordingProvider() {
    recorder_->answers.schemas = {
        SchemaOf(L"Land", {ClassOf(L"parcels", {Id(L"id", FdoDataType_Int64, L"7"),
                                                Data(L"name", FdoDataType_String), Geometry(L"shape")})})};
    recorder_->answers.selects[L"parcels"] =
        Rows({Id(L"id"), Data(L"name", FdoDataType_String), Geometry(L"shape")})
            .Add({1, L"High", std::vector<unsigned char>{1, 2, 3}})
            .Add({2, nullptr, nullptr});
  }

  FdoPtr<FdoIConnection> Opened() {
    FdoPtr<FdoIConnection> connection(NewConnection(recorder_));
    connection->Open();
    recorder_->TakeLog();
    return connection;
  }

  template <class Command>
  static FdoPtr<Command> Make(FdoIConnection* connection, FdoInt32 type) {
    return FdoPtr<Command>(static_cast<Command*>(connection->CreateCommand(type)));
  }

  static void AddName(FdoIdentifierCollection* collection, FdoString* name) {
    FdoPtr<FdoIdentifierCollection> held(collection);
    held->Add(FdoPtr<FdoIdentifier>(FdoIdentifier::Create(name)));
  }

  static void AddComputed(FdoIdentifierCollection* collection, FdoString* name, FdoString* expression) {
    FdoPtr<FdoIdentifierCollection> held(collection);
    FdoPtr<FdoExpression> parsed = FdoExpression::Parse(expression);
    held->Add(FdoPtr<FdoComputedIdentifier>(FdoComputedIdentifier::Create(name, parsed)));
  }

  static void AddValue(FdoPropertyValueCollection* collection, FdoString* name, FdoString* value) {
    FdoPtr<FdoPropertyValueCollection> held(collection);
    FdoPtr<FdoPropertyValue> pair = FdoPropertyValue::Create(name, nullptr);
    if (value != nullptr) pair->SetValue(value);
    held->Add(pair);
  }

  std::shared_ptr<Recorder> recorder_ = std::make_shared<Recorder>();
};

TEST_F(RecordingProvider, WritesDownAConnection) {
  FdoPtr<FdoIConnection> connection(NewConnection(recorder_));
  connection->SetConnectionString(L"File=\"\u00e4\";");
  FdoPtr<FdoIoMemoryStream> stream = FdoIoMemoryStream::Create();
  FdoPtr<FdoIoTextWriter> writer = FdoIoTextWriter::Create(stream);
  writer->Write(L"<config/>");
  connection->SetConfiguration(stream);
  EXPECT_EQ(connection->Open(), FdoConnectionState_Open);
  EXPECT_STREQ(connection->GetConnectionString(), L"File=\"\u00e4\";");
  recorder_->answers.connectionString = L"other";
  EXPECT_STREQ(connection->GetConnectionString(), L"other");
  connection->Flush();
  connection->Close();
  EXPECT_EQ(recorder_->TakeLog(),
            "connection string File=\"\xc3\xa4\";\n"
            "configuration <config/>\n"
            "open\nflush\nclose\n");
  EXPECT_EQ(recorder_->TakeLog(), "");
  EXPECT_EQ(recorder_->LiveObjects(), 1);
  connection = nullptr;
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(RecordingProvider, WritesDownASelectWithAllItsParts) {
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoIExtendedSelect> select = Make<FdoIExtendedSelect>(connection, 53);
  select->SetFeatureClassName(L"Land:parcels");
  AddName(select->GetPropertyNames(), L"shape");
  AddName(select->GetPropertyNames(), L"id");
  AddName(select->GetOrdering(), L"name");
  AddName(select->GetOrdering(), L"id");
  select->SetOrderingOption(L"name", FdoOrderingOption_Descending);
  select->SetFilter(L"id = 5");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(FdoInt32{1}), 1) << "positions are those of the select";
  reader->Close();
  EXPECT_EQ(recorder_->TakeLog(),
            "make 53\n"
            "select 53 class=Land:parcels properties=[shape,id] filter=id = 5 "
            "ordering=[name descending,id]\n"
            "close reader\n");
}

TEST_F(RecordingProvider, AnswersRowsByNameAndPosition) {
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, 0);
  select->SetFeatureClassName(L"parcels");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  EXPECT_STREQ(definition->GetName(), L"parcels");
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"id"), 1);
  EXPECT_STREQ(reader->GetString(FdoInt32{1}), L"High");
  FdoInt32 count = 0;
  EXPECT_EQ(reader->GetGeometry(L"shape", &count)[2], 3);
  EXPECT_EQ(count, 3);
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_TRUE(reader->IsNull(L"name"));
  EXPECT_FALSE(reader->ReadNext());
  AddName(select->GetPropertyNames(), L"height");
  EXPECT_EQ(MessageThrownBy<FdoCommandException>([&] { FdoPtr<FdoIFeatureReader>(select->Execute()); }),
            L"There is no answer for the property \"height\".");
  select->SetFeatureClassName(L"streets");
  reader = select->Execute();
  EXPECT_FALSE(reader->ReadNext()) << "a class without an answer has no rows";
}

TEST_F(RecordingProvider, MakesValuesOfEveryColumnType) {
  FdoDateTime const day(FdoInt16{2024}, FdoInt8{3}, FdoInt8{1});
  std::vector<unsigned char> const bytes = {0, 255};
  recorder_->answers.selects[L"all"] =
      Rows({Data(L"flag", FdoDataType_Boolean), Data(L"byte", FdoDataType_Byte),
            Data(L"day", FdoDataType_DateTime), Data(L"decimal", FdoDataType_Decimal),
            Data(L"double", FdoDataType_Double), Data(L"int16", FdoDataType_Int16),
            Data(L"int32", FdoDataType_Int32), Data(L"int64", FdoDataType_Int64),
            Data(L"single", FdoDataType_Single), Data(L"text", FdoDataType_String),
            Data(L"blob", FdoDataType_BLOB), Data(L"clob", FdoDataType_CLOB)})
          .Add({true, 8, day, 2.5, 3.5, 16, 32, 64, 4.5, L"t", bytes, bytes});
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, 0);
  select->SetFeatureClassName(L"all");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_TRUE(reader->GetBoolean(L"flag"));
  EXPECT_EQ(reader->GetByte(L"byte"), 8);
  EXPECT_EQ(reader->GetDateTime(L"day").month, 3);
  EXPECT_EQ(reader->GetDouble(L"decimal"), 2.5);
  EXPECT_EQ(reader->GetDouble(L"double"), 3.5);
  EXPECT_EQ(reader->GetInt16(L"int16"), 16);
  EXPECT_EQ(reader->GetInt32(L"int32"), 32);
  EXPECT_EQ(reader->GetInt64(L"int64"), 64);
  EXPECT_EQ(reader->GetSingle(L"single"), 4.5f);
  EXPECT_STREQ(reader->GetString(L"text"), L"t");
  for (FdoString* name : {L"blob", L"clob"}) {
    FdoPtr<FdoLOBValue> value = reader->GetLOB(name);
    FdoPtr<FdoByteArray> data = value->GetData();
    ASSERT_EQ(data->GetCount(), 2);
    EXPECT_EQ((*data)[1], 255);
  }
}

TEST_F(RecordingProvider, WritesDownAggregatesWithComputedIdentifiersAsText) {
  recorder_->answers.aggregates = Rows({Data(L"TheCount", FdoDataType_Int64), Geometry(L"Extents")})
                                      .Add({42, std::vector<unsigned char>{9}});
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoISelectAggregates> aggregates = Make<FdoISelectAggregates>(connection, 47);
  aggregates->SetFeatureClassName(L"parcels");
  AddComputed(aggregates->GetPropertyNames(), L"TheCount", L"Count(\"id\")");
  AddComputed(aggregates->GetPropertyNames(), L"Extents", L"SpatialExtents(shape)");
  FdoPtr<FdoIDataReader> reader = aggregates->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"TheCount"), 42);
  FdoPtr<FdoByteArray> extents = reader->GetGeometry(L"Extents");
  EXPECT_EQ(extents->GetCount(), 1);
  EXPECT_EQ(recorder_->TakeLog(),
            "make 47\naggregate 47 class=parcels "
            "properties=[Count(id) AS TheCount,SpatialExtents(shape) AS Extents]\n");
}

TEST_F(RecordingProvider, WritesDownChangesAndGivesTheStatedCounts) {
  recorder_->answers.inserted = Rows({Id(L"id")}).Add({77});
  recorder_->answers.updated = 3;
  recorder_->answers.removed = 2;
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoIInsert> insert = Make<FdoIInsert>(connection, 1);
  insert->SetFeatureClassName(L"parcels");
  AddValue(insert->GetPropertyValues(), L"name", L"'x'");
  AddValue(insert->GetPropertyValues(), L"shape", L"NULL");
  AddValue(insert->GetPropertyValues(), L"id", nullptr);
  FdoPtr<FdoIFeatureReader> reader = insert->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_EQ(reader->GetInt64(L"id"), 77);
  FdoPtr<FdoIUpdate> update = Make<FdoIUpdate>(connection, 3);
  update->SetFeatureClassName(L"parcels");
  update->SetFilter(L"id = 1");
  AddValue(update->GetPropertyValues(), L"name", L"'y'");
  EXPECT_EQ(update->Execute(), 3);
  FdoPtr<FdoIDelete> remove = Make<FdoIDelete>(connection, 2);
  remove->SetFeatureClassName(L"parcels");
  EXPECT_EQ(remove->Execute(), 2);
  EXPECT_EQ(recorder_->TakeLog(),
            "make 1\ninsert 1 class=parcels values=[name='x',shape=NULL,id=]\n"
            "make 3\nupdate 3 class=parcels filter=id = 1 values=[name='y']\n"
            "make 2\ndelete 2 class=parcels\n");
}

TEST_F(RecordingProvider, WritesDownSchemasContextsAndStores) {
  FdoPtr<FdoIConnection> closed(NewConnection(recorder_));
  FdoPtr<FdoICreateDataStore> store = Make<FdoICreateDataStore>(closed, 48);
  FdoPtr<FdoIDataStorePropertyDictionary> properties = store->GetDataStoreProperties();
  properties->SetProperty(L"File", L"a.sqlite");
  properties->SetProperty(L"UseFdoMetadata", L"TRUE");
  store->Execute();
  EXPECT_EQ(recorder_->TakeLog(), "make 48\nstore 48 File=a.sqlite UseFdoMetadata=TRUE\n");

  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoICreateSpatialContext> context = Make<FdoICreateSpatialContext>(connection, 9);
  context->SetName(L"N");
  context->SetCoordinateSystem(L"C");
  context->SetCoordinateSystemWkt(L"W");
  context->Execute();
  FdoPtr<FdoIApplySchema> apply = Make<FdoIApplySchema>(connection, 6);
  FdoPtr<FdoFeatureSchema> schema =
      SchemaOf(L"S", {ClassOf(L"c", {Id(L"id", FdoDataType_Int32, L"7"), Data(L"n", FdoDataType_Double),
                                     Geometry(L"g", L"N")})});
  apply->SetFeatureSchema(schema);
  apply->SetIgnoreStates(true);
  apply->Execute();
  EXPECT_EQ(recorder_->TakeLog(),
            "make 9\ncontext 9 name=N system=C wkt=W\n"
            "make 6\napply 6 ignoring states schema=S classes=[c{id:Int32 identity not null \"7\",n:Double,"
            "g:geometry 15 in N designated}]\n");
}

TEST_F(RecordingProvider, DescribesTheStatedSchemasAndContexts) {
  SpatialContext context;
  context.name = L"N";
  context.wkt = L"W";
  recorder_->answers.spatialContexts = {context};
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoIGetSpatialContexts> get = Make<FdoIGetSpatialContexts>(connection, 11);
  FdoPtr<FdoISpatialContextReader> reader = get->Execute();
  ASSERT_TRUE(reader->ReadNext());
  EXPECT_STREQ(reader->GetName(), L"N");
  EXPECT_STREQ(reader->GetCoordinateSystemWkt(), L"W");
  EXPECT_FALSE(reader->ReadNext());
  FdoPtr<FdoIDescribeSchema> describe = Make<FdoIDescribeSchema>(connection, 4);
  FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();
  ASSERT_EQ(schemas->GetCount(), 1);
  FdoPtr<FdoFeatureSchema> schema = schemas->GetItem(0);
  EXPECT_STREQ(schema->GetName(), L"Land");
  EXPECT_EQ(recorder_->TakeLog(), "make 11\ncontexts 11\nmake 4\ndescribe 4\n");
  recorder_->answers.schemas.reset();
  EXPECT_EQ(describe->Execute(), nullptr);
}

TEST_F(RecordingProvider, GivesNullReadersWhereToldTo) {
  recorder_->answers.nullResults = {0, 1, 11, 47};
  FdoPtr<FdoIConnection> connection = Opened();
  EXPECT_EQ(Make<FdoISelect>(connection, 0)->Execute(), nullptr);
  EXPECT_EQ(Make<FdoIInsert>(connection, 1)->Execute(), nullptr);
  EXPECT_EQ(Make<FdoIGetSpatialContexts>(connection, 11)->Execute(), nullptr);
  EXPECT_EQ(Make<FdoISelectAggregates>(connection, 47)->Execute(), nullptr);
}

TEST_F(RecordingProvider, ListsTheStatedCommands) {
  recorder_->answers.commands = {0, 4};
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoICommandCapabilities> capabilities = connection->GetCommandCapabilities();
  FdoInt32 size = 0;
  FdoInt32 const* commands = capabilities->GetCommands(size);
  EXPECT_EQ(std::vector<FdoInt32>(commands, commands + size), (std::vector<FdoInt32>{0, 4}));
}

TEST_F(RecordingProvider, FailsAtTheNamedCallAndOnlyThere) {
  FdoPtr<FdoIConnection> connection(NewConnection(recorder_));
  recorder_->ThrowAt(2);
  connection->SetConnectionString(L"a");
  EXPECT_FALSE(recorder_->Threw());
  EXPECT_EQ(MessageThrownBy<FdoException>([&] { connection->Open(); }), Recorder::MessageOfCall(2));
  EXPECT_EQ(Recorder::MessageOfCall(2), L"The provider fails at call 2.");
  EXPECT_TRUE(recorder_->Threw());
  EXPECT_EQ(connection->Open(), FdoConnectionState_Open);
  EXPECT_EQ(recorder_->Calls(), 3);
  EXPECT_EQ(recorder_->TakeLog(), "connection string a\nopen\n") << "the failing call does nothing";
}

TEST_F(RecordingProvider, EveryCallOfASelectCountsOnce) {
  FdoPtr<FdoIConnection> connection = Opened();
  recorder_->ThrowAt(0);
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, 0);  // 1
  select->SetFeatureClassName(L"parcels");                      // 2
  select->SetFilter(static_cast<FdoFilter*>(nullptr));          // 3
  AddName(select->GetPropertyNames(), L"id");                   // 4; Add is the collection's own
  FdoPtr<FdoIFeatureReader> reader = select->Execute();         // 5
  reader->ReadNext();                                           // 6
  reader->IsNull(L"id");                                        // 7
  reader->GetInt64(FdoInt32{0});                                // 8
  reader->Close();                                              // 9
  EXPECT_EQ(recorder_->Calls(), 9);
}

TEST_F(RecordingProvider, EveryFailureLeavesNothingAliveWhenReferencesAreHeldInPointers) {
  int const failures = FailEveryCall(*recorder_, [&](int n) {
    try {
      FdoPtr<FdoIConnection> connection(NewConnection(recorder_));
      connection->Open();  // 1
      FdoPtr<FdoIDescribeSchema> describe =
          Make<FdoIDescribeSchema>(connection, FdoCommandType_DescribeSchema);  // 2
      FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();         // 3
      FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, 0);              // 4
      select->SetFeatureClassName(L"parcels");                                  // 5
      FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();       // 6
      FdoPtr<FdoIFeatureReader> reader = select->Execute();                     // 7
      FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();     // 8
    } catch (FdoException* raised) {
      FdoPtr<FdoException> failure(raised);
      EXPECT_EQ(failure->GetExceptionMessage(), Recorder::MessageOfCall(n));
    }
    EXPECT_EQ(recorder_->LiveObjects(), 0) << "call " << n;
  });
  EXPECT_EQ(failures, 8);
}

TEST_F(RecordingProvider, CountsWhatIsNotReleased) {
  FdoPtr<FdoIConnection> connection = Opened();
  FdoPtr<FdoISelect> select = Make<FdoISelect>(connection, 0);
  select->SetFeatureClassName(L"parcels");
  FdoPtr<FdoIdentifierCollection> names = select->GetPropertyNames();
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  FdoPtr<FdoByteArray> shape = reader->GetGeometry(L"shape");
  FdoPtr<FdoClassDefinition> definition = reader->GetClassDefinition();
  FdoPtr<FdoIDescribeSchema> describe = Make<FdoIDescribeSchema>(connection, 4);
  FdoPtr<FdoFeatureSchemaCollection> schemas = describe->Execute();
  FdoPtr<FdoIFilterCapabilities> capabilities = connection->GetFilterCapabilities();
  struct Release {
    char const* what;
    std::function<void()> release;
  };
  Release const inTurn[] = {
      {"collection of schemas", [&] { schemas = nullptr; }},
      {"describe command", [&] { describe = nullptr; }},
      {"reader", [&] { reader = nullptr; }},
      {"definition", [&] { definition = nullptr; }},
      {"geometry", [&] { shape = nullptr; }},
      {"select; its collection is still held", [&] { select = nullptr; }},
      {"collection of names", [&] { names = nullptr; }},
      {"capabilities", [&] { capabilities = nullptr; }},
      {"connection", [&] { connection = nullptr; }},
  };
  for (Release const& step : inTurn) {
    EXPECT_GT(recorder_->LiveObjects(), 0) << "before the release of the " << step.what;
    step.release();
  }
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(RecordingProvider, IsAProviderOfTheRegistryToo) {
  FdoPtr<IConnectionManager> manager = FdoFeatureAccessManager::GetConnectionManager();
  SetLibraryRecorder(recorder_);
  FdoPtr<FdoIConnection> connection = manager->CreateConnection(kProviderName);
  connection->Open();
  EXPECT_EQ(recorder_->TakeLog(), "open\n");
  FdoPtr<FdoIConnectionInfo> info = connection->GetConnectionInfo();
  EXPECT_STREQ(info->GetProviderName(), kProviderName);
  SetLibraryRecorder(nullptr);
}

}  // namespace
}  // namespace recording_provider
