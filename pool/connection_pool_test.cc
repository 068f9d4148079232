#include "pool/connection_pool.h"

#include <fdo/connection_string.h>
#include <gmock/gmock.h>

#include "pool/counted_database.h"
#include "pool/distinct_threads.h"

namespace fdo {
namespace {

using testing::IsEmpty;
using testing::IsNull;

class ConnectionPoolTest : public testing::Test {
 protected:
  Database* Acquire(int thread, wchar_t const* source, wchar_t const* provider = nullptr,
                    wchar_t const* configuration = nullptr) {
    return pool_.Acquire({source, provider, configuration, true}, threads_[static_cast<std::size_t>(thread)],
                         now_);
  }
  void Release(int thread, Database* connection, bool destroy = false) {
    pool_.Release(connection, destroy, threads_[static_cast<std::size_t>(thread)], now_);
  }
  // "created reused in use/free/destroyed on a foreign thread"
  std::string Counters() const {
    PoolCounters const c = pool_.Counters();
    return std::to_string(c.created) + " created, " + std::to_string(c.reused) + " reused, " +
           std::to_string(c.inUse) + " in use, " + std::to_string(c.free) + " free, " +
           std::to_string(c.destroyedOnForeignThread) + " foreign";
  }
  ~ConnectionPoolTest() override {
    pool_.CloseFree();
    EXPECT_EQ(alive_, 0);
  }

  std::atomic<int> alive_{0};
  std::time_t now_ = 1000;
  DistinctThreads threads_{3};
  ConnectionPool pool_{CountedConnections(alive_)};
};

TEST_F(ConnectionPoolTest, AThreadThatAsksTwiceGetsTheSameConnectionAndReleasesTwice) {
  Database* const first = Acquire(0, L"a");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(Acquire(0, L"a"), first);
  Release(0, first);
  EXPECT_EQ(Counters(), "1 created, 0 reused, 1 in use, 0 free, 0 foreign");
  Release(0, first);
  EXPECT_EQ(Counters(), "1 created, 0 reused, 0 in use, 1 free, 0 foreign");
}

TEST_F(ConnectionPoolTest, TwoThreadsGetTwoConnectionsAndTheLastReleasedComesFirst) {
  Database* const first = Acquire(0, L"a");
  Database* const second = Acquire(1, L"a");
  EXPECT_NE(first, second);
  Release(0, first);
  Release(1, second);
  EXPECT_EQ(Counters(), "2 created, 0 reused, 0 in use, 2 free, 0 foreign");
  EXPECT_EQ(Acquire(2, L"a"), second);
  EXPECT_EQ(Acquire(0, L"a"), first);
  EXPECT_EQ(Counters(), "2 created, 2 reused, 2 in use, 0 free, 0 foreign");
  Release(2, second);
  Release(0, first);
}

TEST_F(ConnectionPoolTest, SourceProviderAndConfigurationMakeTheKey) {
  struct Case {
    wchar_t const *source, *provider, *configuration, *key;
  };
  for (Case const& c : {
           Case{L"a", nullptr, nullptr, L"a"},
           Case{L"a", L"", L"", L"a"},
           Case{L"a", L"b", nullptr, L"a|b"},
           Case{L"a", L"b", L"c", L"a|b|c"},
           Case{L"a", nullptr, L"c", L"a|c"},
           Case{L"A", L"", nullptr, L"A"},
           Case{nullptr, L"b", nullptr, L"|b"},
       }) {
    Database* const connection = pool_.Acquire(
        {c.source == nullptr ? L"" : c.source, c.provider, c.configuration, true}, threads_[0], now_);
    EXPECT_STREQ(connection->ConnId(), c.key);
    Release(0, connection, /*destroy=*/true);
  }
}

TEST_F(ConnectionPoolTest, EmptyPartsLeaveNoMark) {
  Database* const configured = Acquire(0, L"a", nullptr, L"c");
  EXPECT_EQ(Acquire(0, L"a", L"c", nullptr), configured);
  EXPECT_EQ(Acquire(0, L"a|c"), configured);
  for (int uses = 3; uses > 0; --uses) Release(0, configured);
  Database* const other = Acquire(0, L"a|C");
  EXPECT_NE(other, configured) << "letter case counts";
  Release(0, other);
}

TEST_F(ConnectionPoolTest, AConnectionThatCannotBeMadeLeavesNoTrace) {
  EXPECT_THAT(Acquire(0, L"missing"), IsNull());
  EXPECT_EQ(Counters(), "0 created, 0 reused, 0 in use, 0 free, 0 foreign");
  EXPECT_THAT(pool_.Holders(), IsEmpty());
}

TEST_F(ConnectionPoolTest, DestroyDeletesAtTheLastUse) {
  Database* const connection = Acquire(0, L"a");
  Acquire(0, L"a");
  Release(0, connection, /*destroy=*/true);
  EXPECT_EQ(alive_, 1);
  Release(0, connection, /*destroy=*/true);
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(Counters(), "1 created, 0 reused, 0 in use, 0 free, 0 foreign");
}

TEST_F(ConnectionPoolTest, ReleasingNullDoesNothing) {
  Release(0, nullptr);
  Release(0, nullptr, /*destroy=*/true);
  EXPECT_EQ(Counters(), "0 created, 0 reused, 0 in use, 0 free, 0 foreign");
}

TEST_F(ConnectionPoolTest, AConnectionFromElsewhereIsDestroyed) {
  Release(0, new CountedDatabase({L"a", nullptr, nullptr, true}, alive_));
  EXPECT_EQ(alive_, 0);
  // Also under the key of a connection that the thread holds.
  Database* const held = Acquire(0, L"a");
  auto* const stranger = new CountedDatabase({L"a", nullptr, nullptr, true}, alive_);
  stranger->SetConnId(L"a");
  Release(0, stranger);
  EXPECT_EQ(alive_, 1);
  EXPECT_EQ(Counters(), "1 created, 0 reused, 1 in use, 0 free, 0 foreign");
  Release(0, held);
}

// Deliberate: the thread that holds it keeps its entry, whose connection is gone.
TEST_F(ConnectionPoolTest, AForeignThreadDestroys) {
  Database* const connection = Acquire(0, L"a");
  Release(1, connection);
  EXPECT_EQ(alive_, 0);
  EXPECT_EQ(Counters(), "1 created, 0 reused, 1 in use, 0 free, 1 foreign");
  EXPECT_EQ(Acquire(0, L"a"), connection) << "which must not be used";
}

TEST_F(ConnectionPoolTest, AForeignThreadWithItsOwnConnectionKeepsThat) {
  Database* const first = Acquire(0, L"a");
  Database* const second = Acquire(1, L"a");
  Release(1, first);
  EXPECT_EQ(Counters(), "2 created, 0 reused, 2 in use, 0 free, 1 foreign");
  EXPECT_EQ(Acquire(1, L"a"), second);
  Release(1, second);
  Release(1, second);
}

TEST_F(ConnectionPoolTest, CloseFreeClosesWhatIsIdleAndNothingElse) {
  Database* const used = Acquire(0, L"a");
  Release(1, Acquire(1, L"a"));
  Release(1, Acquire(1, L"b"));
  pool_.CloseFree();
  EXPECT_EQ(alive_, 1);
  EXPECT_EQ(Counters(), "3 created, 0 reused, 1 in use, 0 free, 0 foreign");
  Release(0, used);
  Database* const next = Acquire(1, L"b");
  EXPECT_EQ(Counters(), "4 created, 0 reused, 1 in use, 1 free, 0 foreign");
  Release(1, next);
}

TEST_F(ConnectionPoolTest, CloseFreeSinceGoesByTheTimeOfRelease) {
  Database* const early = Acquire(0, L"a");
  Database* const late = Acquire(1, L"a");
  now_ = 2000;
  Release(0, early);
  now_ = 3000;
  Release(1, late);
  pool_.CloseFreeSince(1999);
  EXPECT_EQ(alive_, 2);
  pool_.CloseFreeSince(2000);
  EXPECT_EQ(alive_, 1);
  EXPECT_EQ(Acquire(0, L"a"), late);
  Release(0, late);
}

TEST_F(ConnectionPoolTest, InvalidateFindsASourceUnderEveryName) {
  std::wstring const connectionString = MakeConnectionString(L"OSGeo.SQLite", L"x.sqlite");
  for (auto const& [source, provider] : {std::pair<wchar_t const*, wchar_t const*>{L"x.sqlite", nullptr},
                                         {L"x.sqlite", L"GPKG"},
                                         {connectionString.c_str(), L"OSGeo.SQLite"},
                                         {L"y.sqlite", nullptr}}) {
    Release(0, Acquire(0, source, provider));
  }
  Database* const used = Acquire(1, L"x.sqlite", L"used");
  pool_.Invalidate(L"x.sqlite");
  EXPECT_EQ(Counters(), "5 created, 0 reused, 1 in use, 1 free, 0 foreign");
  pool_.Invalidate(nullptr);
  Database* const other = Acquire(0, L"y.sqlite");
  EXPECT_EQ(Counters(), "5 created, 1 reused, 2 in use, 0 free, 0 foreign");
  Release(0, other);
  Release(1, used);
}

TEST_F(ConnectionPoolTest, HoldersSayWhoHoldsWhatSinceWhen) {
  Database* const connection = Acquire(1, L"a", L"b");
  now_ = 1005;
  Acquire(1, L"a", L"b");
  auto const holders = pool_.Holders();
  ASSERT_EQ(holders.size(), 1u);
  EXPECT_EQ(holders[0].key, L"a|b");
  EXPECT_EQ(holders[0].thread, threads_[1]);
  EXPECT_EQ(holders[0].useCount, 2);
  EXPECT_EQ(holders[0].since, 1000);
  Release(1, connection);
  Release(1, connection);
  EXPECT_THAT(pool_.Holders(), IsEmpty());
}

}  // namespace
}  // namespace fdo
