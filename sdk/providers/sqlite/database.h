// A Database is an open SQLite file: the handle, how it is opened, and the transaction that is open in it.
#ifndef SDK_PROVIDERS_SQLITE_DATABASE_H_
#define SDK_PROVIDERS_SQLITE_DATABASE_H_

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sdk/providers/sqlite/gathering_vfs.h"
#include "sdk/providers/sqlite/sqlite_failure.h"
#include "sdk/providers/sqlite/statement.h"

namespace fdo_sqlite {

// Errors: every failure of SQLite is thrown through Fail, as FdoCommandException*; of opening and closing as
// FdoConnectionException*. The message names the file and the cause.
// Threads: one at a time.
class Database {
 public:
  Database() = default;
  ~Database() { Close(); }
  Database(Database const&) = delete;
  Database& operator=(Database const&) = delete;

  // Opens an existing file for reading and writing; where it cannot be written, for reading only. A file of
  // no bytes is a database without tables.
  // Requires: not open. Errors: not open afterwards.
  void Open(std::wstring const& file, int busyMilliseconds);

  // Makes a new file of no bytes and opens it.
  // Errors: as Open, without the file; a file that exists already is one, and stays.
  void Create(std::wstring const& file, int busyMilliseconds);

  // Rolls back an open transaction and ends every statement; those still held by somebody throw from then on.
  void Close() noexcept;

  bool IsOpen() const { return handle_ != nullptr; }
  bool IsReadOnly() const { return readOnly_; }
  std::wstring const& File() const { return file_; }
  // Borrowed: until Close; null while closed.
  sqlite3* Handle() const { return handle_; }

  void SetBusyWait(int milliseconds);
  int BusyWait() const { return busyMilliseconds_; }

  // A statement ready to bind, prepared now or kept from earlier use with the same text.
  // Requires: open. doing completes "Cannot ... <file>" in the messages of this statement.
  Statement Prepare(std::string const& sql, wchar_t const* doing = L"read");

  // Runs statements that have no parameters and no results.
  void Execute(std::string const& sql, wchar_t const* doing = L"change");

  // The first value of the first row as a number; otherwise there is none to have, `absent`.
  std::int64_t Number(std::string const& sql, std::int64_t absent = 0);

  // Whether a transaction is open. Not the same as "somebody began one": some failures end it.
  bool InTransaction() const;

  // Of the open transaction, where it was begun here; no two have the same. 0 when there is none.
  std::uint64_t TransactionNumber() const { return begun_ && InTransaction() ? begunTransactions_ : 0; }

  // Begin one; a writing one takes the lock now, so that a locked file is noticed before any work is done.
  // Requires: !InTransaction().
  void BeginWriting();
  void BeginReading();
  // Errors: the transaction stays open, and may be committed again.
  void Commit();
  // Nothing happens when there is none.
  void Rollback() noexcept;

  // Keeps a read transaction open, so that everything read meanwhile is of one state of the file, and the
  // file is locked once for all of it. Holds nest.
  class ReadHold {
   public:
    explicit ReadHold(Database& database) : database_(database) { database.Hold(); }
    ~ReadHold() { database_.Unhold(); }
    ReadHold(ReadHold const&) = delete;
    ReadHold& operator=(ReadHold const&) = delete;

   private:
    Database& database_;
  };
  // While one lives, nothing is held; the file may be another one at its end.
  class HoldBreak {
   public:
    explicit HoldBreak(Database& database) : database_(database) { database.hold_.Reset(); }
    // What cannot be held again is read without: a statement that reads locks the file for itself.
    ~HoldBreak();
    HoldBreak(HoldBreak const&) = delete;
    HoldBreak& operator=(HoldBreak const&) = delete;

   private:
    Database& database_;
  };

  // Throws for the result code of a call to SQLite on this database. Tells, too, when the failure has undone
  // an open transaction.
  [[noreturn]] void Fail(int code, std::wstring const& doing);
  // The exception that Fail throws. Gives: one reference.
  FdoException* Failure(int code, std::wstring const& doing);

 private:
  friend class Statement;
  typedef std::shared_ptr<Statement::Prepared> PreparedPtr;

  void OpenHandle(int busyMilliseconds);
  void Hold();
  void Unhold() noexcept;
  static void Forget(PreparedPtr const& prepared);
  void TakeBack(PreparedPtr const& prepared) noexcept;

  std::optional<GatheringVfs> vfs_;  // while open
  sqlite3* handle_ = nullptr;
  std::wstring file_;
  bool readOnly_ = false;
  int busyMilliseconds_ = 0;
  bool begun_ = false;  // a transaction was begun here and neither committed nor rolled back here
  std::uint64_t begunTransactions_ = 0;
  std::multimap<std::string, PreparedPtr> idle_;  // prepared and not in use
  std::vector<PreparedPtr> used_;
  Statement hold_;
  int holds_ = 0;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_DATABASE_H_
