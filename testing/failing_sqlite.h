// Makes SQLite fail on demand: at the nth call to the disk, or at the nth time it wants memory.
#ifndef TESTING_FAILING_SQLITE_H_
#define TESTING_FAILING_SQLITE_H_

namespace fdo {

// What fails. kDisk: any call to the file system, with the code that this call fails with. kFullDisk: what
// makes a file longer or changes it. kReadOnly: nothing but reading works, and files open for reading only;
// from the nth call to open on. kMemory: an allocation.
enum class SqliteFault { kDisk, kFullDisk, kReadOnly, kMemory };

// While one lives, every database that is opened is at its mercy; databases opened before are not.
// Requires: at most one lives at a time, and none while a database is open that was opened under another.
// Threads: one at a time.
class FailingSqlite {
 public:
  // Must come before the first use of SQLite in a program that wants kMemory; a second time nothing happens.
  // Errors: false when SQLite cannot be told so any more.
  static bool PrepareMemory();

  FailingSqlite();
  ~FailingSqlite();
  FailingSqlite(FailingSqlite const&) = delete;
  FailingSqlite& operator=(FailingSqlite const&) = delete;

  // The nth call from now on fails, n from 1; with lasting, so does every call after it. 0 is never.
  void FailAt(SqliteFault fault, int n, bool lasting = false);
  // Nothing fails any more. What HasFailed says stays.
  void Heal();
  // Whether a call has failed since FailAt.
  bool HasFailed() const;
};

// Calls body() with the 1st, the 2nd, ... call failing (or every step-th, from the 1st), until a run of it
// needs fewer calls than that. body must leave the world as it found it. Gives the number of runs that met a
// failure. Requires: body does not throw.
template <class Body>
int ForEachFailure(FailingSqlite& sqlite, SqliteFault fault, Body body, bool lasting = false, int step = 1) {
  int failures = 0;
  for (int n = 1;; n += step) {
    sqlite.FailAt(fault, n, lasting);
    body();
    bool const failed = sqlite.HasFailed();
    sqlite.Heal();
    if (!failed) return failures;
    ++failures;
  }
}

}  // namespace fdo

#endif  // TESTING_FAILING_SQLITE_H_
