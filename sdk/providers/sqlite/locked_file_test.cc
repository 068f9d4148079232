// Files that another program or connection holds.
#include <gmock/gmock.h>

#include <chrono>
#include <future>
#include <thread>

#include "sdk/providers/sqlite/exact_failure.h"
#include "sdk/providers/sqlite/row_commands.h"

namespace fdo_sqlite {
namespace {

using testing::HasSubstr;

constexpr char kLocked[] = "it is locked by another program or connection.";

class LockedFile : public NothingLeaks {
 protected:
  LockedFile() {
    store_.Run("CREATE TABLE Places (Id INTEGER PRIMARY KEY, Name TEXT); INSERT INTO Places VALUES (1, 'a')");
  }

  static FdoPtr<Connection> Impatient(TestStore const& store) {
    FdoPtr<Connection> connection(new Connection());
    connection->SetConnectionTimeout(30);
    connection->SetConnectionString((L"File=\"" + store.File() + L"\"").c_str());
    connection->Open();
    return connection;
  }

  static std::wstring Names(Connection* connection) {
    FdoPtr<FdoISelect> select = MakeSelectOf(connection, L"Places");
    return Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"Name");
  }

  static void Insert(Connection* connection, FdoString* name) {
    FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
    GiveText(insert, L"Name", name);
    FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
    connection->Flush();
  }

  static void Delete(Connection* connection) {
    FdoPtr<FdoIDelete> command = Make<FdoIDelete>(connection, FdoCommandType_Delete);
    command->SetFeatureClassName(L"Places");
    command->Execute();
  }

  TestStore store_;
};

// Another program that lets nobody in, for as long as it lives.
class Hold {
 public:
  explicit Hold(TestStore const& store) {
    EXPECT_EQ(sqlite3_open(store.Utf8File().c_str(), &handle_), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(handle_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  }
  ~Hold() { sqlite3_close(handle_); }
  Hold(Hold const&) = delete;
  Hold& operator=(Hold const&) = delete;

 private:
  sqlite3* handle_ = nullptr;
};

TEST_F(LockedFile, ReadersAndWritersSaySoAfterTheirTimeout) {
  FdoPtr<Connection> connection = Impatient(store_);
  EXPECT_EQ(Names(connection), L"a");
  {
    Hold const hold(store_);
    EXPECT_THAT(FailureOf<FdoCommandException>([&] { Names(connection); }), HasSubstr(kLocked));
    EXPECT_THAT(FailureOf<FdoCommandException>([&] { Insert(connection, L"'b'"); }), HasSubstr(kLocked));
    EXPECT_THAT(FailureOf<FdoCommandException>([&] { Delete(connection); }), HasSubstr(kLocked));
    EXPECT_THAT(FailureOf<FdoConnectionException>([&] { Impatient(store_); }), HasSubstr(kLocked));
  }
  EXPECT_EQ(Names(connection), L"a");
  Insert(connection, L"'b'");
  EXPECT_EQ(Names(connection), L"a,b");
}

TEST_F(LockedFile, IsWaitedFor) {
  FdoPtr<Connection> connection = store_.Open();
  for (bool const writes : {false, true}) {
    auto hold = std::make_unique<Hold>(store_);
    std::future<void> const released = std::async(std::launch::async, [&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(150));
      hold = nullptr;
    });
    auto const begin = std::chrono::steady_clock::now();
    if (writes) {
      Insert(connection, L"'b'");
    } else {
      EXPECT_EQ(Names(connection), L"a");
    }
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(100));
    released.wait();
  }
  EXPECT_EQ(store_.Rows("SELECT group_concat(Name) FROM Places"), "a,b");
}

TEST_F(LockedFile, AWriterCommitsOnceTheReaderHasEnded) {
  FdoPtr<Connection> reading = store_.Open();
  FdoPtr<FdoISelect> select = MakeSelectOf(reading, L"Places");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  ASSERT_TRUE(reader->ReadNext());
  FdoPtr<Connection> writing = Impatient(store_);
  FdoPtr<FdoITransaction> transaction = writing->BeginTransaction();
  Insert(writing, L"'b'");
  EXPECT_THAT(FailureOf<FdoCommandException>([&] { transaction->Commit(); }), HasSubstr(kLocked));
  EXPECT_STREQ(reader->GetString(L"Name"), L"a");
  reader->Close();
  transaction->Commit();
  EXPECT_EQ(store_.Rows("SELECT group_concat(Name) FROM Places"), "a,b");
}

}  // namespace
}  // namespace fdo_sqlite
