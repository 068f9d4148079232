#include <fdo/db_pool.h>

#include <fdo/database_fdo.h>
#include <fdo/database_ogr.h>

#include <ctime>
#include <memory>

#include "access/diagnostics.h"
#include "pool/connection_pool.h"

namespace fdo {
namespace {

// What tells more about a failed Connect than the lines it reported; null when nothing does.
std::wstring OgrReason(Database const& database) {
  return static_cast<DatabaseOgr const&>(database).LastError();
}

template <class BackEnd>
std::unique_ptr<Database> Make() {
  return std::make_unique<BackEnd>();
}

struct BackEnd {
  wchar_t const* name;
  std::unique_ptr<Database> (*make)();
  bool alwaysLoadsSchema;
  bool opensForUpdate;                               // unless it is told not to
  std::wstring (*reason)(Database const& database);  // of a failure that reports no line; may be null
};

// In the order in which they are tried.
constexpr BackEnd kBackEnds[] = {
    {L"FDO", Make<DatabaseFdo>, false, false, nullptr},
    {L"GDAL", Make<DatabaseOgr>, true, true, OgrReason},
};

// What a thread has tried last. When the program exits, the main thread's list goes before its static
// objects do; those may still ask for connections, of which nothing is then noted.
thread_local bool attemptsAreGone = false;

struct AttemptList {
  ~AttemptList() { attemptsAreGone = true; }
  std::vector<ConnectAttempt> list;
};

// Null when they are gone.
std::vector<ConnectAttempt>* AttemptsOfThread() {
  if (attemptsAreGone) return nullptr;
  thread_local AttemptList attempts;
  return &attempts.list;
}

std::wstring ProviderOf(Database const& database, ConnectionRequest const& request) {
  if (*database.ProviderName() != 0) return database.ProviderName();
  return request.provider == nullptr ? L"" : request.provider;
}

std::unique_ptr<Database> TryBackEnds(ConnectionRequest const& request) {
  std::vector<ConnectAttempt> attempts;
  std::unique_ptr<Database> made;
  wchar_t const* const source = request.source == nullptr ? L"" : request.source;  // no back end takes null
  for (BackEnd const& backEnd : kBackEnds) {
    std::unique_ptr<Database> database = backEnd.make();
    for (bool const readOnly : {false, true}) {
      if (request.forReading && backEnd.opensForUpdate && !readOnly) continue;
      DiagnosticWatch const watch;
      if (database->Connect(source, request.provider, request.configuration, readOnly,
                            request.loadSchema || backEnd.alwaysLoadsSchema)) {
        made = std::move(database);
        break;
      }
      std::wstring message = watch.Lines();
      if (message.empty() && backEnd.reason != nullptr) message = backEnd.reason(*database);
      attempts.push_back({backEnd.name, ProviderOf(*database, request), readOnly, std::move(message)});
    }
    if (made != nullptr) break;
  }
  if (made != nullptr) attempts.clear();
  if (auto* const last = AttemptsOfThread(); last != nullptr) *last = std::move(attempts);
  return made;
}

// Never destroyed: objects that outlive main may still give connections back.
ConnectionPool& Pool() {
  static auto* const pool = new ConnectionPool(TryBackEnds);
  return *pool;
}

std::time_t Now() { return std::time(nullptr); }

}  // namespace

Database* DbPool::GetConnection(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration,
                                bool loadSchema) {
  return Pool().Acquire({source, provider, configuration, loadSchema}, std::this_thread::get_id(), Now());
}

Database* DbPool::GetConnectionForReading(wchar_t const* source, wchar_t const* provider,
                                          wchar_t const* configuration, bool loadSchema) {
  return Pool().Acquire({source, provider, configuration, loadSchema, /*forReading=*/true},
                        std::this_thread::get_id(), Now());
}

Database* DbPool::GetConnection(wchar_t const* source) {
  return GetConnection(source, nullptr, nullptr, true);
}

void DbPool::ReleaseConnection(Database* db, bool destroy) {
  Pool().Release(db, destroy, std::this_thread::get_id(), Now());
}

void DbPool::CloseAllFreeConnections() { Pool().CloseFree(); }

Database* DbPool::CreateConnection(wchar_t const* source, wchar_t const* provider,
                                   wchar_t const* configuration, bool loadSchema) {
  return TryBackEnds({source, provider, configuration, loadSchema}).release();
}

void DbPool::DestroyConnection(Database* db) { delete db; }

std::vector<ConnectAttempt> DbPool::LastAttempts() {
  auto* const last = AttemptsOfThread();
  return last == nullptr ? std::vector<ConnectAttempt>() : *last;
}

PoolCounters DbPool::Counters() { return Pool().Counters(); }

std::vector<PoolHolder> DbPool::Holders() { return Pool().Holders(); }

void DbPool::CloseIdleConnections(__int64 seconds) {
  Pool().CloseFreeSince(Now() - static_cast<std::time_t>(seconds));
}

void DbPool::Invalidate(wchar_t const* source) { Pool().Invalidate(source); }

DbHandle& DbHandle::operator=(Database* db) {
  Release();
  db_ = db;
  return *this;
}

void DbHandle::Release() {
  if (db_ != nullptr) DbPool::ReleaseConnection(db_, false);
}

}  // namespace fdo
