// Schemas, transactions, batches and new files when SQLite fails.
#include "sdk/providers/sqlite/failure_sweep.h"
#include "sdk/providers/sqlite/store_test_schema.h"

namespace fdo_sqlite {
namespace {

class StoreFailure : public FailureSweep {};

TEST_F(StoreFailure, SchemasAreAppliedWholeOrNotAtAll) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY)");
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        CreateContext(connection, L"Field", L"EPSG:4326", L"GEOGCS[]");
        connection->Close();
      },
      "SELECT count(*) FROM sqlite_schema");
}

TEST_F(StoreFailure, ClassesComeWithTheirMetadata) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY)");
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        Apply(connection, SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int32), Geometry(L"Shape")}),
                                    ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64), Geometry(L"Line")})}));
        connection->Close();
      },
      "SELECT group_concat(sql) FROM sqlite_schema");
}

// A store with two classes and a spatial context that neither has, made by the provider.
class StoreOfClasses : public StoreFailure {
 protected:
  void BeginWithClasses() {
    store_.Run("CREATE TABLE Other (Id INTEGER PRIMARY KEY)");
    FdoPtr<Connection> connection = store_.Open();
    CreateContext(connection, L"Field", L"EPSG:4326", L"GEOGCS[]");
    CreateContext(connection, L"Spare", L"EPSG:3857", L"PROJCS[]");
    Apply(connection,
          SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int32), Data(L"Name", FdoDataType_String),
                                        Geometry(L"Shape", FdoGeometricType_All, L"Field")})}));
    connection->Close();
    Begin("DROP TABLE Other");
  }
};

TEST_F(StoreOfClasses, ClassesAreChangedWithTheirMetadataOrStay) {
  BeginWithClasses();
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoFeatureSchema> schema = Describe(connection);
        FdoPtr<FdoClassCollection> classes = schema->GetClasses();
        FdoPtr<FdoClassDefinition> places = classes->GetItem(L"Places");
        FdoPtr<FdoPropertyDefinitionCollection> properties = places->GetProperties();
        properties->Add(Data(L"Size", FdoDataType_Double));
        properties->Add(Geometry(L"Centre", FdoGeometricType_Point, L"Spare"));
        classes->Add(ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64), Geometry(L"Line")}));
        Apply(connection, schema, /*ignoreStates=*/false);
        connection->Close();
      },
      "SELECT (SELECT group_concat(sql) FROM sqlite_schema), (SELECT group_concat(f_table_name || "
      "f_geometry_column) "
      "FROM geometry_columns)");
}

TEST_F(StoreOfClasses, ClassesLeaveWithTheirMetadataOrStay) {
  BeginWithClasses();
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoFeatureSchema> schema = Describe(connection);
        FdoPtr<FdoClassDefinition> places =
            FdoPtr<FdoClassCollection>(schema->GetClasses())->GetItem(L"Places");
        places->Delete();
        Apply(connection, schema, /*ignoreStates=*/false);
        connection->Close();
      },
      "SELECT (SELECT group_concat(sql) FROM sqlite_schema), (SELECT group_concat(f_table_name || "
      "f_geometry_column) "
      "FROM geometry_columns)");
}

TEST_F(StoreOfClasses, SpatialContextsAreRemovedOrStay) {
  BeginWithClasses();
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoIDestroySpatialContext> destroy =
            Make<FdoIDestroySpatialContext>(connection, FdoCommandType_DestroySpatialContext);
        destroy->SetName(L"Spare");
        destroy->Execute();
        connection->Close();
      },
      "SELECT group_concat(sr_name) FROM spatial_ref_sys");
}

TEST_F(StoreOfClasses, DescriptionsAreWholeOrThrow) {
  BeginWithClasses();
  SweepReading([this] {
    FdoPtr<Connection> connection = store_.Open();
    std::wstring text;
    FdoPtr<FdoFeatureSchema> schema = Describe(connection);
    FdoPtr<FdoClassCollection> classes = schema->GetClasses();
    for (FdoInt32 i = 0; i < classes->GetCount(); ++i) {
      FdoPtr<FdoClassDefinition> definition = classes->GetItem(i);
      text += definition->GetName();
      FdoPtr<FdoPropertyDefinitionCollection> properties = definition->GetProperties();
      for (FdoInt32 k = 0; k < properties->GetCount(); ++k) {
        FdoPtr<FdoPropertyDefinition> property = properties->GetItem(k);
        text += std::wstring(L" ") + property->GetName();
      }
    }
    FdoPtr<FdoIGetClassNames> getNames = Make<FdoIGetClassNames>(connection, FdoCommandType_GetClassNames);
    FdoPtr<FdoStringCollection> names = getNames->Execute();
    for (FdoInt32 i = 0; i < names->GetCount(); ++i) text += std::wstring(L"; ") + names->GetString(i);
    FdoPtr<FdoIGetSpatialContexts> getContexts =
        Make<FdoIGetSpatialContexts>(connection, FdoCommandType_GetSpatialContexts);
    FdoPtr<FdoISpatialContextReader> contexts = getContexts->Execute();
    while (contexts->ReadNext()) text += std::wstring(L"; ") + contexts->GetName();
    return fdo_sdk::Utf8FromWide(text);
  });
}

TEST_F(StoreFailure, TransactionsAreCommittedWholeOrNotAtAll) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY)");
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoITransaction> transaction = connection->BeginTransaction();
        connection.p->OpenedDatabase().Execute("INSERT INTO Roads VALUES (1)");
        transaction->AddSavePoint(L"half");
        connection.p->OpenedDatabase().Execute("INSERT INTO Roads VALUES (2)");
        transaction->Commit();
      },
      "SELECT group_concat(Id) FROM Roads");
}

TEST_F(StoreFailure, WriteBatchesAreSettledWholeOrNotAtAll) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY)");
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        for (int id = 1; id <= 3; ++id) {
          connection.p->JoinWrites(this);
          connection.p->OpenedDatabase().Execute("INSERT INTO Roads VALUES (" + std::to_string(id) + ")");
        }
        connection.p->LeaveWrites(this);
        connection->Close();
      },
      "SELECT group_concat(Id) FROM Roads");
}

TEST_F(StoreFailure, StatementsTakeEffectWholeOrNotAtAll) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY)");
  Sweep(
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        FdoPtr<FdoISQLCommand> command = Make<FdoISQLCommand>(connection, FdoCommandType_SQLCommand);
        command->SetSQLStatement(L"INSERT INTO Roads VALUES (1), (2), (3)");
        command->ExecuteNonQuery();
        connection->Close();
      },
      "SELECT group_concat(Id) FROM Roads");
}

TEST_F(StoreFailure, StatementsReadAllOrThrow) {
  Begin(
      "CREATE TABLE Roads (Id INTEGER PRIMARY KEY, Name TEXT); INSERT INTO Roads VALUES (1, 'a'), (2, 'b')");
  SweepReading([this] {
    FdoPtr<Connection> connection = store_.Open();
    FdoPtr<FdoISQLCommand> command = Make<FdoISQLCommand>(connection, FdoCommandType_SQLCommand);
    command->SetSQLStatement(L"SELECT Name, count(*) OVER () FROM Roads ORDER BY Name");
    FdoPtr<FdoISQLDataReader> reader = command->ExecuteReader();
    std::string rows;
    while (reader->ReadNext()) {
      rows += fdo_sdk::Utf8FromWide(reader->GetString(FdoInt32{0})) +
              std::to_string(reader->GetInt64(FdoInt32{1}));
    }
    return rows;
  });
}

TEST_F(StoreFailure, NewFilesAreMadeWholeOrNotAtAll) {
  auto const work = [this] {
    FdoPtr<Connection> connection(new Connection());
    FdoPtr<FdoICreateDataStore> create =
        Make<FdoICreateDataStore>(connection, FdoCommandType_CreateDataStore);
    FdoPtr<FdoIDataStorePropertyDictionary> properties = create->GetDataStoreProperties();
    properties->SetProperty(L"File", store_.File().c_str());
    properties->SetProperty(L"UseFdoMetadata", L"TRUE");
    create->Execute();
  };
  work();
  for (FaultCase const& row : kFaults) {
    SCOPED_TRACE(row.name);
    fdo::FailingSqlite sqlite;
    int const failures = ForEach(sqlite, row, [&] {
      std::filesystem::remove(file_);
      bool const succeeded = Runs(work);
      sqlite.Heal();
      EXPECT_EQ(std::filesystem::exists(file_), succeeded);
      if (succeeded) {
        EXPECT_EQ(store_.Rows("SELECT count(*) FROM geometry_columns"), "0");
      }
    });
    EXPECT_GT(failures, 0);
  }
}

TEST_F(StoreFailure, FilesAreRemovedOrStayAsTheyAre) {
  Begin("CREATE TABLE Roads (Id INTEGER PRIMARY KEY); INSERT INTO Roads VALUES (1)");
  auto const work = [this] {
    FdoPtr<Connection> connection(new Connection());
    FdoPtr<FdoIDestroyDataStore> destroy =
        Make<FdoIDestroyDataStore>(connection, FdoCommandType_DestroyDataStore);
    FdoPtr<FdoIDataStorePropertyDictionary> properties = destroy->GetDataStoreProperties();
    properties->SetProperty(L"File", store_.File().c_str());
    destroy->Execute();
  };
  work();
  EXPECT_FALSE(std::filesystem::exists(file_));
  for (FaultCase const& row : kFaults) {
    SCOPED_TRACE(row.name);
    fdo::FailingSqlite sqlite;
    ForEach(sqlite, row, [&] {
      BeginAgain();
      bool const succeeded = Runs(work);
      sqlite.Heal();
      EXPECT_EQ(std::filesystem::exists(file_), !succeeded);
      if (!succeeded) {
        EXPECT_EQ(store_.Rows("SELECT Id FROM Roads"), "1");
      }
    });
  }
}

}  // namespace
}  // namespace fdo_sqlite
