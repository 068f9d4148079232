#include "sdk/providers/sqlite/database.h"

#include <algorithm>
#include <cstdio>
#include <new>

#include "port/file.h"
#include "sdk/providers/sqlite/file_path.h"
#include "sdk/providers/sqlite/foreign_layout.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

// Begins a transaction and reads the head of the file, and the schema. Units: the size is in KiB, negated.
// SQLite's own 2 MiB of pages are few for look-ups here and there in a store, and a batch of inserts that
// outgrows them goes to the file before its end.
constexpr char kFirstStatements[] = "PRAGMA cache_size=-16384; BEGIN; SELECT count(*) FROM sqlite_schema";

// How many prepared statements are kept for their next use.
constexpr std::size_t kMostIdle = 64;

[[noreturn]] void RefuseFile(std::wstring const& file, wchar_t const* doing, wchar_t const* cause) {
  throw FdoConnectionException::Create(FailureMessage(file, doing, cause).c_str());
}

// Requires: no name is given to the caller's program by a file: what a file's own schema calls is not
// trusted.
void Configure(sqlite3* handle) {
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 1, nullptr);  // files in use have such schemas
}

// Whether the file is as long as its head says. SQLite itself looks for whole pages only, and takes what is
// missing of the last one for zeros, which are values.
// Requires: a transaction is open, so that nobody writes.
int LookForTheEnd(sqlite3* handle, bool& isWhole) {
  constexpr int kHeadBytes = 32;
  constexpr unsigned char kWriteAheadLog = 2;  // then the last pages may be elsewhere
  sqlite3_file* file = nullptr;
  sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  sqlite3_int64 bytes = 0;
  int code = file->pMethods->xFileSize(file, &bytes);
  if (code != SQLITE_OK || bytes < kHeadBytes) return code;
  unsigned char head[kHeadBytes];
  code = file->pMethods->xRead(file, head, kHeadBytes, 0);
  if (code != SQLITE_OK || head[18] == kWriteAheadLog) return code;
  sqlite3_int64 const pageBytes = head[16] * 256 + head[17] == 1 ? 65536 : head[16] * 256 + head[17];
  sqlite3_int64 pages = 0;
  for (int i = 28; i < kHeadBytes; ++i) pages = pages * 256 + head[i];
  isWhole = bytes >= pages * pageBytes;
  return SQLITE_OK;
}

// The file's name as SQLite takes it for one: "file:..." may be a URI to it, ":memory:" no file.
std::string NameForSqlite(std::wstring const& file) {
  std::string const name = fdo_sdk::Utf8FromWide(file);
  bool const isSpecial = name.rfind("file:", 0) == 0 || name.rfind(':', 0) == 0;
  return isSpecial ? "./" + name : name;
}

}  // namespace

void Database::Open(std::wstring const& file, int busyMilliseconds) {
  file_ = file;
  // SQLite says only that it cannot open the file, whatever the reason.
  std::FILE* probe = fdo::port::OpenFile(fdo_sdk::Utf8FromWide(file), "rb");
  if (probe == nullptr) RefuseFile(file, L"open", L"there is no such file, or it may not be read");
  std::fclose(probe);
  OpenHandle(busyMilliseconds);
}

void Database::Create(std::wstring const& file, int busyMilliseconds) {
  file_ = file;
  std::string const name = fdo_sdk::Utf8FromWide(file);
  std::FILE* made = fdo::port::OpenFile(name, "wbx");
  if (made == nullptr) {
    std::FILE* present = fdo::port::OpenFile(name, "rb");
    if (present == nullptr) RefuseFile(file, L"create", L"its folder does not exist, or may not be written");
    std::fclose(present);
    RefuseFile(file, L"create", L"there is such a file already");
  }
  std::fclose(made);
  try {
    OpenHandle(busyMilliseconds);
  } catch (FdoException*) {
    RemoveUnfinished(file);
    throw;
  }
}

void Database::OpenHandle(int busyMilliseconds) {
  std::string const name = NameForSqlite(file_);
  vfs_.emplace();
  int code =
      sqlite3_open_v2(name.c_str(), &handle_,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, vfs_->Name());
  if (code == SQLITE_OK) {
    Configure(handle_);
    SetBusyWait(busyMilliseconds);
    code = RegisterSqlFunctions(handle_);
  }
  if (code == SQLITE_OK) {
    // Nothing has been read so far.
    code = sqlite3_exec(handle_, kFirstStatements, nullptr, nullptr, nullptr);
  }
  bool isWhole = true;
  if (code == SQLITE_OK) code = LookForTheEnd(handle_, isWhole);
  wchar_t const* foreign = nullptr;
  if (code == SQLITE_OK && isWhole) code = FindForeignLayout(handle_, foreign);
  if (code == SQLITE_OK) code = sqlite3_exec(handle_, "COMMIT", nullptr, nullptr, nullptr);
  if (code == SQLITE_OK && !isWhole) {
    Close();
    throw FdoConnectionException::Create(
        FailureMessage(file_, L"open", L"it is cut off within its last page").c_str(),
        FdoInt64(SQLITE_CORRUPT));
  }
  if (code == SQLITE_OK && foreign != nullptr) {
    Close();
    RefuseFile(file_, L"open",
               (std::wstring(L"it is ") + foreign + L", which has a layout of its own").c_str());
  }
  if (code != SQLITE_OK) {
    FdoException* failure = FdoConnectionException::Create(
        FailureMessage(file_, L"open", CauseOf(code, handle_)).c_str(), FdoInt64(code));
    Close();
    throw failure;
  }
  readOnly_ = sqlite3_db_readonly(handle_, "main") == 1;
}

void Database::Close() noexcept {
  if (handle_ == nullptr) return;
  for (auto const& [sql, prepared] : idle_) Forget(prepared);
  for (PreparedPtr const& prepared : used_) Forget(prepared);
  idle_.clear();
  used_.clear();
  hold_ = Statement();
  // Rolls back what is open. There is nothing left that could keep it from closing.
  sqlite3_close_v2(handle_);
  handle_ = nullptr;
  vfs_.reset();
  readOnly_ = false;
  begun_ = false;
}

void Database::Forget(PreparedPtr const& prepared) {
  sqlite3_finalize(prepared->handle);
  prepared->handle = nullptr;
  prepared->database = nullptr;
}

void Database::SetBusyWait(int milliseconds) {
  busyMilliseconds_ = milliseconds;
  sqlite3_busy_timeout(handle_, milliseconds);
}

Statement Database::Prepare(std::string const& sql, wchar_t const* doing) {
  auto const kept = idle_.find(sql);
  PreparedPtr prepared;
  if (kept != idle_.end()) {
    prepared = kept->second;
    idle_.erase(kept);
    prepared->doing = doing;
    used_.push_back(prepared);
    return Statement(prepared);
  }
  prepared = std::make_shared<Statement::Prepared>(Statement::Prepared{nullptr, this, sql, doing});
  used_.reserve(used_.size() + 1);
  int const code = sqlite3_prepare_v3(handle_, sql.c_str(), static_cast<int>(sql.size() + 1),
                                      SQLITE_PREPARE_PERSISTENT, &prepared->handle, nullptr);
  if (code != SQLITE_OK) Fail(code, doing);
  used_.push_back(prepared);
  return Statement(prepared);
}

void Database::Execute(std::string const& sql, wchar_t const* doing) {
  int const code = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code, doing);
}

std::int64_t Database::Number(std::string const& sql, std::int64_t absent) {
  Statement statement = Prepare(sql);
  return statement.Step() && !statement.IsNull(0) ? statement.Int64(0) : absent;
}

bool Database::InTransaction() const { return handle_ != nullptr && sqlite3_get_autocommit(handle_) == 0; }

void Database::BeginWriting() {
  Prepare("BEGIN IMMEDIATE", L"change").Run();
  begun_ = true;
  ++begunTransactions_;
}

void Database::BeginReading() {
  Prepare("BEGIN", L"read").Run();
  begun_ = true;
  ++begunTransactions_;
}

void Database::Commit() {
  // SQLite looks only when it opens the journal, and would then write to a file that nobody can open again.
  int moved = 0;
  sqlite3_file_control(handle_, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  bool const writes = sqlite3_txn_state(handle_, "main") == SQLITE_TXN_WRITE;
  if (moved != 0 && writes) Fail(SQLITE_READONLY_DBMOVED, L"save the changes to");
  Prepare("COMMIT", L"save the changes to").Run();
  begun_ = false;
}

void Database::Rollback() noexcept {
  // Where this fails there is no transaction any more: SQLite ended it with the failure before.
  if (InTransaction()) sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
  begun_ = false;
}

void Database::Hold() {
  if (holds_ == 0) {
    if (!hold_.IsPrepared()) hold_ = Prepare("SELECT 1 FROM sqlite_schema LIMIT 1");
    hold_.Step();
  }
  ++holds_;
}

void Database::Unhold() noexcept {
  if (--holds_ == 0) hold_.Reset();
}

Database::HoldBreak::~HoldBreak() {
  if (database_.holds_ > 0) sqlite3_step(database_.hold_.Handle());
}

FdoException* Database::Failure(int code, std::wstring const& doing) {
  std::wstring message = FailureMessage(file_, doing, CauseOf(code, handle_));
  if (begun_ && !InTransaction()) {
    begun_ = false;
    message += L" The changes since the last commit are undone.";
  }
  return FdoCommandException::Create(message.c_str(), FdoInt64(code));
}

void Database::Fail(int code, std::wstring const& doing) { throw Failure(code, doing); }

void Database::TakeBack(PreparedPtr const& prepared) noexcept {
  auto const used = std::find(used_.begin(), used_.end(), prepared);
  std::swap(*used, used_.back());
  used_.pop_back();
  if (idle_.size() == kMostIdle) {
    Forget(prepared);
    return;
  }
  sqlite3_reset(prepared->handle);
  sqlite3_clear_bindings(prepared->handle);
  try {
    idle_.emplace(prepared->sql, prepared);
  } catch (std::bad_alloc const&) {
    Forget(prepared);  // and it is prepared anew next time
  }
}

}  // namespace fdo_sqlite
