// Taking an idle connection from the pool and giving it back, against the plain way to keep connections:
// two ordered maps and a mutex.
#include <fdo/db_pool.h>
#include <fdo/diagnostics.h>

#include <ctime>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/job_table.h"
#include "bench/vector_files.h"
#include "bench/workbench.h"

namespace fdo::bench {
namespace {

class PlainPool {
 public:
  void Add(std::wstring const& key, Database* connection) {
    std::lock_guard const guard(lock_);
    free_[key].push_back({connection, 0, 0});
  }

  Database* Get(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration) {
    std::lock_guard const guard(lock_);
    std::wstring key = source;
    if (provider != nullptr && *provider != 0) key = key + L"|" + provider;
    if (configuration != nullptr && *configuration != 0) key = key + L"|" + configuration;
    auto const thread = std::this_thread::get_id();
    if (auto const busy = busy_.find(thread); busy != busy_.end()) {
      if (auto const entry = busy->second.find(key); entry != busy->second.end()) {
        ++entry->second.uses;
        return entry->second.connection;
      }
    }
    auto const free = free_.find(key);
    if (free == free_.end() || free->second.empty()) return nullptr;
    Database* const connection = free->second.back().connection;
    free->second.pop_back();
    busy_[thread][key] = {connection, 0, 1};
    return connection;
  }

  void Release(Database* connection) {
    std::lock_guard const guard(lock_);
    std::wstring const key = connection->ConnId();
    auto const busy = busy_.find(std::this_thread::get_id());
    if (busy == busy_.end()) return;
    auto const entry = busy->second.find(key);
    if (entry == busy->second.end() || --entry->second.uses > 0) return;
    busy->second.erase(entry);
    free_[key].push_back({connection, std::time(nullptr), 0});
    if (busy->second.empty()) busy_.erase(busy);
  }

 private:
  struct Entry {
    Database* connection;
    std::time_t released;
    int uses;
  };

  std::mutex lock_;
  std::map<std::thread::id, std::map<std::wstring, Entry>> busy_;
  std::map<std::wstring, std::vector<Entry>> free_;
};

constexpr int kMostThreads = 2;

// Both pools, with an idle connection for each thread.
struct Pools {
  explicit Pools(Workbench const& bench) {
    Workbench few = bench;
    few.rows = 100;
    source = VectorFile(few, "gpkg points").wstring();
    // That the first back end does not know such files is no news.
    SetDiagnosticHandler([](wchar_t const*, void*) {}, nullptr);
    std::vector<Database*> connections;
    for (int i = 0; i < kMostThreads; ++i) {
      std::thread([&] {
        connections.push_back(DbPool::GetConnection(source.c_str()));
        if (connections.back() == nullptr) return;
        plain.Add(source, connections.back());
        DbPool::ReleaseConnection(connections.back(), false);
      }).join();
    }
    SetDiagnosticHandler(nullptr, nullptr);
    for (Database* const connection : connections) {
      if (connection == nullptr) throw std::runtime_error("the pool makes no connection");
    }
  }
  Pools(Pools const&) = delete;
  Pools& operator=(Pools const&) = delete;
  ~Pools() { DbPool::CloseAllFreeConnections(); }

  std::wstring source;
  PlainPool plain;
};

// takeAndReturn() is done times times on each thread, and says whether it got a connection.
template <class TakeAndReturn>
Work OnThreads(int threadCount, std::int64_t times, TakeAndReturn takeAndReturn) {
  std::vector<std::uint64_t> taken(static_cast<std::size_t>(threadCount));
  std::vector<std::thread> threads;
  for (std::uint64_t& count : taken) {
    threads.emplace_back([&count, times, &takeAndReturn] {
      std::uint64_t own = 0;
      for (std::int64_t i = 0; i < times; ++i) own += takeAndReturn() ? 1 : 0;
      count = own;
    });
  }
  for (std::thread& thread : threads) thread.join();
  Work work;
  for (std::uint64_t const count : taken) work.checksum += count;
  work.amount = static_cast<double>(work.checksum);
  return work;
}

}  // namespace

Sides PoolJob(Workbench const& bench, std::string_view data) {
  int const threads = data == "one thread" ? 1 : data == "two threads" ? kMostThreads : 0;
  if (threads == 0) throw std::invalid_argument("no threads \"" + std::string(data) + "\"");
  auto const pools = std::make_shared<Pools>(bench);
  std::int64_t const times = bench.rows;
  return {
      [=] {
        return OnThreads(threads, times, [&] {
          Database* const connection = DbPool::GetConnection(pools->source.c_str());
          DbPool::ReleaseConnection(connection, false);
          return connection != nullptr;
        });
      },
      [=] {
        return OnThreads(threads, times, [&] {
          Database* const connection = pools->plain.Get(pools->source.c_str(), nullptr, nullptr);
          pools->plain.Release(connection);
          return connection != nullptr;
        });
      },
  };
}

}  // namespace fdo::bench
