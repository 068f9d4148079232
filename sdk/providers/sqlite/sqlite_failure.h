// The one place where a failure of SQLite becomes an exception of the interface.
#ifndef SDK_PROVIDERS_SQLITE_SQLITE_FAILURE_H_
#define SDK_PROVIDERS_SQLITE_SQLITE_FAILURE_H_

#include <string>

#include "Fdo.h"

struct sqlite3;

namespace fdo_sqlite {

// What to say of a result code: the cause in words, followed by SQLite's own message where that says more.
// database may be null.
std::wstring CauseOf(int code, sqlite3* database);

// The whole message: `Cannot <doing> "<file>": <cause>.`
std::wstring FailureMessage(std::wstring const& file, std::wstring const& doing, std::wstring const& cause);

// Throws Exception*, one of the interface's families, with that message and the code as its native error.
template <class Exception>
[[noreturn]] void ThrowFailure(std::wstring const& file, std::wstring const& doing, int code,
                               sqlite3* database) {
  throw Exception::Create(FailureMessage(file, doing, CauseOf(code, database)).c_str(), FdoInt64(code));
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SQLITE_FAILURE_H_
