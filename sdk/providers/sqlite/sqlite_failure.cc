#include "sdk/providers/sqlite/sqlite_failure.h"

#include <sqlite3.h>

#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

struct Cause {
  int code;  // extended, or primary for all of its kind
  wchar_t const* words;
  bool withMessage;  // whether SQLite's own message adds to the words
};

constexpr Cause kCauses[] = {
    {SQLITE_BUSY_SNAPSHOT, L"another program has changed it in the meantime", false},
    {SQLITE_BUSY, L"it is locked by another program or connection", false},
    {SQLITE_LOCKED, L"it is in use by another command of this connection", false},
    {SQLITE_READONLY_DBMOVED, L"the file was moved, removed or replaced while it was open", false},
    {SQLITE_READONLY_ROLLBACK,
     L"an interrupted program left changes that must be undone, and it is read-only", false},
    {SQLITE_READONLY_DIRECTORY, L"its folder is read-only", false},
    {SQLITE_READONLY, L"it is read-only", false},
    {SQLITE_NOTADB, L"it is not an SQLite database", false},
    {SQLITE_CORRUPT, L"it is damaged or cut off", true},
    {SQLITE_FULL, L"the disk is full", false},
    {SQLITE_CANTOPEN_ISDIR, L"it is a folder", false},
    {SQLITE_CANTOPEN, L"the file, or its journal beside it, cannot be opened", false},
    {SQLITE_IOERR_NOMEM, L"there is not enough memory", false},
    {SQLITE_IOERR_SHORT_READ, L"the file ends too early", false},
    {SQLITE_IOERR, L"the disk reports an error", true},
    {SQLITE_NOMEM, L"there is not enough memory", false},
    {SQLITE_TOOBIG, L"a value is larger than SQLite can hold", false},
    {SQLITE_PERM, L"access is denied", false},
    {SQLITE_AUTH, L"access is denied", true},
    {SQLITE_INTERRUPT, L"it was cancelled", false},
    {SQLITE_SCHEMA, L"another program changes its tables", false},
    {SQLITE_ABORT, L"what was read has been rolled back", false},
    {SQLITE_CONSTRAINT, L"a rule of the table forbids it", true},
    {SQLITE_MISMATCH, L"a value is not of the column's type", true},
};

}  // namespace

std::wstring CauseOf(int code, sqlite3* database) {
  std::wstring words;
  bool withMessage = true;
  for (int const wanted : {code, code & 0xFF}) {
    for (Cause const& cause : kCauses) {
      if (!words.empty() || cause.code != wanted) continue;
      words = cause.words;
      withMessage = cause.withMessage;
    }
  }
  if (!withMessage) return words;
  char const* message = database == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(database);
  std::wstring const own = fdo_sdk::WideFromUtf8(message == nullptr ? "" : message);
  if (words.empty()) return own;
  return own.empty() ? words : words + L" (" + own + L")";
}

std::wstring FailureMessage(std::wstring const& file, std::wstring const& doing, std::wstring const& cause) {
  return L"Cannot " + doing + L" \"" + file + L"\": " + cause + L".";
}

}  // namespace fdo_sqlite
