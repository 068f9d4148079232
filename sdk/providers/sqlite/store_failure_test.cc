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

}  // namespace
}  // namespace fdo_sqlite
