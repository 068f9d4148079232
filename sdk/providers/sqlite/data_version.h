// Whether anything that was learned from a file may have changed since.
#ifndef SDK_PROVIDERS_SQLITE_DATA_VERSION_H_
#define SDK_PROVIDERS_SQLITE_DATA_VERSION_H_

#include <sqlite3.h>

#include <cstdint>

#include "sdk/providers/sqlite/database.h"

namespace fdo_sqlite {

// A number that differs when any connection, this one included, has committed a change between two
// transactions of this one. It costs no access to the file, and so is as fresh as the last transaction that
// began: ask within one.
// Requires: open.
inline std::uint32_t DataVersion(Database& database) {
  std::uint32_t version = 0;
  sqlite3_file_control(database.Handle(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
  return version;
}

// When something was learned from a file, to tell whether it still holds.
class DataStamp {
 public:
  explicit DataStamp(Database& database)
      : version_(DataVersion(database)), transaction_(database.TransactionNumber()) {}

  // Whether nobody has committed a change since. Within the transaction in which that was last known, nobody
  // can have, and SQLite is not asked. Requires and means otherwise: as DataVersion.
  bool Holds(Database& database) {
    std::uint64_t const transaction = database.TransactionNumber();
    if (transaction != 0 && transaction == transaction_) return true;
    if (DataVersion(database) != version_) return false;
    transaction_ = transaction;
    return true;
  }

 private:
  std::uint32_t version_;
  std::uint64_t transaction_;
};

// Whether the tables have changed so that the statement had to be prepared anew when it was last run. Asking
// forgets it.
inline bool WasPreparedAnew(Statement const& statement) {
  return statement.Handle() != nullptr &&
         sqlite3_stmt_status(statement.Handle(), SQLITE_STMTSTATUS_REPREPARE, 1) > 0;
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_DATA_VERSION_H_
