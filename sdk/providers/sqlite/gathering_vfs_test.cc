// Files that gather writes, against an array of bytes and against the file beneath.
#include "sdk/providers/sqlite/gathering_vfs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/test_store.h"
#include "testing/failing_sqlite.h"

namespace fdo_sqlite {
namespace {

constexpr int kPage = 512;

// A database file, used by the calls that SQLite makes.
class OpenFile {
 public:
  explicit OpenFile(std::string path) : path_(std::move(path) + std::string(3, '\0')) {
    sqlite3_vfs* const vfs = sqlite3_vfs_find(vfs_.Name());
    memory_.resize(static_cast<std::size_t>(vfs->szOsFile) / sizeof(std::max_align_t) + 1);
    // No parameters stand behind the name.
    EXPECT_EQ(vfs->xOpen(vfs, path_.data(), Handle(),
                         SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr),
              SQLITE_OK);
  }
  ~OpenFile() { Methods().xClose(Handle()); }
  OpenFile(OpenFile const&) = delete;
  OpenFile& operator=(OpenFile const&) = delete;

  sqlite3_file* Handle() { return reinterpret_cast<sqlite3_file*>(memory_.data()); }
  sqlite3_io_methods const& Methods() { return *Handle()->pMethods; }

  void LockForWriting() {
    for (int const lock : {SQLITE_LOCK_SHARED, SQLITE_LOCK_RESERVED, SQLITE_LOCK_EXCLUSIVE}) {
      EXPECT_EQ(Methods().xLock(Handle(), lock), SQLITE_OK);
    }
  }
  int Unlock() { return Methods().xUnlock(Handle(), SQLITE_LOCK_NONE); }
  int Write(std::string const& bytes, std::size_t offset) {
    return Methods().xWrite(Handle(), bytes.data(), static_cast<int>(bytes.size()),
                            static_cast<sqlite3_int64>(offset));
  }
  int Sync() { return Methods().xSync(Handle(), SQLITE_SYNC_NORMAL); }
  int Truncate(std::size_t size) { return Methods().xTruncate(Handle(), static_cast<sqlite3_int64>(size)); }
  // What is behind the end reads as zeros.
  int Read(std::string& bytes, std::size_t offset) {
    int const code = Methods().xRead(Handle(), bytes.data(), static_cast<int>(bytes.size()),
                                     static_cast<sqlite3_int64>(offset));
    return code == SQLITE_IOERR_SHORT_READ ? SQLITE_OK : code;
  }
  std::string Text(int size, std::size_t offset) {
    std::string bytes(static_cast<std::size_t>(size), '?');
    EXPECT_EQ(Read(bytes, offset), SQLITE_OK);
    return bytes;
  }
  sqlite3_int64 Size() {
    sqlite3_int64 size = -1;
    EXPECT_EQ(Methods().xFileSize(Handle(), &size), SQLITE_OK);
    return size;
  }

 private:
  GatheringVfs vfs_;
  std::string path_;
  std::vector<std::max_align_t> memory_;
};

class GatheredWrites : public testing::Test {
 protected:
  // What is in the file itself.
  std::string Bytes() const {
    std::ifstream file(store_.Directory().Path() / "store.sqlite", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  TestStore store_;
};

TEST_F(GatheredWrites, AreReadAndMeasuredAsIfTheyWereInTheFile) {
  OpenFile file(store_.Utf8File());
  file.LockForWriting();
  EXPECT_EQ(file.Write("abcd", 0), SQLITE_OK);
  EXPECT_EQ(file.Write("ef", 4), SQLITE_OK);
  EXPECT_EQ(Bytes(), "");
  EXPECT_EQ(file.Size(), 6);
  EXPECT_EQ(file.Text(3, 2), "cde");
  EXPECT_EQ(Bytes(), "");
  EXPECT_EQ(file.Text(2, 5), std::string("f\0", 2));
  EXPECT_EQ(file.Size(), 6);
}

TEST_F(GatheredWrites, AreInTheFileBeforeAnybodyElseCanLook) {
  struct Case {
    char const* what;
    int (*act)(OpenFile&);
  };
  constexpr Case kCases[] = {
      {"synced", [](OpenFile& file) { return file.Sync(); }},
      {"not synced, on request",
       [](OpenFile& file) {
         int const code = file.Methods().xFileControl(file.Handle(), SQLITE_FCNTL_SYNC, nullptr);
         return code == SQLITE_NOTFOUND ? SQLITE_OK : code;
       }},
      {"let others read",
       [](OpenFile& file) { return file.Methods().xUnlock(file.Handle(), SQLITE_LOCK_SHARED); }},
      {"unlocked", [](OpenFile& file) { return file.Unlock(); }},
      {"followed by a write elsewhere", [](OpenFile& file) { return file.Write("z", 9); }},
      {"cut", [](OpenFile& file) { return file.Truncate(4); }},
  };
  for (Case const& row : kCases) {
    SCOPED_TRACE(row.what);
    OpenFile file(store_.Utf8File());
    file.LockForWriting();
    EXPECT_EQ(file.Truncate(0), SQLITE_OK);
    EXPECT_EQ(file.Write("kept", 0), SQLITE_OK);
    EXPECT_EQ(Bytes(), "");
    EXPECT_EQ(row.act(file), SQLITE_OK);
    EXPECT_EQ(Bytes(), "kept");
    EXPECT_EQ(file.Unlock(), SQLITE_OK);
  }
}

TEST_F(GatheredWrites, DoNotWaitWhereOthersMayRead) {
  OpenFile file(store_.Utf8File());
  EXPECT_EQ(file.Methods().xLock(file.Handle(), SQLITE_LOCK_SHARED), SQLITE_OK);
  EXPECT_EQ(file.Methods().xLock(file.Handle(), SQLITE_LOCK_RESERVED), SQLITE_OK);
  EXPECT_EQ(file.Write("now", 0), SQLITE_OK);
  EXPECT_EQ(Bytes(), "now");
  EXPECT_EQ(file.Unlock(), SQLITE_OK);
}

TEST_F(GatheredWrites, AreTriedAgainAfterAFailure) {
  fdo::FailingSqlite sqlite;
  OpenFile file(store_.Utf8File());
  file.LockForWriting();
  EXPECT_EQ(file.Write("kept", 0), SQLITE_OK);
  sqlite.FailAt(fdo::SqliteFault::kFullDisk, 1);
  EXPECT_EQ(file.Sync(), SQLITE_FULL);
  EXPECT_EQ(file.Text(4, 0), "kept");
  EXPECT_EQ(file.Write(" more", 4), SQLITE_OK);
  EXPECT_EQ(file.Sync(), SQLITE_OK);
  EXPECT_EQ(Bytes(), "kept more");
  // What is cut off needs no room any more.
  EXPECT_EQ(file.Write(" and more", 9), SQLITE_OK);
  sqlite.FailAt(fdo::SqliteFault::kFullDisk, 1, /*lasting=*/true);
  EXPECT_EQ(file.Sync(), SQLITE_FULL);
  EXPECT_EQ(file.Size(), 18);
  sqlite.Heal();
  sqlite.FailAt(fdo::SqliteFault::kFullDisk, 2);  // the first is the cut itself
  EXPECT_EQ(file.Truncate(9), SQLITE_OK);
  EXPECT_FALSE(sqlite.HasFailed());
  sqlite.Heal();
  EXPECT_EQ(file.Unlock(), SQLITE_OK);
  EXPECT_EQ(Bytes(), "kept more");
}

TEST_F(GatheredWrites, LeaveTheFileAsWritesOneByOneDo) {
  constexpr unsigned kSeed = 20261121;
  SCOPED_TRACE(kSeed);
  std::mt19937 random(kSeed);
  fdo::FailingSqlite const unsynced;
  OpenFile file(store_.Utf8File());
  std::string model;
  for (int transaction = 0; transaction < 60; ++transaction) {
    file.LockForWriting();
    std::size_t next = 0;
    for (int step = 0; step < 200; ++step) {
      auto const what = random() % 20;
      std::size_t const somewhere = random() % 400 * kPage;
      if (what < 14) {  // mostly behind the one before
        std::size_t const offset = random() % 8 == 0 ? somewhere : next;
        std::string const page(kPage, static_cast<char>('a' + random() % 26));
        model.resize(std::max(model.size(), offset + kPage));
        model.replace(offset, kPage, page);
        ASSERT_EQ(file.Write(page, offset), SQLITE_OK);
        next = offset + kPage;
      } else if (what < 18) {
        std::string bytes(1 + random() % (3 * kPage), '?');
        std::string expected(bytes.size(), '\0');
        std::size_t const offset = somewhere + random() % kPage;
        if (offset < model.size()) model.copy(expected.data(), expected.size(), offset);
        ASSERT_EQ(file.Read(bytes, offset), SQLITE_OK);
        ASSERT_EQ(bytes, expected);
      } else if (what == 18) {
        if (somewhere < model.size()) model.resize(somewhere);
        if (somewhere <= model.size()) {
          ASSERT_EQ(file.Truncate(somewhere), SQLITE_OK);
        }
      } else {
        ASSERT_EQ(file.Size(), static_cast<sqlite3_int64>(model.size()));
      }
    }
    ASSERT_EQ(file.Sync(), SQLITE_OK);
    ASSERT_EQ(Bytes(), model);
    ASSERT_EQ(file.Unlock(), SQLITE_OK);
  }
}

// Counts the writes to the database files beneath, which all have the same methods.
class Writes {
 public:
  Writes() {
    real_ = sqlite3_vfs_find(nullptr);
    vfs_ = *real_;
    vfs_.zName = "counting";
    vfs_.xOpen = &Open;
    sqlite3_vfs_register(&vfs_, 1);
    count_ = 0;
  }
  ~Writes() { sqlite3_vfs_unregister(&vfs_); }
  Writes(Writes const&) = delete;
  Writes& operator=(Writes const&) = delete;
  int Count() const { return count_; }

 private:
  static int Open(sqlite3_vfs*, char const* name, sqlite3_file* file, int flags, int* givenFlags) {
    int const code = real_->xOpen(real_, name, file, flags, givenFlags);
    if (code == SQLITE_OK && (flags & SQLITE_OPEN_MAIN_DB) != 0) {
      methods_ = file->pMethods;
      counting_ = *methods_;
      counting_.xWrite = &Write;
      file->pMethods = &counting_;
    }
    return code;
  }
  static int Write(sqlite3_file* file, void const* bytes, int size, sqlite3_int64 offset) {
    ++count_;
    return methods_->xWrite(file, bytes, size, offset);
  }

  static inline sqlite3_vfs* real_;
  static inline sqlite3_io_methods const* methods_;
  static inline sqlite3_io_methods counting_;
  static inline int count_;
  sqlite3_vfs vfs_;
};

TEST_F(GatheredWrites, TakeFewCallsForManyPages) {
  fdo::FailingSqlite const unsynced;
  store_.Run("CREATE TABLE t (n)");
  Writes const writes;
  FdoPtr<Connection> connection = store_.Open();
  Database& database = connection.p->OpenedDatabase();
  database.Execute(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
      " INSERT INTO t SELECT randomblob(1000) FROM n");
  int const calls = writes.Count();
  EXPECT_GT(database.Number("PRAGMA page_count"), 500);
  EXPECT_LT(calls, 50);
  EXPECT_GT(calls, 1);
  // Pages that did not fit into the cache are read from where they are.
  database.Execute(
      "PRAGMA cache_size = 5; BEGIN;"
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
      " INSERT INTO t SELECT randomblob(1000) FROM n; UPDATE t SET n = zeroblob(900)");
  EXPECT_EQ(database.Number("SELECT sum(length(n)) FROM t"), 4000 * 900);
  database.Execute("COMMIT");
  EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(store_.Rows("SELECT sum(length(n)) FROM t"), "3600000");
  // Commands of SQLite that open files themselves open them in the same way.
  database.Execute("VACUUM");
  EXPECT_EQ(store_.Rows("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(store_.Rows("SELECT sum(length(n)) FROM t"), "3600000");
}

TEST_F(GatheredWrites, ServeAWriteAheadLog) {
  store_.Run("PRAGMA journal_mode = WAL; CREATE TABLE t (n)");
  FdoPtr<Connection> connection = store_.Open();
  Database& database = connection.p->OpenedDatabase();
  database.Execute("INSERT INTO t VALUES (1), (2)");
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM t"), "2");
  database.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM t"), "2");
  database.Execute("PRAGMA journal_mode = DELETE; INSERT INTO t VALUES (3)");
  EXPECT_EQ(store_.Rows("SELECT count(*) FROM t"), "3");
}

}  // namespace
}  // namespace fdo_sqlite
