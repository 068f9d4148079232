#include <fdo/database_fdo.h>
#include <fdo/db_pool.h>
#include <fdo/scroller.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "ogr_backend/ogr_test_files.h"
#include "testing/captured_diagnostics.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

OgrFormat const& GeoPackage() {
  for (OgrFormat const& format : kOgrFormats) {
    if (std::string(format.name) == "Gpkg") return format;
  }
  throw std::logic_error("no GeoPackage among the formats");
}

class DbPoolTest : public testing::Test {
 protected:
  ~DbPoolTest() override { DbPool::CloseAllFreeConnections(); }

  ScratchDirectory const scratch_;
  std::wstring const path_ = WriteTowns(scratch_, GeoPackage());
  // The first back end says on the way that it does not know these files.
  CapturedDiagnostics diagnostics_;
};

TEST_F(DbPoolTest, OneSourceOneConnection) {
  Database* const connection = DbPool::GetConnection(path_.c_str());
  ASSERT_THAT(connection, NotNull());
  EXPECT_EQ(connection->Count(), 1);
  EXPECT_EQ(connection->ConnId(), path_);
  EXPECT_EQ(DbPool::GetConnection(path_.c_str(), L"", nullptr, true), connection);
  DbPool::ReleaseConnection(connection, false);
  EXPECT_EQ(DbPool::Holders().size(), 1u);
  DbPool::ReleaseConnection(connection, false);
  EXPECT_THAT(DbPool::Holders(), IsEmpty());
  EXPECT_EQ(DbPool::Counters().free, 1);
  DbPool::CloseIdleConnections(3600);
  EXPECT_EQ(DbPool::Counters().free, 1);
  DbPool::CloseIdleConnections(0);
  EXPECT_EQ(DbPool::Counters().free, 0);
}

TEST_F(DbPoolTest, ASourceIsOpenedForUpdateWhereItCanBe) {
  DbHandle towns(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!towns);
  Table& table = (*static_cast<Database*>(towns))[0];
  EXPECT_TRUE(table.Delete(table.GetRowCount(nullptr, true)));
}

TEST_F(DbPoolTest, ASourceThatCannotBeWrittenIsReadAllTheSame) {
  // A virtual file inside another file is for reading only.
  std::wstring const size = std::to_wstring(std::filesystem::file_size(std::filesystem::path(path_)));
  std::wstring const inside = L"/vsisubfile/0_" + size + L"," + path_;
  DbHandle towns(DbPool::GetConnection(inside.c_str()));
  ASSERT_FALSE(!towns);
  Table& table = (*static_cast<Database*>(towns))[0];
  EXPECT_FALSE(table.IsEmpty(nullptr));
  EXPECT_FALSE(table.Delete(1));
  EXPECT_THAT(DbPool::LastAttempts(), IsEmpty());
}

TEST_F(DbPoolTest, WhatIsAskedForForReadingIsNotOpenedForUpdate) {
  DbHandle const forReading(DbPool::GetConnectionForReading(path_.c_str(), nullptr, nullptr, true));
  DbHandle const forUpdate(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!forReading || !forUpdate);
  EXPECT_NE(static_cast<Database*>(forReading), static_cast<Database*>(forUpdate));
  EXPECT_FALSE((*static_cast<Database*>(forReading))[0].Delete(1));
  EXPECT_TRUE((*static_cast<Database*>(forUpdate))[0].Delete(1));
  Table& table = (*static_cast<Database*>(forReading))[0];
  table.Query();
  Scroller const scroller(forReading, &table);
  auto const holders = DbPool::Holders();
  EXPECT_EQ(holders.size(), 3u);
  EXPECT_EQ(std::count_if(holders.begin(), holders.end(),
                          [](PoolHolder const& holder) {
                            return holder.key.find(L"for reading") != std::wstring::npos;
                          }),
            2)
      << "the second connection of a scroller is for reading, as the first one is";
}

TEST_F(DbPoolTest, WhatCannotBeOpenedTellsWhatWasTried) {
  std::wstring const missing = scratch_.File("missing.sqlite");
  EXPECT_THAT(DbPool::GetConnection(missing.c_str()), IsNull());
  auto const attempts = DbPool::LastAttempts();
  ASSERT_EQ(attempts.size(), 4u);
  for (std::size_t i = 0; i < attempts.size(); ++i) {
    EXPECT_EQ(attempts[i].backEnd, i < 2 ? L"FDO" : L"GDAL");
    EXPECT_EQ(attempts[i].readOnly, i % 2 == 1);
    EXPECT_NE(attempts[i].message, L"");
  }
  std::vector<ConnectAttempt> elsewhere;
  std::thread([&elsewhere] { elsewhere = DbPool::LastAttempts(); }).join();
  EXPECT_THAT(elsewhere, IsEmpty());
  DbHandle const towns(DbPool::GetConnection(path_.c_str()));
  EXPECT_THAT(DbPool::LastAttempts(), IsEmpty());
}

TEST_F(DbPoolTest, NoSourceIsTheEmptySourceWhichNothingOpens) {
  EXPECT_THAT(DbPool::GetConnection(nullptr), IsNull());
  EXPECT_EQ(DbPool::LastAttempts().size(), 4u);
  EXPECT_THAT(DbPool::CreateConnection(nullptr, nullptr, nullptr, true), IsNull());
  EXPECT_THAT(DbPool::GetConnectionForReading(nullptr, L"OSGeo.SQLite", nullptr, true), IsNull());
  DbPool::Invalidate(nullptr);
}

TEST_F(DbPoolTest, AConnectionKeepsTheSchemaItWasMadeWith) {
  std::wstring const store = scratch_.File("store.sqlite");
  ASSERT_TRUE(DatabaseFdo::Create(store.c_str(), nullptr));
  DbHandle const bare(DbPool::GetConnection(store.c_str(), nullptr, nullptr, /*loadSchema=*/false));
  ASSERT_FALSE(!bare);
  EXPECT_THAT(bare->Def(), IsNull());
  DbHandle const again(DbPool::GetConnection(store.c_str(), nullptr, nullptr, /*loadSchema=*/true));
  EXPECT_EQ(static_cast<Database*>(again), static_cast<Database*>(bare));
  EXPECT_THAT(again->Def(), IsNull());
}

TEST_F(DbPoolTest, AConnectionFromCreateConnectionIsNotThePools) {
  PoolCounters const before = DbPool::Counters();
  DbPool::DestroyConnection(DbPool::CreateConnection(path_.c_str(), nullptr, nullptr, false));
  DbPool::DestroyConnection(nullptr);
  Database* const own = DbPool::CreateConnection(path_.c_str(), nullptr, nullptr, false);
  ASSERT_THAT(own, NotNull());
  EXPECT_EQ(own->Count(), 1) << "GDAL's connections always load their schema";
  DbPool::ReleaseConnection(own, false);  // deletes it
  EXPECT_EQ(DbPool::Counters().free, before.free);
  EXPECT_EQ(DbPool::Counters().created, before.created);
}

TEST_F(DbPoolTest, AHandleGivesBackWhatItHeld) {
  std::wstring const other = scratch_.File("other.gpkg");
  std::filesystem::copy_file(std::filesystem::path(path_), std::filesystem::path(other));
  DbHandle handle;
  EXPECT_TRUE(!handle);
  handle = DbPool::GetConnection(path_.c_str());
  EXPECT_EQ(handle->ConnId(), path_);
  handle = DbPool::GetConnection(other.c_str());
  EXPECT_EQ(DbPool::Counters().free, 1);
  EXPECT_EQ(DbPool::Counters().inUse, 1);
  handle = nullptr;
  EXPECT_TRUE(!handle);
  EXPECT_EQ(DbPool::Counters().free, 2);
}

TEST_F(DbPoolTest, AFileCanBeDeletedAfterAllFreeConnectionsAreClosed) {
  { DbHandle const towns(DbPool::GetConnection(path_.c_str())); }
  DbPool::CloseAllFreeConnections();
  EXPECT_EQ(DbPool::Counters().free, 0);
  EXPECT_TRUE(std::filesystem::remove(std::filesystem::path(path_)));
  EXPECT_THAT(DbPool::GetConnection(path_.c_str()), IsNull());
}

TEST_F(DbPoolTest, AFileCanBeReplacedAfterInvalidate) {
  { DbHandle const towns(DbPool::GetConnection(path_.c_str())); }
  DbPool::Invalidate(path_.c_str());
  EXPECT_EQ(DbPool::Counters().free, 0);
  std::filesystem::remove(std::filesystem::path(path_));
  EXPECT_THAT(DbPool::GetConnection(path_.c_str()), IsNull());
  WriteTowns(scratch_, GeoPackage(), {Towns()[0]});
  DbHandle const towns(DbPool::GetConnection(path_.c_str()));
  ASSERT_FALSE(!towns);
  EXPECT_EQ((*static_cast<Database*>(towns))[0].GetRowCount(nullptr, true), 1);
}

// Takes part in the end of the program: its connection goes back after main.
TEST_F(DbPoolTest, StaticHandlesGiveBackAfterMain) {
  static DbHandle last;
  static ScratchDirectory const lasting;
  last = DbPool::GetConnection(WriteTowns(lasting, GeoPackage()).c_str());
  EXPECT_FALSE(!last);
}

}  // namespace
}  // namespace fdo
