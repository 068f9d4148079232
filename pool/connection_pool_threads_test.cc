// Threads that ask for connections and give them back as they like.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "pool/connection_pool.h"
#include "pool/counted_database.h"

namespace fdo {
namespace {

constexpr int kThreads = 8;
// A million operations in all, by default; some sanitizers want fewer.
int OperationsPerThread() {
  char const* const asked = std::getenv("QUILLON_POOL_OPERATIONS");
  return (asked == nullptr ? 1'000'000 : std::atoi(asked)) / kThreads;
}

// What one thread holds, by its own account; every answer of the pool must agree with it.
class Customer {
 public:
  Customer(ConnectionPool& pool, int number)
      : pool_(pool), number_(number), random_(static_cast<unsigned>(number)) {}

  void Run(int operations) {
    for (int i = 0; i < operations; ++i) Step();
    while (!held_.empty()) GiveBack(held_.begin());
  }

  // Empty when nothing went wrong.
  std::string const& Fault() const { return fault_; }

 private:
  struct Holding {
    CountedDatabase* connection;
    int count;
  };
  using Held = std::map<std::wstring, Holding>;

  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  void Step() {
    int const operation = Below(100);
    if (operation < 50 || held_.empty()) {
      Ask();
    } else if (operation < 98) {
      GiveBack(std::next(held_.begin(), Below(static_cast<int>(held_.size()))));
    } else if (operation == 98) {
      pool_.CloseFreeSince(Below(1000));
    } else {
      PoolCounters const counters = pool_.Counters();
      if (counters.inUse > kThreads * 3 || counters.free < 0) fault_ = "counters out of range";
    }
  }

  void Ask() {
    static wchar_t const* const sources[] = {L"a", L"b",
                                             L"a longer name than the short text of a string holds"};
    wchar_t const* const source = sources[Below(3)];
    auto* const got = static_cast<CountedDatabase*>(
        pool_.Acquire({source, nullptr, nullptr, true}, std::this_thread::get_id(), 0));
    if (got == nullptr || got->ConnId() != std::wstring(source)) {
      fault_ = "not the connection that was asked for";
      return;
    }
    if (auto const known = held_.find(source); known != held_.end()) {
      if (known->second.connection != got) fault_ = "a second connection for the same thread and key";
      ++known->second.count;
      return;
    }
    if (int nobody = 0; !got->holder.compare_exchange_strong(nobody, number_)) {
      fault_ = "one connection in two threads";
    }
    held_[source] = {got, 1};
  }

  void GiveBack(Held::iterator holding) {
    CountedDatabase* const connection = holding->second.connection;
    if (holding->second.count == 1) {
      if (connection->holder.exchange(0) != number_) fault_ = "somebody else took the connection";
    }
    pool_.Release(connection, Below(10) == 0, std::this_thread::get_id(), Below(1000));
    if (--holding->second.count == 0) held_.erase(holding);
  }

  ConnectionPool& pool_;
  int const number_;
  std::mt19937 random_;
  Held held_;
  std::string fault_;
};

TEST(ConnectionPoolThreads, NoConnectionIsEverWithTwoOfThem) {
  std::atomic<int> alive{0};
  ConnectionPool pool(CountedConnections(alive));
  std::vector<Customer> customers;
  for (int i = 1; i <= kThreads; ++i) customers.emplace_back(pool, i);
  std::vector<std::thread> threads;
  for (Customer& customer : customers) {
    threads.emplace_back([&customer] { customer.Run(OperationsPerThread()); });
  }
  for (std::thread& thread : threads) thread.join();
  for (Customer const& customer : customers) EXPECT_EQ(customer.Fault(), "");
  PoolCounters const counters = pool.Counters();
  EXPECT_EQ(counters.inUse, 0);
  EXPECT_EQ(counters.free, alive);
  EXPECT_EQ(counters.destroyedOnForeignThread, 0);
  EXPECT_GT(counters.reused, counters.created);
  pool.CloseFree();
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace fdo
