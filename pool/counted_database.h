// A connection that counts how many of its kind live, and knows which thread holds it.
#ifndef POOL_COUNTED_DATABASE_H_
#define POOL_COUNTED_DATABASE_H_

#include <fdo/database.h>

#include <atomic>
#include <memory>
#include <string>

#include "pool/connection_pool.h"

namespace fdo {

class CountedDatabase : public Database {
 public:
  // Borrowed: alive.
  CountedDatabase(ConnectionRequest const& request, std::atomic<int>& alive) : alive_(alive) {
    connectionString_ = request.source;
    providerName_ = request.provider == nullptr ? L"" : request.provider;
    ++alive_;
  }
  CountedDatabase(CountedDatabase const&) = delete;
  CountedDatabase& operator=(CountedDatabase const&) = delete;
  ~CountedDatabase() override { --alive_; }

  bool Connect(wchar_t const*, wchar_t const*, wchar_t const*, bool, bool) override { return true; }
  void Disconnect() override {}
  bool SetSchema(DatabaseDef const&) override { return false; }
  Table* DuplicateTable(Table*) override { return nullptr; }
  void DestroyTable(Table*) override {}

  // For a test to set: 0 while no thread has it.
  std::atomic<int> holder{0};

 private:
  std::atomic<int>& alive_;
};

// Gives: what makes a CountedDatabase of every source but L"missing".
inline ConnectionPool::Create CountedConnections(std::atomic<int>& alive) {
  return [&alive](ConnectionRequest const& request) -> std::unique_ptr<Database> {
    if (std::wstring(L"missing") == request.source) return nullptr;
    return std::make_unique<CountedDatabase>(request, alive);
  };
}

}  // namespace fdo

#endif  // POOL_COUNTED_DATABASE_H_
