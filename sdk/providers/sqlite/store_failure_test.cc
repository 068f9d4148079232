// Every call to the disk, and every wish for memory, fails in turn: what was to be done is done or not done,
// the exception says what happened, nothing leaks, and the file is sound.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "port/file.h"
#include "sdk/providers/sqlite/store_test_schema.h"
#include "sdk/providers/sqlite/test_store.h"
#include "sdk/runtime/core/live_allocations.h"
#include "sdk/runtime/thrown.h"
#include "testing/failing_sqlite.h"

namespace fdo_sqlite {
namespace {

using fdo::FailingSqlite;
using fdo::SqliteFault;

// With QUILLON_EVERY_FAILURE set every call fails in turn; otherwise every step-th.
struct FaultCase {
  char const* name;
  SqliteFault fault;
  bool lasting;
  int step;
};
constexpr FaultCase kFaults[] = {
    {"disk", SqliteFault::kDisk, false, 2},          {"broken disk", SqliteFault::kDisk, true, 5},
    {"full disk", SqliteFault::kFullDisk, false, 1}, {"disk stays full", SqliteFault::kFullDisk, true, 3},
    {"memory", SqliteFault::kMemory, false, 17},
};

int ForEach(FailingSqlite& sqlite, FaultCase const& row, std::function<void()> const& body) {
  bool const every = !fdo::port::EnvironmentVariable("QUILLON_EVERY_FAILURE").empty();
  return fdo::ForEachFailure(sqlite, row.fault, body, row.lasting, every ? 1 : row.step);
}

class StoreFailure : public testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(FailingSqlite::PrepareMemory()); }

  // before is SQL that makes the file; work is done with each call failing in turn. After each, `state` must
  // give one of the two results: that of before, or that of the work done.
  void Sweep(char const* before, std::function<void()> const& work, char const* state) {
    store_.Run(before);
    std::filesystem::path const file = store_.Directory().Path() / "store.sqlite";
    std::filesystem::path const original = store_.Directory().Path() / "original";
    std::filesystem::copy_file(file, original);
    std::string const undone = store_.Rows(state);
    work();
    std::string const done = store_.Rows(state);
    ASSERT_NE(undone, done);

    for (FaultCase const& row : kFaults) {
      SCOPED_TRACE(row.name);
      FailingSqlite sqlite;
      int const failures = ForEach(sqlite, row, [&] {
        std::filesystem::copy_file(original, file, std::filesystem::copy_options::overwrite_existing);
        std::filesystem::remove(file.string() + "-journal");
        bool const succeeded = Runs(work);
        bool const failed = sqlite.HasFailed();
        sqlite.Heal();
        // Some failures do not matter: a page cache that cannot grow, say.
        EXPECT_TRUE(succeeded || failed);
        EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
        std::string const now = store_.Rows(state);
        EXPECT_TRUE(now == done || now == undone) << now;
        EXPECT_TRUE(!succeeded || now == done);
      });
      EXPECT_GT(failures, 0);
    }
  }

  // Whether the work comes to its end. It may throw an exception of the interface, which names the file.
  bool Runs(std::function<void()> const& work) {
    long long const before = fdo_sdk::LiveAllocations();
    bool succeeded = true;
    try {
      work();
    } catch (FdoException* raised) {
      FdoPtr<FdoException> failure(raised);
      succeeded = false;
      EXPECT_EQ(failure->GetRefCount(), 1);
      std::wstring const message = failure->GetExceptionMessage();
      EXPECT_NE(message.find(L"store.sqlite"), std::wstring::npos) << fdo_sdk::Utf8FromWide(message);
    }
    EXPECT_EQ(fdo_sdk::LiveAllocations(), before);
    return succeeded;
  }

  TestStore store_;
};

TEST_F(StoreFailure, SchemasAreAppliedWholeOrNotAtAll) {
  Sweep(
      "CREATE TABLE Roads (Id INTEGER PRIMARY KEY)",
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        CreateContext(connection, L"Field", L"EPSG:4326", L"GEOGCS[]");
        connection->Close();
      },
      "SELECT count(*) FROM sqlite_schema");
}

TEST_F(StoreFailure, ClassesComeWithTheirMetadata) {
  Sweep(
      "CREATE TABLE Roads (Id INTEGER PRIMARY KEY)",
      [this] {
        FdoPtr<Connection> connection = store_.Open();
        Apply(connection, SchemaOf({ClassOf(L"Places", {Data(L"Id", FdoDataType_Int32), Geometry(L"Shape")}),
                                    ClassOf(L"Roads", {Data(L"Id", FdoDataType_Int64), Geometry(L"Line")})}));
        connection->Close();
      },
      "SELECT group_concat(sql) FROM sqlite_schema");
}

TEST_F(StoreFailure, TransactionsAreCommittedWholeOrNotAtAll) {
  Sweep(
      "CREATE TABLE Roads (Id INTEGER PRIMARY KEY)",
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
  Sweep(
      "CREATE TABLE Roads (Id INTEGER PRIMARY KEY)",
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
  std::filesystem::path const file = store_.Directory().Path() / "store.sqlite";
  work();
  for (FaultCase const& row : kFaults) {
    SCOPED_TRACE(row.name);
    FailingSqlite sqlite;
    int const failures = ForEach(sqlite, row, [&] {
      std::filesystem::remove(file);
      bool const succeeded = Runs(work);
      sqlite.Heal();
      EXPECT_EQ(std::filesystem::exists(file), succeeded);
      if (succeeded) {
        EXPECT_EQ(store_.Rows("SELECT count(*) FROM geometry_columns"), "0");
      }
    });
    EXPECT_GT(failures, 0);
  }
}

}  // namespace
}  // namespace fdo_sqlite
