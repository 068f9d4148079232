// A process-wide pool of open connections, shared by all threads.
#ifndef FDO_DB_POOL_H_
#define FDO_DB_POOL_H_

#include <fdo/database.h>
#include <fdo/export.h>
#include <fdo/integer.h>

#include <string>
#include <thread>
#include <vector>

namespace fdo {

// One way in which DbPool tried to open a source, and what came of it.
struct ConnectAttempt {
  std::wstring backEnd;  // "FDO" or "GDAL"
  std::wstring
      provider;   // what was asked for or, where that was left to the back end, what it took; may be ""
  bool readOnly;  // the last flag but one of Connect
  std::wstring
      message;  // the lines that the attempt reported, with line breaks between; "" when it gave none
};

// What the pool has done since the process began, and what it holds now.
struct PoolCounters {
  __int64 created;                   // connections made by GetConnection
  __int64 reused;                    // free connections handed out again
  __int64 inUse;                     // connections that threads hold now
  __int64 free;                      // idle connections now
  __int64 destroyedOnForeignThread;  // given back by another thread than the one that got them
};

// A connection in use.
struct PoolHolder {
  std::wstring key;  // the connection's id: the source, then "|" and the provider, "|" and the configuration
  std::thread::id thread;  // the thread that got it
  int useCount;            // how many times it must be given back
  __int64 since;           // Units: seconds since 1970
};

// A DbPool hands out connections: a thread that asks with the arguments of Database::Connect gets the
// connection that it holds for them already, else an idle one, the one released last, else a new one. It
// gives each back once for each time that it asked; a DbHandle does so by itself.
//
//   DbHandle parcels(DbPool::GetConnection(L"parcels.sqlite"));
//   if (!parcels) ...
//
// Two requests mean the same connection when source, provider and configuration are the same texts; null
// and "" are the same (no back end opens the source ""), and letter case counts.
// Deliberate: a configuration without a provider cannot be told from a provider without a configuration,
// since the empty part leaves no mark in the key (ConnectionPoolTest.EmptyPartsLeaveNoMark).
//
// A connection that exists is handed out as it is: it is not checked, opened anew or closed with age, and
// loadSchema is for new ones only (DbPoolTest.AConnectionKeepsTheSchemaItWasMadeWith). Attempts that fail
// report their diagnostic lines even when a later one succeeds.
//
// Ownership: the pool owns idle connections, until CloseAllFreeConnections, CloseIdleConnections or
// Invalidate closes them; they are not closed at the end of the process.
// Threads: any, also before main and during the program's exit. One lock is held for the whole of each
// call but CreateConnection and DestroyConnection: making a connection keeps every other caller waiting.
class QUILLON_EXPORT DbPool {
 public:
  DbPool() = delete;

  // Gives: a connection for the calling thread alone, to be given back by that thread; null when none can
  // be made, and LastAttempts() then says why.
  static Database* GetConnection(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration,
                                 bool loadSchema);
  // The same without provider and configuration, and with the schema.
  static Database* GetConnection(wchar_t const* source);
  // The same for a caller that will not write. GDAL, which may change a file by opening it for update (it
  // mends the triggers of a GeoPackage, for one), then opens it for reading only. Such connections are kept
  // apart from the others.
  static Database* GetConnectionForReading(wchar_t const* source, wchar_t const* provider,
                                           wchar_t const* configuration, bool loadSchema);
  // Gives back one use; null is allowed. After the thread's last use the connection is idle or, with
  // destroy, deleted.
  // Deliberate: a connection that this thread did not get from the pool is deleted. When another thread
  // holds it, that thread is left with a pointer to nothing (ConnectionPoolTest.AForeignThreadDestroys).
  static void ReleaseConnection(Database* db, bool destroy);
  // Closes every idle connection, so that their files can be deleted or replaced.
  static void CloseAllFreeConnections();

  // A new connection outside the pool: through FDO, then through GDAL, each first for update and then for
  // reading only. The second attempt of FDO, which knows no such mode, repeats its first.
  // GDAL's connections always load their schema.
  // Gives: a connection for DestroyConnection; null, and LastAttempts() says why, when all four fail.
  static Database* CreateConnection(wchar_t const* source, wchar_t const* provider,
                                    wchar_t const* configuration, bool loadSchema);
  // Deletes the connection, which may be null, whatever the pool knows of it.
  static void DestroyConnection(Database* db);

  // What the last connection that could not be made on this thread was tried with, in order; empty after
  // one that was made.
  static std::vector<ConnectAttempt> LastAttempts();
  static PoolCounters Counters();
  // Who holds what.
  static std::vector<PoolHolder> Holders();
  // Closes the connections that have been idle for that many seconds or longer.
  static void CloseIdleConnections(__int64 seconds);
  // Closes the idle connections to the source, whatever their provider and configuration: one that was
  // asked for under that name, or is a file store of that path. Connections in use stay as they are.
  static void Invalidate(wchar_t const* source);
};

// A DbHandle holds one use of a pooled connection, and gives it back at the end of its life.
// Threads: the one that got the connection, the destructor included.
class QUILLON_EXPORT DbHandle {
 public:
  DbHandle() = default;
  // Takes over one use that GetConnection gave, or null.
  DbHandle(Database* db) : db_(db) {}  // NOLINT(google-explicit-constructor): DbHandle h = GetConnection(...)
  DbHandle(DbHandle const&) = delete;
  DbHandle& operator=(DbHandle const&) = delete;
  ~DbHandle() { Release(); }

  // Gives back what it holds, and takes over one use of db.
  DbHandle& operator=(Database* db);

  bool operator!() const { return db_ == nullptr; }
  operator Database*() const { return db_; }  // NOLINT(google-explicit-constructor): stands for the pointer
  // Requires: !!*this
  Database* operator->() const { return db_; }

 private:
  void Release();

  Database* db_ = nullptr;
};

}  // namespace fdo

#endif  // FDO_DB_POOL_H_
