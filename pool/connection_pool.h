// The connections that threads share, whatever makes them: what DbPool is made of.
#ifndef POOL_CONNECTION_POOL_H_
#define POOL_CONNECTION_POOL_H_

#include <fdo/database.h>
#include <fdo/db_pool.h>

#include <cstddef>
#include <ctime>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

namespace fdo {

// What a connection is asked for with.
struct ConnectionRequest {
  wchar_t const* source;
  wchar_t const* provider;
  wchar_t const* configuration;
  bool loadSchema;
  bool forReading = false;
};

// Whether the connection was asked for with that flag.
bool IsForReading(Database const& connection);

// See DbPool for what each operation means. The caller says which thread it is and what time it is, in
// seconds since 1970.
//
// One table of slots, found by a key that is built in place: handing out an idle connection and taking it
// back allocate nothing once both have happened to the key.
//
// Threads: any.
class ConnectionPool {
 public:
  // Gives: a new connection, or null.
  using Create = std::function<std::unique_ptr<Database>(ConnectionRequest const&)>;

  explicit ConnectionPool(Create create) : create_(std::move(create)) {}
  ConnectionPool(ConnectionPool const&) = delete;
  ConnectionPool& operator=(ConnectionPool const&) = delete;

  Database* Acquire(ConnectionRequest const& request, std::thread::id thread, std::time_t now);
  void Release(Database* connection, bool destroy, std::thread::id thread, std::time_t now);
  void CloseFree();
  void CloseFreeSince(std::time_t latestRelease);
  void Invalidate(wchar_t const* source);

  PoolCounters Counters() const;
  std::vector<PoolHolder> Holders() const;

 private:
  struct Use {
    std::thread::id thread;
    Database* connection;
    int count;
    std::time_t since;
  };
  struct Idle {
    std::unique_ptr<Database> connection;
    std::time_t released;
  };
  // All connections of one key.
  struct Slot {
    std::wstring source;
    std::vector<Use> uses;   // one for each thread at most
    std::vector<Idle> idle;  // a stack
  };
  struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view key) const;
  };
  using Slots = std::unordered_map<std::wstring, Slot, KeyHash, std::equal_to<>>;

  // Requires for all below: lock_ is held.
  void BuildKey(ConnectionRequest const& request);
  Slots::iterator FindSlot(std::wstring_view key);
  // Gives: the next slot.
  Slots::iterator EraseSlot(Slots::iterator slot);
  // Closes the idle connections that close(slot, idle) is true for, and forgets slots without any.
  template <class Close>
  void CloseIdle(Close close);

  Create const create_;
  mutable std::mutex lock_;
  Slots slots_;
  Slots::iterator latest_ = slots_.end();  // found last; most callers come for the same source again
  std::wstring key_;                       // of the request at hand
  __int64 created_ = 0;
  __int64 reused_ = 0;
  __int64 destroyedOnForeignThread_ = 0;
};

}  // namespace fdo

#endif  // POOL_CONNECTION_POOL_H_
