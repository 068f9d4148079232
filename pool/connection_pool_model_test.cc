// A pool against a plain model of what it documents: two ordered maps.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "pool/connection_pool.h"
#include "pool/counted_database.h"
#include "pool/distinct_threads.h"

namespace fdo {
namespace {

constexpr int kThreads = 8;

struct Model {
  struct Use {
    Database* connection;
    int count;
    std::time_t since;
  };
  struct Idle {
    Database* connection;
    std::time_t released;
  };
  std::map<int, std::map<std::wstring, Use>> busy;
  std::map<std::wstring, std::vector<Idle>> free;

  int InUse() const {
    int count = 0;
    for (auto const& [thread, uses] : busy) count += static_cast<int>(uses.size());
    return count;
  }
  int Free() const {
    int count = 0;
    for (auto const& [key, idle] : free) count += static_cast<int>(idle.size());
    return count;
  }
};

class PoolModel : public testing::TestWithParam<unsigned> {};

TEST_P(PoolModel, AgreesAfterEveryOperation) {
  std::mt19937 random(GetParam());
  auto const below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  std::atomic<int> alive{0};
  DistinctThreads const threads(kThreads);
  ConnectionPool pool(CountedConnections(alive));
  Model model;
  wchar_t const* const sources[] = {L"a", L"b", L"a longer name than the short text of a string holds",
                                    L"missing"};
  __int64 created = 0, reused = 0;
  std::time_t now = 0;
  for (int step = 0; step < 125'000; ++step) {
    SCOPED_TRACE(step);
    now += below(2);
    int const thread = below(kThreads);
    auto const id = threads[static_cast<std::size_t>(thread)];
    int const operation = below(1000);
    if (operation < 490) {
      wchar_t const* const source = sources[below(4)];
      std::wstring const key = source;
      Database* const got = pool.Acquire({source, L"", nullptr, true}, id, now);
      auto& uses = model.busy[thread];
      if (auto const use = uses.find(key); use != uses.end()) {
        ASSERT_EQ(got, use->second.connection);
        ++use->second.count;
      } else if (auto& idle = model.free[key]; !idle.empty()) {
        ASSERT_EQ(got, idle.back().connection);
        idle.pop_back();
        uses[key] = {got, 1, now};
        ++reused;
      } else if (key == L"missing") {
        ASSERT_EQ(got, nullptr);
      } else {
        ASSERT_NE(got, nullptr);
        ASSERT_EQ(got->ConnId(), key);
        uses[key] = {got, 1, now};
        ++created;
      }
    } else if (operation < 990) {
      auto& uses = model.busy[thread];
      if (uses.empty()) continue;
      auto const use = std::next(uses.begin(), below(static_cast<int>(uses.size())));
      bool const destroy = below(10) == 0;
      pool.Release(use->second.connection, destroy, id, now);
      if (--use->second.count == 0) {
        if (!destroy) model.free[use->first].push_back({use->second.connection, now});
        uses.erase(use);
      }
    } else if (operation < 995) {
      std::time_t const latest = now - below(20);
      pool.CloseFreeSince(latest);
      for (auto& [key, idle] : model.free) {
        std::erase_if(idle, [&](Model::Idle const& entry) { return entry.released <= latest; });
      }
    } else if (operation < 998) {
      wchar_t const* const source = sources[below(4)];
      pool.Invalidate(source);
      model.free.erase(source);
    } else {
      pool.CloseFree();
      model.free.clear();
    }
    PoolCounters const counters = pool.Counters();
    ASSERT_EQ(counters.inUse, model.InUse());
    ASSERT_EQ(counters.free, model.Free());
    ASSERT_EQ(counters.created, created);
    ASSERT_EQ(counters.reused, reused);
    ASSERT_EQ(counters.destroyedOnForeignThread, 0);
    ASSERT_EQ(alive, counters.inUse + counters.free);
  }
  for (auto const& [thread, uses] : model.busy) {
    for (auto const& [key, use] : uses) {
      for (int count = 0; count < use.count; ++count) {
        pool.Release(use.connection, false, threads[static_cast<std::size_t>(thread)], now);
      }
    }
  }
  EXPECT_EQ(pool.Counters().inUse, 0);
  pool.CloseFree();
  EXPECT_EQ(alive, 0);
}

INSTANTIATE_TEST_SUITE_P(Seeds, PoolModel, testing::Range(1u, 9u));

}  // namespace
}  // namespace fdo
