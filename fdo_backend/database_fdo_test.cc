#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <gtest/gtest.h>

#include <clocale>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "fdo_backend/testing/recorded_store.h"
#include "testing/schema_builder.h"

namespace fdo {
namespace {

using recording_provider::ClassOf;
using recording_provider::Data;
using recording_provider::Geometry;
using recording_provider::Id;
using recording_provider::SchemaOf;
using Lines = std::vector<std::wstring>;

// What is asked to learn a schema: the spatial contexts first, then the classes.
constexpr char kSchemaRead[] =
    "make 11\n"
    "contexts 11\n"
    "make 4\n"
    "describe 4\n";

class DatabaseFdoTest : public RecordedStore {
 protected:
  FdoPtr<FdoIConnection> OpenConnection() {
    FdoPtr<FdoIConnection> connection = recording_provider::NewConnection(recorder_);
    connection->SetConnectionString(L"adopted");
    connection->Open();
    recorder_->TakeLog();
    return connection;
  }

  static Lines NamesOf(Database const& database) {
    Lines names;
    for (int i = 0; i < database.Count(); ++i) {
      names.push_back(std::wstring((*database.Def())[i].SchemaName()) + L":" + (*database.Def())[i].Name());
    }
    return names;
  }
};

TEST_F(DatabaseFdoTest, AFileAloneIsOpenedByItsExtension) {
  recorder_->answers.connectionString = L"File=\"/complete/x.sqlite\"";
  DatabaseFdo database;
  database.SetConnId(L"kept");
  ASSERT_TRUE(database.Connect(L"x.sqlite", nullptr, nullptr, false, true));
  EXPECT_EQ(recorder_->TakeLog(),
            std::string("connection string File=\"x.sqlite\";UseFdoMetadata=TRUE\nopen\n") + kSchemaRead +
                "make 0\n"
                "select 0 class=Land:parcel\n"
                "close reader\n"
                "make 0\n"
                "select 0 class=Land:owner\n"
                "close reader\n");
  EXPECT_STREQ(database.ProviderName(), L"OSGeo.SQLite") << "not the registered name with its version";
  EXPECT_STREQ(database.ConnectionString(), L"File=\"/complete/x.sqlite\"") << "what the connection says";
  EXPECT_STREQ(database.ConnId(), L"kept");
  EXPECT_EQ(diagnostics_.Lines(), Lines());
  ASSERT_EQ(NamesOf(database), (Lines{L"Land:parcel", L"Land:owner"}));
  EXPECT_STREQ(database.Def()->Name(), L"Land");
  EXPECT_NE(database[L"Land:owner"], nullptr);
  TableDef const& parcel = (*database.Def())[0];
  EXPECT_EQ(database[0].Def(), &parcel);
  EXPECT_EQ(parcel.IndexOfID(), 0);
  EXPECT_EQ(parcel.Tag(), 7);
  ASSERT_EQ(parcel.IndexOfGeom(), 2);
  ASSERT_NE(parcel.Geom().SRS(), nullptr);
  EXPECT_STREQ(parcel.Geom().SRS()->Code(), L"EPSG:4326");
  EXPECT_STREQ(parcel.Geom().SRS()->Wkt(), L"GEOGCS[]");
}

TEST_F(DatabaseFdoTest, WithAProviderTheSourceIsTheConnectionString) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"Service=a;Name=b", L"OSGeo.SDF", L"<config/>", true, true));
  EXPECT_EQ(recorder_->TakeLog(),
            std::string("connection string Service=a;Name=b\nconfiguration <config/>\nopen\n") + kSchemaRead)
      << "other providers describe their classes well enough";
  EXPECT_STREQ(database.ProviderName(), L"OSGeo.SDF");
  EXPECT_STREQ(database.ConnectionString(), L"Service=a;Name=b");
  EXPECT_EQ(NamesOf(database), (Lines{L"Land:parcel", L"Land:owner"}));
}

TEST_F(DatabaseFdoTest, AnEmptyProviderIsNone) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"a.sdf", L"", L"", false, false));
  EXPECT_EQ(recorder_->TakeLog(), "connection string File=\"a.sdf\"; ReadOnly=true\nopen\n");
}

TEST_F(DatabaseFdoTest, TheSchemaIsReadOnlyWhenAskedFor) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, false));
  EXPECT_EQ(recorder_->TakeLog(), "connection string x\nopen\n");
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(database.Def(), nullptr);
  database.Disconnect();
  EXPECT_EQ(recorder_->TakeLog(), "close\n");
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(DatabaseFdoTest, AnUnknownExtensionLeavesItDisconnected) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_FALSE(database.Connect(L"x.gpkg", nullptr, nullptr, false, true));
  EXPECT_EQ(diagnostics_.Lines(), Lines{L"Failed to map file extension to FDO provider"});
  EXPECT_EQ(database.FdoConnection(), nullptr);
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(recorder_->LiveObjects(), 0) << "the connection before is gone";
}

TEST_F(DatabaseFdoTest, ConnectingAgainClosesWhatWasOpen) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"first", L"OSGeo.SDF", nullptr, false, true));
  recorder_->TakeLog();
  ASSERT_TRUE(database.Connect(L"second", L"OSGeo.SDF", nullptr, false, false));
  EXPECT_EQ(recorder_->TakeLog(), "close\nconnection string second\nopen\n");
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(recorder_->LiveObjects(), 1);
}

TEST_F(DatabaseFdoTest, SeveralSchemasHaveNoOneName) {
  recorder_->answers.schemas->push_back(SchemaOf(L"Water", {ClassOf(L"lake", {Id(L"id")})}));
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_STREQ(database.Def()->Name(), L"");
  EXPECT_EQ(NamesOf(database), (Lines{L"Land:parcel", L"Land:owner", L"Water:lake"}));
}

TEST_F(DatabaseFdoTest, AStoreWithoutClassesIsConnectedAndEmpty) {
  recorder_->answers.schemas = {SchemaOf(L"Land", {})};
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  ASSERT_NE(database.Def(), nullptr);
  EXPECT_STREQ(database.Def()->Name(), L"Land");
  EXPECT_EQ(database.Count(), 0);
  recorder_->answers.schemas->clear();
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  ASSERT_NE(database.Def(), nullptr);
  EXPECT_STREQ(database.Def()->Name(), L"");
  EXPECT_EQ(diagnostics_.Lines(), Lines());
}

TEST_F(DatabaseFdoTest, WithoutADescriptionTheConnectionStaysOpenAndOwned) {
  recorder_->answers.schemas.reset();
  recorder_->answers.connectionString = L"another";
  DatabaseFdo database;
  EXPECT_FALSE(database.Connect(L"the string", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_EQ(diagnostics_.Lines(),
            Lines{L"FDO connection failure: schema initialization failed, ConnStr: the string"});
  EXPECT_EQ(database.Count(), 0);
  FdoPtr<FdoIConnection> connection = database.FdoConnection();
  ASSERT_NE(connection, nullptr);
  EXPECT_EQ(connection->GetConnectionState(), FdoConnectionState_Open);
  connection = nullptr;
  recorder_->TakeLog();
  database.Disconnect();
  EXPECT_EQ(recorder_->TakeLog(), "close\n");
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

// The connection was opened, and its string asked for, when the spatial contexts fail.
TEST_F(DatabaseFdoTest, AnExceptionLeavesTheConnectionOwnedAsItWas) {
  constexpr int kMakeSpatialContexts = 4;
  for (bool const ownedBefore : {false, true}) {
    DatabaseFdo database;
    if (ownedBefore) {
      ASSERT_TRUE(database.Connect(L"before", L"OSGeo.SDF", nullptr, false, false));
    }
    database.Disconnect();
    diagnostics_.Forget();
    recorder_->ThrowAt(kMakeSpatialContexts);
    EXPECT_FALSE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
    recorder_->ThrowAt(0);
    EXPECT_EQ(diagnostics_.Lines(),
              Lines{L"FDO connection failure: The provider fails at call 4., ConnStr: x"});
    EXPECT_EQ(recorder_->LiveObjects(), 1) << "the connection is kept";
    EXPECT_STREQ(database.ProviderName(), L"OSGeo.SDF");
    recorder_->TakeLog();
    database.Disconnect();
    EXPECT_EQ(recorder_->TakeLog(), ownedBefore ? "close\n" : "");
    EXPECT_EQ(recorder_->LiveObjects(), 0);
  }
}

TEST_F(DatabaseFdoTest, AClassThatCannotBeSelectedLeavesAnEmptyTableAtTheEnd) {
  constexpr wchar_t kLine[] = L"Can't query db object: parcel, ConnStr: what it says";
  recorder_->answers.connectionString = L"what it says";
  int failures = 0;
  recording_provider::FailEveryCall(*recorder_, [&](int n) {
    diagnostics_.Forget();
    DatabaseFdo database;
    bool const connected = database.Connect(L"x", L"OSGeo.SQLite", nullptr, false, true);
    if (diagnostics_.Lines() != Lines{kLine}) return;
    ++failures;
    EXPECT_TRUE(connected) << n;
    EXPECT_EQ(NamesOf(database), (Lines{L"Land:owner", L":"})) << n;
    EXPECT_EQ((*database.Def())[1].ColumnCount(), 0);
    EXPECT_EQ(database[1].Def(), &(*database.Def())[1]) << "there is a table even for what is empty";
  });
  EXPECT_EQ(failures, 5) << "making, naming and running the select, its class, and closing the reader";
}

TEST_F(DatabaseFdoTest, NullReadersAreNoContextsAndNoClasses) {
  recorder_->answers.nullResults = {0, 11};
  DatabaseFdo database;
  EXPECT_TRUE(database.Connect(L"x", L"OSGeo.SQLite", nullptr, false, true));
  EXPECT_EQ(NamesOf(database), (Lines{L":", L":"}));
  EXPECT_EQ(diagnostics_.Lines(), (Lines{L"Can't query db object: parcel, ConnStr: x",
                                         L"Can't query db object: owner, ConnStr: x"}));
  EXPECT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_EQ((*database.Def())[0].Geom().SRS(), nullptr);
}

TEST_F(DatabaseFdoTest, SqliteClassesAreWhatSelectingThemGives) {
  recorder_->answers.readerDefinitions[L"owner"] = ClassOf(
      L"owner", {Id(L"rowid"), Data(L"name", FdoDataType_String), Data(L"born", FdoDataType_DateTime)});
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SQLite", nullptr, false, true));
  EXPECT_EQ((*database.Def())[1].ColumnCount(), 3);
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_EQ((*database.Def())[1].ColumnCount(), 1);
}

// A table that reads by position names its columns in the select, one that reads by name leaves them out.
TEST_F(DatabaseFdoTest, OnlyTheExactNameReadsByPosition) {
  struct {
    wchar_t const* provider;
    bool byName;
  } const cases[] = {
      {L"OSGeo.SQLite", false}, {L"OSGeo.SQLite.3.9", true}, {L"OSGeo.SQ", true}, {L"OSGeo.SDF", true}};
  for (auto const& c : cases) {
    DatabaseFdo database;
    EXPECT_TRUE(database.MustAccessByName());
    ASSERT_TRUE(database.Connect(L"x", c.provider, nullptr, false, true)) << c.provider;
    EXPECT_EQ(database.MustAccessByName(), c.byName) << c.provider;
    std::string const select = c.byName ? "make 53\nselect 53 class=Land:owner\n"
                                        : "make 53\nselect 53 class=Land:owner properties=[id]\n";
    recorder_->TakeLog();
    database[1].Query();
    EXPECT_EQ(recorder_->TakeLog(), select) << c.provider;
    Table* const second = database.DuplicateTable(&database[1]);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->Def(), database[1].Def());
    second->Query();
    EXPECT_EQ(recorder_->TakeLog(), select) << c.provider;
    database.DestroyTable(second);
    database.DestroyTable(nullptr);
  }
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(DatabaseFdoTest, TheConnectionIsGivenWithAReferenceOfItsOwn) {
  DatabaseFdo database;
  EXPECT_EQ(database.FdoConnection(), nullptr);
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, false));
  FdoPtr<FdoIConnection> const first = database.FdoConnection();
  EXPECT_EQ(first->GetRefCount(), 2);
  FdoPtr<FdoIConnection> const second = database.FdoConnection();
  EXPECT_EQ(second.p, first.p);
  EXPECT_EQ(first->GetRefCount(), 3);
}

TEST_F(DatabaseFdoTest, AnAdoptedConnectionIsReleasedAndNotClosed) {
  FdoPtr<FdoIConnection> const connection = OpenConnection();
  for (bool const openedBefore : {false, true}) {
    DatabaseFdo database;
    if (openedBefore) {
      ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SQLite", nullptr, false, false));
    }
    database.Disconnect();
    recorder_->TakeLog();
    ASSERT_TRUE(database.Connect(connection));
    EXPECT_EQ(recorder_->TakeLog().substr(0, sizeof kSchemaRead - 1), kSchemaRead);
    EXPECT_EQ(NamesOf(database), (Lines{L"Land:parcel", L"Land:owner"}));
    EXPECT_STREQ(database.ProviderName(), openedBefore ? L"OSGeo.SQLite" : L"") << "what it was before";
    EXPECT_EQ(database.MustAccessByName(), !openedBefore);
    EXPECT_EQ(connection->GetRefCount(), 4) << "the test, the database and its two tables";
    database.Disconnect();
    EXPECT_EQ(recorder_->TakeLog(), "") << "nothing is closed";
    EXPECT_EQ(connection->GetRefCount(), 1);
    EXPECT_EQ(connection->GetConnectionState(), FdoConnectionState_Open);
  }
}

TEST_F(DatabaseFdoTest, AnAdoptedConnectionMayBeTheOneThatIsHeld) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(OpenConnection()));
  FdoIConnection* const held = FdoPtr<FdoIConnection>(database.FdoConnection());
  ASSERT_TRUE(database.Connect(held));
  EXPECT_EQ(database.Count(), 2);
  database.Disconnect();
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(DatabaseFdoTest, AdoptingSucceedsWithoutASchema) {
  recorder_->answers.schemas.reset();
  FdoPtr<FdoIConnection> const connection = OpenConnection();
  DatabaseFdo database;
  EXPECT_TRUE(database.Connect(connection));
  EXPECT_EQ(database.Count(), 0);
  EXPECT_EQ(diagnostics_.Lines(), Lines());
  EXPECT_FALSE(database.Connect(nullptr)) << "there is none to adopt";
  EXPECT_EQ(database.FdoConnection(), nullptr);
}

// The copy is never destroyed: it would give up what the original still holds.
TEST_F(DatabaseFdoTest, CopiesShareWithoutAReference) {
  alignas(DatabaseFdo) static unsigned char storage[2][sizeof(DatabaseFdo)];
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  int const references = FdoPtr<FdoIConnection>(database.FdoConnection())->GetRefCount();
  auto* const copy = new (storage[0]) DatabaseFdo(database);
  auto* const assigned = new (storage[1]) DatabaseFdo;
  *assigned = database;
  for (DatabaseFdo* shared : {copy, assigned}) {
    EXPECT_EQ(shared->Def(), database.Def());
    EXPECT_EQ(&(*shared)[0], &database[0]);
    EXPECT_STREQ(shared->ProviderName(), database.ProviderName());
    FdoPtr<FdoIConnection> const connection = shared->FdoConnection();
    EXPECT_EQ(connection->GetRefCount(), references);
  }
}

TEST_F(DatabaseFdoTest, ANewStoreIsMadeOverAConnectionThatIsNeverOpened) {
  EXPECT_TRUE(DatabaseFdo::Create(L"a.sqlite", nullptr));
  EXPECT_EQ(recorder_->TakeLog(),
            "connection string File=\"a.sqlite\";UseFdoMetadata=TRUE\n"
            "make 48\n"
            "store 48 File=a.sqlite UseFdoMetadata=TRUE\n");
  EXPECT_TRUE(DatabaseFdo::Create(L"a.any", L"OSGeo.SDF"));
  EXPECT_EQ(recorder_->TakeLog(),
            "connection string File=\"a.any\"; ReadOnly=true\n"
            "make 48\n"
            "store 48 File=a.any UseFdoMetadata=TRUE\n")
      << "the metadata are asked for whatever the provider";
  EXPECT_FALSE(DatabaseFdo::Create(L"a.any", nullptr));
  EXPECT_EQ(recorder_->TakeLog(), "");
  EXPECT_EQ(diagnostics_.Lines(), Lines{L"Failed to map file extension to FDO provider"});
  EXPECT_EQ(recorder_->LiveObjects(), 0);
}

TEST_F(DatabaseFdoTest, ASchemaIsAppliedAfterItsSpatialContextsAndReadAnew) {
  CoordSys const systems[] = {
      {L"B", L"EPSG:1", L"one"}, {L"A", L"EPSG:2", L"two"}, {L"B", L"EPSG:3", L"three"}};
  std::vector<TableDef> tables;
  for (int i = 0; i < 3; ++i) {
    tables.push_back(MakeTableDef(L"Old", L"t" + std::to_wstring(i),
                                  L"id:Int64 name:String other:Geometry shape:Geometry"));
    tables.back()[2].SetCoordSys(&systems[i]);
  }
  CoordSys const unused(L"Z", L"", L"");
  tables[0][3].SetCoordSys(&unused);  // not the main geometry
  tables.push_back(MakeTableDef(L"Old", L"plain", L"n:Int32 flag:Boolean"));
  DatabaseDef def;
  SetTables(def, L"New", {tables[0], tables[1], tables[2], tables[3]});
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  recorder_->TakeLog();
  EXPECT_TRUE(database.SetSchema(def));
  EXPECT_EQ(
      recorder_->TakeLog(),
      std::string("make 9\n"
                  "context 9 name=A system=EPSG:2 wkt=two\n"
                  "make 9\n"
                  "context 9 name=B system=EPSG:3 wkt=three\n"
                  "make 6\n"
                  "apply 6 ignoring states schema=New classes=["
                  "t0{id:Int64 identity generated not null,name:String,other:geometry 15 in B designated,"
                  "shape:geometry 15 in Z},"
                  "t1{id:Int64 identity generated not null,name:String,other:geometry 15 in A designated,"
                  "shape:geometry 15},"
                  "t2{id:Int64 identity generated not null,name:String,other:geometry 15 in B designated,"
                  "shape:geometry 15},"
                  "plain{n:Int32,flag:Boolean}]\n") +
          kSchemaRead);
  EXPECT_EQ(NamesOf(database), (Lines{L"Land:parcel", L"Land:owner"}))
      << "what the store says, not what was set";
  EXPECT_EQ(diagnostics_.Lines(), Lines());
}

TEST_F(DatabaseFdoTest, TheSchemaThatItHasMayBeSet) {
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_TRUE(database.SetSchema(*database.Def()));
  EXPECT_EQ(database.Count(), 2);
}

TEST_F(DatabaseFdoTest, ANameThatFdoRefusesIsADiagnosticLine) {
  DatabaseDef def;
  SetTables(def, L"New", {MakeTableDef(L"New", L"a:b", L"id:Int32")});
  DatabaseFdo database;
  ASSERT_TRUE(database.Connect(L"x", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_FALSE(database.SetSchema(def));
  ASSERT_EQ(diagnostics_.Lines().size(), 1u);
  EXPECT_EQ(diagnostics_.Lines()[0].find(L"Failed to apply schema, because: "), 0u)
      << diagnostics_.Lines()[0];
  EXPECT_EQ(database.Count(), 2) << "the old tables are still there";
}

TEST_F(DatabaseFdoTest, TheTextOfALineSurvivesTheCLocale) {
  ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
  recorder_->answers.schemas.reset();
  SetDiagnosticHandler(nullptr, nullptr);
  testing::internal::CaptureStderr();
  DatabaseFdo database;
  EXPECT_FALSE(database.Connect(L"stra\u00DFe=\u65E5", L"OSGeo.SDF", nullptr, false, true));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "FDO connection failure: schema initialization failed, ConnStr: stra\u00DFe=\u65E5\n");
}

TEST_F(DatabaseFdoTest, ASchemaNeedsAConnection) {
  DatabaseFdo database;
  EXPECT_FALSE(database.SetSchema(DatabaseDef()));
  EXPECT_EQ(diagnostics_.Lines(), Lines{L"Failed to apply schema, because: the database is not connected"});
}

}  // namespace
}  // namespace fdo
