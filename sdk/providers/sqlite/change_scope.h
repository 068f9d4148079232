// Changes that are made whole or not at all.
#ifndef SDK_PROVIDERS_SQLITE_CHANGE_SCOPE_H_
#define SDK_PROVIDERS_SQLITE_CHANGE_SCOPE_H_

#include "sdk/providers/sqlite/database.h"

namespace fdo_sqlite {

// What is executed from its making on takes effect with Finish, or is undone with its end: in a transaction
// of its own, or as a part of the one that is open.
class ChangeScope {
 public:
  // Borrowed: the database, which outlives this.
  explicit ChangeScope(Database& database) : database_(database), nested_(database.InTransaction()) {
    if (nested_) {
      database_.Execute("SAVEPOINT fdo_change");
    } else {
      database_.BeginWriting();
    }
  }
  ~ChangeScope() {
    if (!finished_) Undo();
  }
  ChangeScope(ChangeScope const&) = delete;
  ChangeScope& operator=(ChangeScope const&) = delete;

  void Finish() {
    if (nested_) {
      database_.Execute("RELEASE fdo_change");
    } else {
      database_.Commit();
    }
    finished_ = true;
  }

 private:
  void Undo() noexcept {
    if (!nested_) {
      database_.Rollback();
    } else if (database_.InTransaction()) {
      sqlite3_exec(database_.Handle(), "ROLLBACK TO fdo_change; RELEASE fdo_change", nullptr, nullptr,
                   nullptr);
    }
  }

  Database& database_;
  bool nested_;
  bool finished_ = false;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CHANGE_SCOPE_H_
