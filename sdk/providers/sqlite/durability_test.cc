// Disks that are full or read-only, and files that are gone, cut off or of somebody else: an exception that
// says so, and nothing is lost.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "port/file.h"
#include "port/small_disk.h"
#include "sdk/providers/sqlite/exact_failure.h"
#include "sdk/providers/sqlite/row_commands.h"

namespace fdo_sqlite {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
namespace files = std::filesystem;

constexpr char kPlaces[] =
    "CREATE TABLE geometry_columns (f_table_name TEXT, f_geometry_column TEXT, geometry_type INTEGER,"
    " coord_dimension INTEGER, srid INTEGER, geometry_format TEXT);"
    "INSERT INTO geometry_columns VALUES ('Places', 'Shape', 1, 2, NULL, 'WKB');"
    "CREATE TABLE Places (Id INTEGER PRIMARY KEY, Name TEXT, Shape BLOB);"
    "INSERT INTO Places (Name, Shape) VALUES ('a', x'0101000000000000000000F03F000000000000F03F')";
constexpr char kCount[] = "SELECT count(*) FROM Places";
constexpr char kMoved[] = "the file was moved, removed or replaced while it was open.";

files::path PathOf(TestStore const& store) { return store.Directory().Path() / "store.sqlite"; }

std::string BytesOf(files::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void WriteBytes(files::path const& path, std::string const& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string NameOf(FdoIConnection* connection, FdoString* filter = nullptr) {
  FdoPtr<FdoISelect> select = MakeSelectOf(static_cast<Connection*>(connection), L"Places", filter);
  return fdo_sdk::Utf8FromWide(Texts(FdoPtr<FdoIFeatureReader>(select->Execute()), L"Name"));
}

FdoPtr<FdoIInsert> InsertOf(Connection* connection, FdoString* name) {
  FdoPtr<FdoIInsert> insert = MakeInsertInto(connection, L"Places");
  GiveText(insert, L"Name", name);
  return insert;
}

void InsertOne(Connection* connection, FdoString* name) {
  FdoPtr<FdoIInsert> insert = InsertOf(connection, name);
  FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
  connection->Flush();
}

class OnASmallDisk : public NothingLeaks {
 protected:
  void SetUp() override {
    if (!disk_.IsThere()) GTEST_SKIP() << "this user may not make a disk";
    store_.Run(kPlaces);
  }

  TestStore store_;
  fdo::port::SmallDisk disk_{fdo_sdk::Utf8FromWide(store_.Directory().Path().wstring()), 400'000};
};

TEST_F(OnASmallDisk, AFullOneEndsTheBatchAndKeepsThoseBefore) {
  constexpr int kBatch = 50;
  files::path const filler = store_.Directory().Path() / "filler";
  WriteBytes(filler, std::string(100'000, 'x'));
  FdoPtr<Connection> connection = store_.Open();
  std::wstring const name = L"'" + std::wstring(500, L'n') + L"'";
  int batches = 0;
  std::string const message = FailureOf<FdoCommandException>([&] {
    for (; batches < 1000; ++batches) {
      FdoPtr<FdoIInsert> insert = InsertOf(connection, name.c_str());
      for (int i = 0; i < kBatch; ++i) FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
      connection->Flush();
    }
  });
  EXPECT_THAT(message, HasSubstr("the disk is full."));
  EXPECT_GT(batches, 0);
  EXPECT_EQ(store_.Rows(kCount), std::to_string(1 + batches * kBatch));
  EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
  // The same connection goes on once there is room.
  files::remove(filler);
  InsertOne(connection, L"'last'");
  connection->Close();
  EXPECT_EQ(store_.Rows(kCount), std::to_string(2 + batches * kBatch));
}

TEST_F(OnASmallDisk, AFullOneUndoesTheTransactionWholly) {
  FdoPtr<Connection> connection = store_.Open();
  {
    FdoPtr<FdoITransaction> transaction = connection->BeginTransaction();
    std::string const message = FailureOf<FdoCommandException>([&] {
      connection.p->OpenedDatabase().Execute(
          "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
          " INSERT INTO Places (Id, Name) SELECT i, hex(randomblob(300)) FROM n");
      transaction->Commit();
    });
    EXPECT_THAT(message, HasSubstr("the disk is full."));
  }
  EXPECT_EQ(NameOf(connection), "a");
  EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
}

TEST_F(OnASmallDisk, AReadOnlyOneIsReadAndRefusesAllElse) {
  ASSERT_TRUE(disk_.SetReadOnly(true));
  {
    FdoPtr<Connection> connection = store_.Open();
    EXPECT_TRUE(connection.p->OpenedDatabase().IsReadOnly());
    EXPECT_EQ(NameOf(connection, L"Shape ENVELOPEINTERSECTS GeomFromText('POINT (1 1)')"), "a");
    EXPECT_THAT(FailureOf<FdoCommandException>([&] { InsertOne(connection, L"'b'"); }),
                HasSubstr("it is read-only."));
    connection->Close();
  }
  FdoPtr<Connection> closed(new Connection());
  FdoPtr<FdoIDestroyDataStore> destroy = Make<FdoIDestroyDataStore>(closed, FdoCommandType_DestroyDataStore);
  FdoPtr<FdoIDataStorePropertyDictionary> properties = destroy->GetDataStoreProperties();
  properties->SetProperty(L"File", store_.File().c_str());
  FailureOf<FdoException>([&] { destroy->Execute(); });
  FdoPtr<FdoICreateDataStore> create = Make<FdoICreateDataStore>(closed, FdoCommandType_CreateDataStore);
  properties = create->GetDataStoreProperties();
  properties->SetProperty(L"File", (store_.Directory().File("new store.sqlite")).c_str());
  EXPECT_THAT(FailureOf<FdoException>([&] { create->Execute(); }), HasSubstr("may not be written."));
  ASSERT_TRUE(disk_.SetReadOnly(false));
  EXPECT_EQ(store_.Rows(kCount), "1");
}

// Leaves the file as a program does that is killed while it writes: changed in part, with the journal that
// undoes it beside it.
void InterruptAWriter(TestStore const& store) {
  files::path const file = PathOf(store), kept = store.Directory().Path() / "kept";
  sqlite3* writer = nullptr;
  ASSERT_EQ(sqlite3_open(store.Utf8File().c_str(), &writer), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(writer,
                         "PRAGMA cache_size = 2; BEGIN; UPDATE Places SET Name = 'z';"
                         "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 200)"
                         " INSERT INTO Places (Id, Name) SELECT i, hex(zeroblob(300)) FROM n",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  std::string const bytes = BytesOf(file), journal = BytesOf(file.string() + "-journal");
  sqlite3_close(writer);
  WriteBytes(file, bytes);
  WriteBytes(file.string() + "-journal", journal);
}

TEST_F(OnASmallDisk, WhatAnInterruptedProgramLeftIsUndoneWhereTheDiskCanBeWritten) {
  InterruptAWriter(store_);
  ASSERT_FALSE(HasFatalFailure());
  ASSERT_TRUE(disk_.SetReadOnly(true));
  EXPECT_THAT(FailureOf<FdoConnectionException>([&] { store_.Open(); }),
              HasSubstr("an interrupted program left changes that must be undone, and it is read-only."));
  ASSERT_TRUE(disk_.SetReadOnly(false));
  EXPECT_EQ(NameOf(store_.Open()), "a");
}

class MovedFile : public NothingLeaks {
 protected:
  MovedFile() {
    store_.Run(kPlaces);
    connection_ = store_.Open();
    EXPECT_EQ(NameOf(connection_), "a");
  }

  TestStore store_;
  FdoPtr<Connection> connection_;
};

class FileMovedWhileOpen : public MovedFile {
 protected:
  void SetUp() override {
    if (!fdo::port::OpenFilesCanMove()) GTEST_SKIP() << "a file that is open cannot be moved here";
  }
};

TEST_F(FileMovedWhileOpen, RemovedIsReadToTheEndAndNotWritten) {
  FdoPtr<FdoISelect> select = MakeSelectOf(connection_, L"Places");
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  files::remove(PathOf(store_));
  EXPECT_EQ(Texts(reader, L"Name"), L"a");
  EXPECT_THAT(FailureOf<FdoCommandException>([&] { InsertOne(connection_, L"'b'"); }), HasSubstr(kMoved));
  EXPECT_FALSE(files::exists(PathOf(store_)));
  EXPECT_FALSE(files::exists(PathOf(store_).string() + "-journal"));
}

TEST_F(FileMovedWhileOpen, ReplacedWithinATransactionIsNotCommitted) {
  FdoPtr<FdoITransaction> transaction = connection_->BeginTransaction();
  FdoPtr<FdoIInsert> insert = InsertOf(connection_, L"'b'");
  FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
  files::rename(PathOf(store_), store_.Directory().Path() / "aside");
  files::remove(PathOf(store_).string() + "-journal");
  store_.Run("CREATE TABLE Other (Id)");
  EXPECT_THAT(FailureOf<FdoCommandException>([&] { transaction->Commit(); }), HasSubstr(kMoved));
  transaction->Rollback();
  connection_->Close();
  EXPECT_EQ(store_.Rows("SELECT name FROM sqlite_schema"), "Other");
  files::rename(store_.Directory().Path() / "aside", PathOf(store_));
  EXPECT_EQ(store_.Rows(kCount), "1");
}

TEST_F(FileMovedWhileOpen, RemovedWithinABatchIsToldAtClose) {
  FdoPtr<FdoIInsert> insert = InsertOf(connection_, L"'b'");
  FdoPtr<FdoIFeatureReader>(insert->Execute())->Close();
  files::remove(PathOf(store_));
  insert = nullptr;
  std::wstring const message = fdo_sdk::MessageThrownBy<FdoCommandException>([&] { connection_->Close(); });
  EXPECT_THAT(fdo_sdk::Utf8FromWide(message), HasSubstr(kMoved));
  EXPECT_EQ(connection_->GetConnectionState(), FdoConnectionState_Closed);
}

TEST_F(MovedFile, OverwrittenInItsPlaceShowsItsNewContent) {
  TestStore other;
  other.Run(std::string(kPlaces) + "; UPDATE Places SET Name = 'new'; CREATE TABLE More (x)");
  WriteBytes(PathOf(store_), BytesOf(PathOf(other)));
  EXPECT_EQ(NameOf(connection_), "new");
  InsertOne(connection_, L"'b'");
  EXPECT_EQ(store_.Rows("SELECT group_concat(Name) FROM Places"), "new,b");
}

TEST_F(MovedFile, CutOffWhileOpenIsNotReadAndNotWritten) {
  store_.Run(
      "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 500)"
      " INSERT INTO Places (Id, Name) SELECT i, hex(zeroblob(200)) FROM n");
  files::resize_file(PathOf(store_), files::file_size(PathOf(store_)) / 8192 * 4096);
  EXPECT_THAT(FailureOf<FdoCommandException>([&] { NameOf(connection_); }),
              HasSubstr("it is damaged or cut off"));
  std::string const left = BytesOf(PathOf(store_));
  EXPECT_THAT(FailureOf<FdoCommandException>([&] { InsertOne(connection_, L"'b'"); }),
              HasSubstr("it is damaged or cut off"));
  EXPECT_EQ(BytesOf(PathOf(store_)), left);
}

class CutOffFile : public NothingLeaks {};

TEST_F(CutOffFile, IsRefusedWhereverItIsCutAndStaysAsItIs) {
  TestStore store;
  store.Run(std::string(kPlaces) +
            ";WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 100)"
            " INSERT INTO Places (Id, Name) SELECT i, hex(zeroblob(100)) FROM n");
  files::path const file = PathOf(store);
  std::string const whole = BytesOf(file);
  std::size_t const size = whole.size(), page = 4096;
  ASSERT_GT(size, 4 * page);
  for (std::size_t const cut :
       {std::size_t{2}, std::size_t{15}, std::size_t{16}, std::size_t{99}, std::size_t{100}, std::size_t{511},
        std::size_t{512}, page - 1, page, page + 1, size / 2, size - page - 1, size - page, size - page + 1,
        size - 100, size - 1}) {
    SCOPED_TRACE(cut);
    WriteBytes(file, whole.substr(0, cut));
    EXPECT_THAT(FailureOf<FdoConnectionException>([&] { store.Open(); }),
                AnyOf(HasSubstr("cut off"), HasSubstr("it is not an SQLite database.")));
    EXPECT_EQ(BytesOf(file), whole.substr(0, cut));
  }
  WriteBytes(file, whole);
  EXPECT_NE(NameOf(store.Open()), "");
}

struct ForeignCase {
  char const* what;
  std::string bytes;
};

class ForeignFile : public NothingLeaks {};

TEST_F(ForeignFile, IsRefusedAndStaysAsItIs) {
  std::string const magic("SQLite format 3\0", 16);
  ForeignCase const cases[] = {
      {"a text", std::string("id;name\n1;Ulm\n2;Bern\n") + std::string(3000, 'x')},
      {"a short text", "x\n"},
      {"two zero bytes", std::string(2, '\0')},
      {"zeros", std::string(8192, '\0')},
      {"an archive", std::string("PK\3\4") + std::string(5000, '\7')},
      {"a picture", "\x89PNG\r\n\x1a\n" + std::string(5000, '\1')},
      {"an older SQLite", "** This file contains an SQLite 2.1 database **" + std::string(2000, '\0')},
      {"the beginning of one", magic},
      {"the beginning of one, and all else wrong", magic + std::string(5000, '\xFF')},
      {"the beginning of one, and zeros", magic + std::string(5000, '\0')},
  };
  for (ForeignCase const& row : cases) {
    SCOPED_TRACE(row.what);
    TestStore store;
    WriteBytes(PathOf(store), row.bytes);
    EXPECT_THAT(FailureOf<FdoConnectionException>([&] { store.Open(); }),
                AnyOf(HasSubstr("cut off"), HasSubstr("it is not an SQLite database.")));
    EXPECT_EQ(BytesOf(PathOf(store)), row.bytes);
    EXPECT_EQ(std::distance(files::directory_iterator(store.Directory().Path()), files::directory_iterator()),
              1);
  }
}

}  // namespace
}  // namespace fdo_sqlite
