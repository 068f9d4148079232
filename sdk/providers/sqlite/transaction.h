// A transaction that a program begins and ends.
#ifndef SDK_PROVIDERS_SQLITE_TRANSACTION_H_
#define SDK_PROVIDERS_SQLITE_TRANSACTION_H_

#include <string>
#include <vector>

#include "sdk/providers/sqlite/connection.h"

namespace fdo_sqlite {

// Ends with Commit, Rollback, the connection's Close, or, rolled back, with its own last reference. From then
// on its operations throw.
class Transaction : public FdoITransaction {
 public:
  // Owns: a reference to its connection, in whose database a transaction has just been begun.
  explicit Transaction(Connection* connection);

  FdoIConnection* GetConnection() override { return FDO_SAFE_ADDREF(connection_.p); }
  void Commit() override;
  // A name that is taken already gets a number behind it. Borrowed: until the next call.
  FdoString* AddSavePoint(FdoString* suggestName) override;
  void ReleaseSavePoint(FdoString* savePointName) override;
  void Rollback(FdoString* savePointName) override;
  void Rollback() override;

  // The connection closes: there is nothing to end any more.
  void Forget() { isOpen_ = false; }

 protected:
  ~Transaction() override;
  void Dispose() override { delete this; }

 private:
  Database& RequireOpen();
  void End();
  // Errors: FdoCommandException* for a name that is none of a save point here.
  std::size_t PlaceOf(FdoString* savePointName) const;

  FdoPtr<Connection> connection_;
  bool isOpen_ = true;
  std::vector<std::wstring> savePoints_;  // in the order in which they were set
  std::wstring lastName_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_TRANSACTION_H_
